#pragma once

#include "quor/deck/Deck.h"
#include "quor/foundation/Export.h"

#include <array>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// The values of an array of cells at the end of the deck.
struct CellArray {
    std::string name; ///< of its keyword
    std::vector<double> values; ///< of the cells of the grid, I first, then J, then K; NaN: not known
};

/// The arrays of a deck, and the grid that they are of.
struct CellArrays {
    std::array<long long, 3> grid = {}; ///< cells along I, J, K; 0 if the deck doesn't say it
    std::vector<CellArray> arrays; ///< those with a known value, by name
};

/// What the keywords of cell arrays give, and what those that set, copy, add, multiply and limit them make of
/// it, in boxes and regions. None for a grid that is too large for its arrays to be worked out.
VELD_QUOR_EXPORT CellArrays FindCellArrays(const Deck& deck);

} // namespace Veld::Quor::Core::Decks
