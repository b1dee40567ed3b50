#pragma once

#include <cstddef>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Insertions, deletions, replacements and swaps of neighbours that turn one text into the other; no position
/// is edited twice. `limit` + 1 stands for all distances beyond `limit`.
std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit);

} // namespace Veld::Quor::Core::Decks
