#pragma once

#include "quor/deck/internal/read/DeckContents.h"

#include <cstddef>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Whether the range begins a line: what begins with a letter there may be read as a keyword.
bool IsAtLineStart(const DeckContents& deck, const TextRange& range);
/// Whether a word at the start of a line may be read as a keyword.
bool IsKeywordName(const DeckContents& deck, std::string_view word);

/// What goes with the bytes of the range if they are removed: the whole lines if nothing else is on
/// them but comments, else the blanks after them.
TextRange RangeToRemove(const DeckContents& deck, const TextRange& range);

/// Where a keyword ends, so that another can stand after it: with a slash that does no harm. `whole` must
/// have a length.
std::size_t EndOfKeyword(const DeckContents& deck, const KeywordInstance& keyword);
/// From there on, after the ends of the skipped blocks that the keyword, given by its index, is in; as far as
/// they end before the next keyword.
std::size_t LeaveBlocks(const DeckContents& deck, std::size_t keyword, std::size_t offset);

} // namespace Veld::Quor::Core::Decks
