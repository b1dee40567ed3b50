#include "quor/deck/internal/read/words/DeckText.h"

#include <fmt/format.h>

// Whole lines of a deck's text: as data, and as comments.

namespace Veld::Quor::Core::Decks {

bool DeckText::IsFirstOnLine(const TextRange& range) const
{
    const auto [line, start] = files_.LineOf(range);
    return IsEmpty(line.substr(0, range.offset - start));
}

bool DeckText::IsWhole(const TextRange& word) const
{
    const std::string_view line = GetLineFrom(word);
    return line.size() == word.length || IsSeparator(line[word.length]) || line[word.length] == '/'
        || IsCommentAt(line, word.length) || IsQuote(line[word.length]);
}

bool DeckText::IsLoneUpperWord(const TextRange& word) const
{
    const bool isAtStart = word.offset == 0 || begin_[word.offset - 1] == '\n';
    const auto lone = isAtStart ? FindLoneWord(GetLineFrom(word)) : std::nullopt;
    return lone && lone->isUpper && !lone->hasSlash;
}

const Entry* DeckText::FindIndentedKeyword(const TextRange& word) const
{
    const char* const after = begin_ + word.offset + word.length;
    if (!IsEmptyToLineEnd({after, static_cast<std::size_t>(end_ - after)}))
        return nullptr; // as it is of nearly all words
    const auto lone = FindLoneWord(GetLineFrom(word));
    return lone && IsFirstOnLine(word) ? vocabulary_.Find(lone->word) : nullptr;
}

std::string_view DeckText::GetLineFrom(const TextRange& range) const
{
    const std::string_view rest(
        begin_ + range.offset, static_cast<std::size_t>(end_ - begin_) - range.offset);
    return rest.substr(0, rest.find('\n'));
}

Token DeckText::NextLine(bool isDirectlyAfter)
{
    Unpeek();
    if (!IsAtLineStart()) {
        if (!IsEmpty(GetLine()))
            return TakeRestOfLine();
        NoteComment();
        SkipLine();
    }
    while (!isEnded_) {
        if (position_ == end_) {
            if (frames_.size() == 1)
                break;
            Leave();
            continue;
        }
        const std::string_view line = GetLine();
        if (IsEmpty(line)) {
            isDirectlyAfter = false;
            NoteComment();
            SkipLine();
            continue;
        }
        if (isDirectlyAfter && IsKeywordOfNumbers(line)) {
            isDirectlyAfter = false;
            ReportOnce(RangeOf(FindLeadingWord(line)), Code::TooFewValues,
                fmt::format("missing text before keyword {}", FindLeadingWord(line)),
                "write the text on the line before the keyword", {});
        }
        Token keyword;
        if (!isDirectlyAfter && TakeLineStart(keyword))
            continue;
        return keyword.entry ? keyword : TakeRestOfLine();
    }
    return {Token::Kind::End, RangeOf(GetRest().substr(0, 0)), {}};
}

/// Whether the line is a keyword, and numbers are on the next one: it is no text.
bool DeckText::IsKeywordOfNumbers(std::string_view line)
{
    const auto lone = FindLoneWord(line);
    if (!lone || lone->hasSlash || !vocabulary_.Find(lone->word))
        return false;
    LineReader lines(GetRest());
    Line next;
    lines.Next(next);
    while (lines.Next(next)) {
        const std::string_view text = TrimBlanks(next.text);
        if (!IsEmpty(text))
            return IsDigit(text.front());
    }
    return false;
}

bool DeckText::HasDataNext(const std::function<bool(const std::string&)>& isMisspelt)
{
    Unpeek();
    LineReader lines(GetRest());
    bool isAfterName = false; // a word alone on its line, which may be a misspelt keyword
    for (Line next; lines.Next(next);) {
        const std::string_view line = TrimBlanks(next.text);
        if (IsEmpty(line))
            continue;
        if (FindLineStart(line, FindLeadingWord(line)) || (isAfterName && IsDigit(line.front())))
            return false;
        const auto lone = FindLoneWord(line);
        if (!lone || lone->hasSlash)
            return true;
        isAfterName = next.number > 1; // the first is the rest of a head's line, maybe a remark
        const bool isInFirstColumn = line.data() == next.text.data();
        if (isAfterName && isInFirstColumn && isMisspelt(std::string(lone->word)))
            return false;
    }
    return false;
}

Token DeckText::TakeRestOfLine()
{
    Unpeek();
    const std::string_view line = TrimBlanks(GetLine());
    const Token token{Token::Kind::Word, RangeOf(line), line};
    SkipLine();
    return token;
}

Token DeckText::NextRaw(std::string_view endWord)
{
    Unpeek();
    SkipLine();
    const std::string upper = ToUpper(endWord);
    const char* const start = position_;
    while (position_ != end_) {
        const std::string_view line = GetLine();
        const std::string_view text(start, static_cast<std::size_t>(position_ - start));
        const bool isEnd = ToUpper(FindLeadingWord(line)) == upper;
        SkipLine();
        if (isEnd)
            return {Token::Kind::Word, RangeOf(text), text};
    }
    const std::string_view text(start, static_cast<std::size_t>(position_ - start));
    return {Token::Kind::End, RangeOf(text), text};
}

/// The slash that ends an inclusion may be on a line below the name. Where the inclusion ends: after it, or
/// at `end` if there is none.
std::size_t DeckText::TakeSlashBelow(std::size_t end)
{
    LineReader lines(GetRest());
    for (Line line; lines.Next(line);) {
        if (IsEmpty(line.text))
            continue;
        if (line.text[line.text.find_first_not_of(" \t")] != '/')
            return end;
        position_ = line.text.data() + line.text.size();
        end = GetOffset();
        SkipLine();
        return end;
    }
    return end;
}

/// The comment that the rest of the line holds, if any.
void DeckText::NoteComment()
{
    if (!commentSink_)
        return;
    const std::string_view line = TrimBlanks(GetLine());
    if (line.empty())
        return;
    const TextRange range = RangeOf(line);
    const auto [whole, start] = files_.LineOf(range);
    const bool isAlone = IsEmpty(whole.substr(0, range.offset - start));
    commentSink_(range, isAlone ? CommentKind::OwnLine : CommentKind::AfterText);
}

/// What is after a slash.
void DeckText::NoteRemark()
{
    if (!commentSink_)
        return;
    const std::string_view line = TrimBlanks(GetLine());
    if (!line.empty())
        commentSink_(RangeOf(line), CommentKind::AfterSlash);
}

} // namespace Veld::Quor::Core::Decks
