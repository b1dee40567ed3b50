#pragma once

#include "quor/deck/internal/read/DeckContents.h"

#include <cstddef>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Whether the range begins a line: what begins with a letter there may be read as a keyword.
bool IsAtLineStart(const DeckContents& deck, const TextRange& range);
/// Whether a word at the start of a line may be read as a keyword.
bool IsKeywordName(const DeckContents& deck, std::string_view word);

/// Of the line on which the offset is.
std::size_t StartOfLine(std::string_view text, std::size_t offset);
/// After the end of that line, its line feed included.
std::size_t EndOfLine(std::string_view text, std::size_t offset);
/// The bytes from the offset to the end of its line, without it.
std::string_view RestOfLine(std::string_view text, std::size_t offset);

/// Where the last word of the data in `text` ends that begins before `limit`, from `begin` on; comments, and
/// what is after a slash on its line, are no words.
std::size_t EndOfWords(std::string_view text, std::size_t begin, std::size_t limit);

/// After the first slash that is a word, or the end of the text.
std::size_t EndOfRecord(std::string_view text);

/// What goes with the bytes from `begin` to `end` if they are removed: the whole lines if nothing else is on
/// them but comments, else the blanks after them.
TextRange RangeToRemove(const DeckContents& deck, const TextRange& range);

/// Where a keyword ends, so that another can stand after it: with a slash that does no harm. `whole` must
/// have a length.
std::size_t EndOfKeyword(const DeckContents& deck, const KeywordInstance& keyword);
/// From there on, after the ends of the skipped blocks that the keyword, given by its index, is in; as far as
/// they end before the next keyword.
std::size_t LeaveBlocks(const DeckContents& deck, std::size_t keyword, std::size_t offset);

} // namespace Veld::Quor::Core::Decks
