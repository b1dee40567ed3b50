#include "quor/deck/internal/write/SourceWords.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/TextLines.h"
#include "quor/deck/internal/write/ValueText.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

SourceWords::Kind SourceWords::Peek()
{
    if (left_ > 0)
        return Kind::Word;
    PassComments();
    if (position_ >= text_.size())
        return Kind::End;
    if (text_[position_] == '/')
        return Kind::Slash;
    word_.word = FindDataWord(text_.substr(position_));
    word_.offset = position_;
    word_.isFirst = true;
    const std::size_t count = word_.word.repeat.length;
    word_.spelling = text_.substr(position_ + count, word_.word.length - count);
    left_ = static_cast<std::size_t>(std::max(word_.word.repeat.count, 1LL));
    position_ += word_.word.length;
    return Kind::Word;
}

void SourceWords::PassComments()
{
    for (;;) {
        while (position_ < text_.size() && IsSeparator(text_[position_]))
            ++position_;
        const std::size_t count = comments_ ? comments_->size() : 0;
        while (nextComment_ < count && (*comments_)[nextComment_].range.offset < position_)
            ++nextComment_;
        if (nextComment_ < count && (*comments_)[nextComment_].range.offset == position_)
            position_ += std::max<std::size_t>((*comments_)[nextComment_++].range.length, 1);
        else if (IsCommentAt(text_, std::min(position_, text_.size())))
            position_ = std::min(text_.find('\n', position_), text_.size());
        else
            return;
    }
}

const SourceWord* SourceWords::TakeWord()
{
    word_.isFirst = left_ == static_cast<std::size_t>(std::max(word_.word.repeat.count, 1LL));
    --left_;
    return &word_;
}

const SourceWord* SourceWords::TakeValue(bool mayBeDefault)
{
    for (;;) {
        const Kind kind = Peek();
        if (kind == Kind::End)
            return nullptr;
        if (kind == Kind::Word && (mayBeDefault || !word_.word.IsDefault()))
            return TakeWord();
        left_ = 0;
        if (kind == Kind::Slash)
            TakeSlash();
    }
}

const SourceWord* SourceWords::TakeDefault()
{
    return Peek() == Kind::Word && word_.word.IsDefault() ? TakeWord() : nullptr;
}

void SourceWords::Skip(std::size_t slots)
{
    while (slots > 0 && Peek() == Kind::Word) {
        const std::size_t count = std::min(slots, left_);
        left_ -= count;
        slots -= count;
    }
}

void SourceWords::PassEnd()
{
    while (Peek() == Kind::Word)
        left_ = 0;
    if (Peek() == Kind::Slash)
        TakeSlash();
}

void SourceWords::PassEndWord()
{
    if (Peek() == Kind::Slash)
        TakeSlash();
    left_ = 0;
}

/// The rest of its line is a comment.
void SourceWords::TakeSlash()
{
    position_ = std::min(text_.find('\n', position_), text_.size());
}

std::vector<std::string> SourceWords::TakeNames(bool isOneLine)
{
    std::vector<std::string> names;
    const std::size_t line = LineOf(position_);
    while (Peek() == Kind::Word && !(isOneLine && LineOf(word_.offset) != line)) {
        left_ = 0;
        std::string name(word_.word.text);
        name.erase(std::remove_if(name.begin(), name.end(), IsWhite), name.end());
        const bool isPlain = !word_.word.IsQuoted() || (name.find('=') != std::string::npos && IsWord(name));
        if (!isPlain)
            name = word_.spelling;
        if (!names.empty() && (names.back().ends_with('=') || name.starts_with('=')))
            names.back() += (isPlain ? "" : " ") + name;
        else if (!word_.word.IsDefault())
            names.push_back(std::move(name));
    }
    return names;
}

void SourceWords::Lose()
{
    position_ = text_.size();
    left_ = 0;
}

std::vector<std::string_view> SourceWords::FindCommentsAbove() const
{
    constexpr std::size_t most = 4;
    std::vector<std::string_view> comments;
    for (std::size_t end = LineOf(position_); end > 0 && comments.size() < most;) {
        const std::size_t begin = LineOf(end - 1);
        const std::string_view comment = TrimBlanks(text_.substr(begin, end - 1 - begin));
        if (!IsComment(comment))
            break;
        comments.push_back(comment);
        end = begin;
    }
    return comments;
}

std::size_t SourceWords::LineOf(std::size_t offset) const
{
    return StartOfLine(text_, offset);
}

std::size_t SourceWords::ColumnOf(std::size_t offset) const
{
    const std::size_t line = LineOf(offset);
    return ColumnAfter(text_.substr(line, offset - line), 0);
}

std::size_t ColumnAfter(std::string_view text, std::size_t column)
{
    constexpr std::size_t tab = 8;
    for (const char c : text)
        column = c == '\t' ? (column / tab + 1) * tab : column + 1;
    return column;
}

} // namespace Veld::Quor::Core::Decks
