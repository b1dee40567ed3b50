#include "quor/deck/internal/read/deck/DeckReader.h"

#include "quor/deck/internal/read/deck/UnknownKeyword.h"
#include "quor/deck/internal/read/words/CertainFixes.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/WordText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

// What is where a keyword is expected.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Whether the line holds keywords and nothing else: they are lost if it is read as a remark.
bool HoldsKeywords(std::string_view line, Vocabulary& vocabulary)
{
    const LineWords words = FindLineWords(line);
    return !words.isEnded && !words.words.empty()
        && std::all_of(words.words.begin(), words.words.end(),
            [&](const DataWord& word) { return !word.IsQuoted() && vocabulary.Find(word.text); });
}

} // namespace

void DeckReader::ReadHead(const Token& head)
{
    const bool mayTakeSlash = std::exchange(mayTakeSlash_, false);
    if (head.kind == Token::Kind::Word) {
        if (head.text == "/")
            TakeExtraSlash(mayTakeSlash);
        else
            ReadStray(head);
    } else if (head.entry) {
        ReadKeyword(head, *head.entry);
    } else {
        ReadUnknown(head);
    }
}

/// A slash after what has ended already does no harm.
void DeckReader::TakeExtraSlash(bool isAfterFlag)
{
    const Token slash = text_.NextData();
    if (!isAfterFlag)
        reporter_.Report(slash.range, Code::ExtraSlash, StrayMessage("/"), "remove the slash",
            RemoveLine(deck_->files, slash.range));
}

/// A word at the start of a line that is no keyword.
void DeckReader::ReadUnknown(const Token& head)
{
    const std::string upper = ToUpper(head.text);
    if (const Entry* const cut = vocabulary_.FindCut(head.text)) {
        reporter_.Report(head.range, Code::LongKeyword,
            fmt::format("keyword '{}' has more than {} characters and is read as {}", Shorten(head.text),
                longestName, cut->spelling),
            fmt::format("write {}", cut->spelling), {{head.range, cut->spelling}});
        ReadAs(head, *cut);
    } else if (upper == head.text) {
        ReadMisspelt(head);
    } else if (const Entry* const entry = text_.IsWhole(head.range) ? vocabulary_.Find(upper) : nullptr) {
        reporter_.Report(head.range, Code::LowerCase,
            fmt::format("keyword '{}' is not in upper case", Shorten(head.text)),
            fmt::format("write {}", upper), {{head.range, upper}});
        ReadAs(head, *entry);
    } else {
        ReadStray(head);
    }
}

/// If it is sure which keyword was meant, what follows is read as if it were there, and nothing reported of
/// it.
void DeckReader::ReadMisspelt(const Token& head)
{
    const Entry* meant =
        ReportUnknownKeyword(head.range, head.text, sections_.GetSure(), vocabulary_, reporter_);
    if (!meant && deck_->keywords.empty() && sections_.IsSure())
        meant = FindMeantStart(head.text, vocabulary_);
    if (!meant) {
        mayMissKeywords_ = true;
        return text_.SkipData();
    }
    const FindingReporter::Muted muted(reporter_, true);
    const bool hasText = !text_.IsAtLineEnd();
    if (meant->IsOfText() && text_.TakeAs(head, *meant))
        return;
    ReadKeyword(head, *meant, true);
    if (!deck_->keywords.back().data)
        FollowSizes(deck_->keywords.back(),
            deck_->language.RolesOf(*deck_->keywords.back().syntax)); // it means no more than its name
    if (hasText && !deck_->keywords.back().data)
        text_.SkipData();
}

void DeckReader::ReadAs(const Token& head, const Entry& entry)
{
    if (!entry.IsOfText() || !text_.TakeAs(head, entry))
        ReadKeyword(head, entry);
}

void DeckReader::ReadStray(const Token& token)
{
    const Token word = token.kind == Token::Kind::Keyword ? token : text_.NextData();
    if (const Entry* const entry = FindIndented(word)) {
        reporter_.Report(word.range, Code::IndentedKeyword, fmt::format("keyword {} is indented", word.text),
            "start the keyword in the first column", Unindent(deck_->files, word.range));
        return ReadAs(word, *entry);
    }
    reporter_.Report(word.range, Code::StrayText, StrayMessage(Shorten(word.text)),
        vocabulary_.Find(word.text) ? "write the keyword on its own line" : "");
    text_.SkipData();
    mayMissKeywords_ = true;
}

/// The keyword that the first word of a line is, though blanks are before it; null if it is none. With
/// other text on its line it must be valid here.
const Entry* DeckReader::FindIndented(const Token& word)
{
    const Entry* const entry = word.kind == Token::Kind::Word ? vocabulary_.Find(word.text) : nullptr;
    if (!entry || !text_.IsFirstOnLine(word.range))
        return nullptr;
    const auto lone = FindLoneWord(text_.GetLineFrom(word.range));
    const bool isKeyword =
        lone ? !lone->hasSlash : entry->valid.ofTarget.Allows(sections_.GetCurrent()) || entry->IsOfText();
    return isKeyword ? entry : nullptr;
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
    const Token remark = text_.TakeRestOfLine();
    if (remark.text.starts_with('/'))
        return;
    const std::string keyword = ToUpper(head.text);
    if (HoldsKeywords(remark.text, vocabulary_)) {
        reporter_.Report(remark.range, Code::StrayText,
            fmt::format(
                "unexpected '{}' after {}; expected the end of the line", Shorten(remark.text), keyword),
            "write each keyword on its own line");
        mayMissKeywords_ = true;
        return;
    }
    reporter_.Report(remark.range, Code::RemarkText,
        fmt::format("the text after {} is a remark without '--'", keyword), "write '--' before the text",
        {{{remark.range.file, remark.range.offset, 0}, "-- "}});
    mayTakeSlash_ = true;
}

} // namespace Veld::Quor::Core::Decks
