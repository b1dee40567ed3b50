#include "quor/deck/internal/read/DeckText.h"

#include <algorithm>

// Whole lines of a deck's text: as data, and as comments.

namespace Veld::Quor::Core::Decks {

namespace {

std::string_view TrimBlanks(std::string_view line)
{
    const std::size_t first = std::min(line.find_first_not_of(" \t"), line.size());
    return line.substr(first, line.find_last_not_of(" \t") + 1 - first);
}

} // namespace

bool DeckText::IsFirstOnLine(const TextRange& range) const
{
    const auto [line, start] = files_.LineOf(range);
    return IsEmpty(line.substr(0, range.offset - start));
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
            return TakeLine();
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
        if (IsComment(line) || (!isDirectlyAfter && IsEmpty(line))) {
            isDirectlyAfter = false;
            NoteComment();
            SkipLine();
            continue;
        }
        Token keyword;
        if (!isDirectlyAfter && TakeLineStart(keyword))
            continue;
        return keyword.entry ? keyword : TakeLine();
    }
    return {Token::Kind::End, RangeOf(GetRest().substr(0, 0)), {}};
}

/// What is left of the line, without the blanks around it.
Token DeckText::TakeLine()
{
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

/// What stands after a slash.
void DeckText::NoteRemark()
{
    if (!commentSink_)
        return;
    const std::string_view line = TrimBlanks(GetLine());
    if (!line.empty())
        commentSink_(RangeOf(line), CommentKind::AfterSlash);
}

} // namespace Veld::Quor::Core::Decks
