#pragma once

#include "quor/foundation/Export.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Insertions, deletions, replacements and swaps of neighbours that turn one text into the other, no place
/// being edited twice. `limit` + 1 stands for all distances beyond `limit`.
VELD_QUOR_EXPORT std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit);

/// The words that a misspelt one may stand for, without regard to case: at most three, the nearest first. The
/// cut-off grows with the length of the word.
VELD_QUOR_EXPORT std::vector<std::string> FindNearest(
    const std::vector<std::string>& known, const std::string& word);

} // namespace Veld::Quor::Core::Decks
