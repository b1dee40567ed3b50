#pragma once

#include "language/generate/Markup.h"

#include <string>

/// Reads a table of arrays: keywords that give one number to each cell. Each group of the table becomes a
/// piece of that name, with a keyword in short form for each array. language/arrays/README.md describes the
/// columns.
Element ReadArrayTable(const std::string& path);
