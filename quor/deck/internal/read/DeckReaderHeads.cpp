#include "quor/deck/internal/read/DeckReader.h"

#include "quor/deck/internal/read/CertainFixes.h"
#include "quor/deck/internal/read/UnknownKeyword.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <utility>
#include <vector>

// What stands where a keyword is expected.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void DeckReader::ReadHead(const Token& head)
{
    const bool mayTakeSlash = std::exchange(mayTakeSlash_, false);
    if (head.kind == Token::Kind::Word) {
        if (mayTakeSlash && head.text == "/")
            text_.NextData();
        else
            ReadStray(head);
    } else if (head.entry) {
        ReadKeyword(head, *head.entry);
    } else {
        ReadUnknown(head);
    }
}

/// A word at the start of a line that is no keyword.
void DeckReader::ReadUnknown(const Token& head)
{
    const std::string upper = ToUpper(head.text);
    if (upper == head.text) {
        ReadMisspelt(head);
    } else if (const Entry* const entry = vocabulary_.Find(upper)) {
        reporter_.Report(head.range, Code::LowerCase,
            fmt::format("keyword '{}' is not in upper case", Shorten(head.text)),
            fmt::format("write {}", upper), {{head.range, upper}});
        ReadAs(head, *entry);
    } else {
        ReadStray(head);
    }
}

/// If it is sure which keyword was meant, what follows is read as if it stood there, and nothing reported of
/// it.
void DeckReader::ReadMisspelt(const Token& head)
{
    const Entry* const meant =
        ReportUnknownKeyword(head.range, head.text, sections_.GetSure(), vocabulary_, reporter_);
    if (!meant) {
        mayMissKeywords_ = true;
        return text_.SkipData();
    }
    const FindingReporter::Muted muted(reporter_, true);
    if (!meant->IsOfText() || !text_.TakeAs(head, *meant))
        ReadKeyword(head, *meant, true);
}

void DeckReader::ReadAs(const Token& head, const Entry& entry)
{
    if (!entry.IsOfText() || !text_.TakeAs(head, entry))
        ReadKeyword(head, entry);
}

void DeckReader::ReadStray(const Token& token)
{
    const Token word = token.kind == Token::Kind::Keyword ? token : text_.NextData();
    const Entry* const entry = vocabulary_.Find(word.text);
    const auto lone = FindLoneWord(text_.GetLineFrom(word.range));
    const bool isIndented = entry && lone && !lone->hasSlash && text_.IsFirstOnLine(word.range);
    reporter_.Report(word.range, Code::StrayText, StrayMessage(Shorten(word.text)),
        entry ? "a keyword must start in the first column" : "",
        isIndented ? Unindent(deck_->files, word.range) : std::vector<TextEdit>());
    if (isIndented)
        ReadAs(word, *entry);
    else
        text_.SkipData();
    mayMissKeywords_ = mayMissKeywords_ || !isIndented;
}

std::string DeckReader::StrayMessage(const std::string& word) const
{
    if (deck_->keywords.empty())
        return fmt::format("unexpected '{}' before the first keyword; expected a keyword", word);
    const IKeywordSyntax& last = *deck_->keywords.back().syntax;
    if (!last.GetDataMD())
        return fmt::format("unexpected '{}' after {}; expected a keyword", word, last.GetName());
    return fmt::format("unexpected '{}' after the data of {}; expected a keyword", word, last.GetName());
}

void DeckReader::CheckNoData(const Token& head)
{
    if (text_.IsAtLineEnd()) {
        mayTakeSlash_ = true;
        return;
    }
    const Token word = text_.NextData();
    if (word.kind == Token::Kind::Slash)
        return;
    const std::string keyword = ToUpper(head.text);
    reporter_.Report(word.range, Code::StrayText,
        fmt::format("unexpected '{}' after {}; expected the end of the line", Shorten(word.text), keyword),
        fmt::format("{} has no data", keyword), CommentOut(word.range, text_.GetRest(), vocabulary_));
    text_.SkipData();
}

} // namespace Veld::Quor::Core::Decks
