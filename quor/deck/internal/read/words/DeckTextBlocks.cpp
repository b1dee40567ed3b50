#include "quor/deck/internal/read/words/CertainFixes.h"
#include "quor/deck/internal/read/words/DeckText.h"

#include <fmt/format.h>

// The blocks of a deck's text that are passed over.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void DeckText::ReportOpenBlocks()
{
    for (const SkipBlock& block : frames_.back().blocks)
        reporter_.Report(block.opened, Code::UnclosedSkip,
            fmt::format("unclosed {}; expected ENDSKIP in the same file", block.keyword),
            "add ENDSKIP after the block");
}

void DeckText::OpenBlock(const TextRange& range, std::string_view keyword, bool isPassedOver)
{
    ++turns_;
    frames_.back().blocks.push_back({range, keyword});
    if (isPassedOver)
        PassOver();
}

void DeckText::CloseBlock(const TextRange& range, std::string_view keyword)
{
    ++turns_;
    if (!frames_.back().blocks.empty())
        frames_.back().blocks.pop_back();
    else
        reporter_.Report(range, Code::StrayEndskip,
            fmt::format("{} has no matching opening keyword in this file", keyword), {},
            RemoveLine(files_, range));
}

/// Only what opens and closes blocks counts in a block that is passed over.
void DeckText::PassOver()
{
    std::vector<SkipBlock>& blocks = frames_.back().blocks;
    const std::size_t outside = blocks.size() - 1;
    for (SkipLine(); position_ != end_; SkipLine()) {
        const auto lone = FindLoneWord(GetLine());
        const Entry* const entry = lone ? vocabulary_.Find(lone->word) : nullptr;
        if (!entry)
            continue;
        if (entry->role == KeywordDeckRole::Skip || entry->skipsFor)
            blocks.push_back({RangeOf(lone->word), lone->word});
        else if (entry->role == KeywordDeckRole::EndSkip)
            blocks.pop_back();
        if (blocks.size() == outside) {
            SkipLine();
            return;
        }
    }
    missedInclusion_ = true; // the rest of the file may not have been meant
}

} // namespace Veld::Quor::Core::Decks
