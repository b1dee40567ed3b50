#pragma once

#include "quor/deck/TextEdit.h"
#include "quor/deck/internal/read/DeckContents.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Gives a slot of the keyword's data another value, and touches no other value, comment or blank: where a
/// repeat stands for several slots, it is split; where the slot is not given, what stands before it is left
/// to its defaults. The deck must have been read with `keepsValueRanges`. `word` is the value as a word of a
/// deck. Empty if the slot has no place, or has a list or a map between it and the word before it.
std::optional<TextEdit> EditValue(
    const KeywordInstance& keyword, const DeckFiles& files, std::size_t slot, std::string_view word);
} // namespace Veld::Quor::Core::Decks
