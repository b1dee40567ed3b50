#include "quor/deck/internal/read/words/DeckText.h"

#include <fmt/format.h>

// The keywords of a deck's text itself.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

/// Takes a keyword that belongs to the text itself; false, and nothing taken, for any other.
bool DeckText::TakeStructure(const Entry& entry, std::string_view word)
{
    const TextRange range = RangeOf(word);
    switch (entry.role) {
    case KeywordDeckRole::End:
        position_ += word.size();
        isEnded_ = true;
        return true;
    case KeywordDeckRole::EndInclude:
        EndInclude(entry, range, word);
        return true;
    case KeywordDeckRole::Include:
        ReadInclude(word);
        return true;
    case KeywordDeckRole::Skip:
        position_ += word.size();
        OpenBlock(range, entry.spelling, true);
        return true;
    case KeywordDeckRole::EndSkip:
        position_ += word.size();
        CloseBlock(range, entry.spelling);
        return true;
    case KeywordDeckRole::Section:
        return false;
    case KeywordDeckRole::Ordinary:
        if (!entry.skipsFor)
            return false;
        position_ += word.size();
        OpenBlock(range, entry.spelling, *entry.skipsFor == target_.simulator);
        return true;
    }
    return false;
}

void DeckText::EndInclude(const Entry& entry, const TextRange& range, std::string_view word)
{
    if (frames_.size() > 1) {
        files_.SetEnd(GetFile(), range.offset);
        Leave();
        return;
    }
    position_ += word.size();
    if (isIncluded_) {
        isEnded_ = true;
        return;
    }
    reporter_.Report(range, Code::StrayEndinc,
        fmt::format("{} has no effect outside an included file", entry.spelling), "use END to end the deck");
    ++turns_;
}

bool DeckText::TakeAs(const Token& head, const Entry& entry)
{
    Unpeek();
    position_ = begin_ + head.range.offset;
    return TakeStructure(entry, head.text);
}

/// The name is after the keyword or on a line below it.
void DeckText::ReadInclude(std::string_view word)
{
    const TextRange keyword = RangeOf(word);
    position_ += word.size();
    ++turns_;
    auto token = FindFileName(GetLine(), 0);
    while (!token) {
        SkipLine();
        if (position_ == end_)
            break;
        const auto lone = FindLoneWord(GetLine());
        if (lone && !lone->hasSlash && vocabulary_.Find(lone->word))
            break;
        token = FindFileName(GetLine(), 0);
    }
    if (!token || token->name.empty()) {
        if (token)
            SkipLine();
        ReportMissingName(keyword);
        return;
    }
    const TextRange name = RangeOf(GetLine().substr(token->offset, token->length));
    const std::string_view rest = GetLine().substr(token->offset + token->length);
    std::size_t end = GetOffset() + GetLine().size();
    SkipLine();
    if (!HasEndingSlash(rest))
        end = TakeSlashBelow(end);
    const TextRange statement{keyword.file, keyword.offset, end - keyword.offset};
    if (token->isClosed) {
        Include(statement, name, std::string(token->name));
        return;
    }
    reporter_.Report(name, Code::IncludeName, "unclosed quote in the name of the included file",
        "add a closing quote on the same line");
    missedInclusion_ = true;
}

void DeckText::ReportMissingName(const TextRange& keyword)
{
    reporter_.Report(keyword, Code::IncludeName, "missing name of the included file",
        "write the name in quotes, followed by a slash");
    missedInclusion_ = true;
}

} // namespace Veld::Quor::Core::Decks
