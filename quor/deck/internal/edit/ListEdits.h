#pragma once

#include "quor/deck/TextRange.h"
#include "quor/deck/internal/read/contents/DeckContents.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

// Changes of whole records, lists and keywords. All throw `EditError` if the text of the keyword isn't in one
// piece, or errors in it hide where things end.

/// Writes a keyword's text with other data in place of its own; its comments stay.
TextEdit ReplaceData(
    const DeckContents& deck, const KeywordInstance& keyword, const Core::Keywords::IKeywordData& data);

/// Appends a record to the outermost list of the keyword; `text` as `DeckEditor::AddRecord` has it.
TextEdit AddRecordTo(const DeckContents& deck, const KeywordInstance& keyword, std::string_view text);
/// The same for all elements of another list of the keyword, which isn't empty.
TextEdit AddRecordsTo(
    const DeckContents& deck, const KeywordInstance& keyword, const Core::Keywords::IKeywordData& records);
/// Throws `std::out_of_range` for the index of no record.
TextEdit RemoveRecordFrom(const DeckContents& deck, const KeywordInstance& keyword, std::size_t index);

/// `leavesBlocks`: a block that is skipped for some simulator, and ends before the next keyword, ends before
/// what is added.
TextEdit AddKeywordTo(const DeckContents& deck, std::size_t after, bool leavesBlocks, std::string_view text);
TextEdit RemoveKeywordFrom(const DeckContents& deck, const KeywordInstance& keyword);

} // namespace Veld::Quor::Core::Decks
