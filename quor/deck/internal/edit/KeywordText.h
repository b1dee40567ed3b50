#pragma once

#include "quor/deck/internal/read/contents/DeckContents.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Whether the range begins a line: what begins with a letter there may be read as a keyword.
bool IsAtLineStart(const DeckContents& deck, const TextRange& range);
/// Whether a word at the start of a line may be read as a keyword.
bool IsKeywordName(const DeckContents& deck, std::string_view word);

/// The first word in lines to add that would end the deck or a file of it, or begin or end a skipped block;
/// empty if there is none. The lines begin with a keyword; of one of raw text only the keyword is checked.
std::string_view FindCut(const DeckContents& deck, std::string_view lines);

/// The lines, those after the first one indented that would begin with the name of a keyword.
std::string IndentNames(const DeckContents& deck, std::string lines);
/// Whether a quote is missing before or after a word of a record, which may have more text after its slash.
bool HasOpenQuote(std::string_view record);

/// Whether the data, which are whole, are numbers and the slash after them: where they end is certain then,
/// however many they are.
bool HasNumbersUpToSlash(const DeckContents& deck, const KeywordInstance& keyword);

/// The range gets the text. Its lines end as the one at which it is.
TextEdit MakeEdit(const DeckContents& deck, const TextRange& range, const std::string& text);
/// Inserts whole lines at the start of a line, or at the end of the file.
TextEdit InsertLines(const DeckContents& deck, std::uint32_t file, std::size_t offset, std::string lines);

/// What goes with the bytes of the range if they are removed: the whole lines if nothing else is on
/// them but comments, else the blanks after them.
TextRange RangeToRemove(const DeckContents& deck, const TextRange& range);

/// Where a keyword ends, so that another can come after it: with a slash that does no harm. `whole` must
/// have a length.
std::size_t EndOfKeyword(const DeckContents& deck, const KeywordInstance& keyword);
/// From there on, after the ends of the skipped blocks that the keyword, given by its index, is in; as far as
/// they end before the next keyword.
std::size_t LeaveBlocks(const DeckContents& deck, std::size_t keyword, std::size_t offset);

} // namespace Veld::Quor::Core::Decks
