#pragma once

#include "language/generate/TableLine.h"

#include <string>
#include <utility>
#include <vector>

/// One scalar of the data of a vector.
struct DataItem {
    enum Role { Required, Identifier, Optional };

    const char* name;
    const char* type; // "string" or "integer"
    int min; // of an integer
    Role role;
    const char* description;
};

/// What a vector carries: nothing, a list of scalars, or a list of records.
struct DataForm {
    const char* listDescription; // null: records
    std::vector<DataItem> items;
};

/// One keyword.
struct Vector {
    std::string name;
    std::string description;
    std::vector<std::pair<const char*, std::string>> categories;
    Word mode; // a piece; -: valid everywhere
    const DataForm* data;
};

/// The vectors of all rows of the tables, in their order. Fails on the first mistake, with file:line:column.
std::vector<Vector> ReadVectorTables(const std::vector<std::string>& paths);
