#pragma once

#include "quor/deck/internal/write/DataLines.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// One line of a table.
struct TableRow {
    struct Cell {
        std::string text; ///< empty: no value is given
        bool isNumber = false;
        bool isBlank = false; ///< nothing stands there
    };
    struct Comment {
        std::string text;
        bool isIndented = false;
    };
    std::vector<Cell> cells; ///< as far as they are to be written
    std::vector<Comment> above;
    std::string after; ///< a comment
    bool isEnded = false; ///< by a slash
};

/// Writes rows below one another, their cells in columns. Columns that no row has a value for become one
/// repeat count.
void WriteTable(const std::vector<TableRow>& rows, DataLines& lines);

} // namespace Veld::Quor::Core::Decks
