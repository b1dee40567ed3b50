#pragma once

#include "quor/deck/internal/write/DataLines.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// One line of a table.
struct TableRow {
    static constexpr std::size_t unknown = static_cast<std::size_t>(-1);

    struct Cell {
        std::string text; ///< empty: no value is given
        bool isNumber = false;
        bool isBlank = false; ///< nothing stands there
        std::size_t column = unknown; ///< where it was, on the line of the first cell
    };
    struct Comment {
        std::string text;
        bool isIndented = false;
        std::size_t column = 0; ///< where it was
    };
    std::vector<Cell> cells; ///< as far as they are to be written
    std::vector<Comment> above;
    std::vector<Comment> aboveKeyword; ///< of the first row; they are written already
    std::string after; ///< a comment
    bool isEnded = false; ///< by a slash
};

/// Writes rows below one another, their cells in columns. Columns that no row has a value for become one
/// repeat count.
void WriteTable(const std::vector<TableRow>& rows, DataLines& lines);

/// The same, but where the comment above a row is a header, whose words are above the cells, both keep their
/// columns: cells only go to the right, as far as those before them need it.
void WriteTableWithHeaders(const std::vector<TableRow>& rows, DataLines& lines);

} // namespace Veld::Quor::Core::Decks
