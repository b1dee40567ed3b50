#include "quor/deck/internal/edit/ValueEdits.h"

#include "quor/deck/DeckEditor.h"
#include "quor/deck/internal/edit/DataPath.h"
#include "quor/deck/internal/edit/KeywordText.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NumberText.h"
#include "quor/deck/internal/text/WordText.h"
#include "quor/deck/internal/write/ValueText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

bool IsSame(const TextRange& a, const TextRange& b)
{
    return a.file == b.file && a.offset == b.offset && a.length == b.length;
}

/// Words one after another, equal ones that follow one another as a repeat. An empty word is a default.
class WordRow {
public:
    void Add(std::string_view word, std::size_t count)
    {
        if (count == 0)
            return;
        if (word != word_)
            Flush();
        word_ = word;
        count_ += count;
    }
    std::string Take()
    {
        Flush();
        return std::move(text_);
    }

private:
    void Flush()
    {
        if (count_ == 0)
            return;
        text_ += text_.empty() ? "" : " ";
        text_ += count_ == 1 && !word_.empty() ? word_ : fmt::format("{}*{}", count_, word_);
        count_ = 0;
    }

    std::string text_;
    std::string word_;
    std::size_t count_ = 0;
};

class Editor {
public:
    Editor(const DeckContents& deck, const KeywordInstance& keyword, const NewWords& words)
        : deck_(deck)
        , keyword_(keyword)
        , ranges_(keyword.notes->values)
        , words_(words)
    {
    }

    std::vector<TextEdit> Edit();

private:
    void ReplaceLine(const TextRange& range, const std::string& line);
    void ReplaceWord(std::size_t begin, std::size_t end);
    void FillIn(std::size_t begin, std::size_t end);
    std::string Row(std::size_t begin, std::size_t end, std::string_view old) const;
    void Add(const TextRange& range, const std::string& text);
    bool IsFirstAfterName(const TextRange& range) const;
    bool TouchesBefore(const TextRange& range) const;
    [[noreturn]] void Fail(const char* why) const;

    const DeckContents& deck_;
    const KeywordInstance& keyword_;
    const std::vector<TextRange>& ranges_;
    const NewWords& words_;
    std::vector<TextEdit> edits_;
};

std::vector<TextEdit> Editor::Edit()
{
    for (auto word = words_.begin(); word != words_.end();) {
        const TextRange& range = ranges_[word->first];
        std::size_t begin = word->first;
        while (begin > 0 && IsSame(ranges_[begin - 1], range))
            --begin;
        std::size_t end = word->first + 1;
        while (end < ranges_.size() && IsSame(ranges_[end], range))
            ++end;
        if (word->second.isLine)
            ReplaceLine(range, word->second.text);
        else
            range.length == 0 ? FillIn(begin, end) : ReplaceWord(begin, end);
        word = words_.lower_bound(end);
    }
    return std::move(edits_);
}

void Editor::ReplaceLine(const TextRange& range, const std::string& line)
{
    if (range.length == 0)
        Fail("the line isn't given");
    if (deck_.files.GetText(range) == line)
        return;
    const bool mayBeKeyword = FindLoneWord(line) || IsKeywordName(deck_, FindLeadingWord(line));
    const bool isIndented = TouchesBefore(range) || (mayBeKeyword && IsAtLineStart(deck_, range));
    edits_.push_back({range, isIndented ? ' ' + line : line});
}

void Editor::ReplaceWord(std::size_t begin, std::size_t end)
{
    const TextRange& range = ranges_[begin];
    std::string_view old = deck_.files.GetText(range);
    const Repeat repeat = FindRepeat(old);
    if (repeat.count != static_cast<long long>(end - begin))
        Fail("errors in the keyword hide which values its words stand for");
    old.remove_prefix(repeat.length);
    const bool isSame = std::all_of(words_.lower_bound(begin), words_.lower_bound(end),
        [&](const auto& word) { return word.second.text == old; });
    if (!isSame)
        Add(range, Row(begin, end, old));
}

/// Where the record ends early.
void Editor::FillIn(std::size_t begin, std::size_t end)
{
    if (!keyword_.isSound)
        Fail("errors in the keyword hide where the value would be");
    while (end > begin && (words_.count(end - 1) == 0 || words_.at(end - 1).text.empty()))
        --end;
    if (end == begin)
        return;
    if (!AreInFlatRecord(*keyword_.data, begin, end - 1))
        Fail("the value isn't given, and other data are between it and the last value before it");
    const TextRange& range = ranges_[begin];
    if (range.file == keyword_.name.file && range.offset <= keyword_.name.offset + keyword_.name.length)
        Fail("the record is empty");
    const std::string row = Row(begin, end, {});
    Add(range, TouchesBefore(range) ? ' ' + row : row);
}

/// The slots, as new words or the old one.
std::string Editor::Row(std::size_t begin, std::size_t end, std::string_view old) const
{
    WordRow row;
    std::size_t done = begin;
    for (auto word = words_.lower_bound(begin); word != words_.end() && word->first < end; ++word) {
        row.Add(old, word->first - done);
        row.Add(word->second.text, 1);
        done = word->first + 1;
    }
    row.Add(old, end - done);
    return row.Take();
}

/// In quotes where it would be read as a keyword, or after the keyword as a remark; apart from the word after
/// it.
void Editor::Add(const TextRange& range, const std::string& text)
{
    const std::string_view old = deck_.files.GetText(range);
    std::string changed = text;
    const std::string_view first = FindLeadingWord(text);
    const bool mayBeOther =
        IsFirstAfterName(range) || (IsAtLineStart(deck_, range) && IsKeywordName(deck_, first));
    if (mayBeOther && !first.empty() && first != FindLeadingWord(old))
        changed = Quote(std::string(first), true) + text.substr(first.size());
    const std::string_view rest = deck_.files.GetText(range.file).substr(range.offset + range.length);
    if (!rest.empty() && !IsSeparator(rest[0]) && !IsCommentAt(rest, 0)
        && (rest[0] != '/' || range.length == 0))
        changed += ' ';
    edits_.push_back({range, std::move(changed)});
}

/// On the line of the keyword.
bool Editor::IsFirstAfterName(const TextRange& range) const
{
    const std::size_t end = keyword_.name.offset + keyword_.name.length;
    if (range.file != keyword_.name.file || range.offset < end)
        return false;
    const std::string_view between = deck_.files.GetText({range.file, end, range.offset - end});
    return TrimBlanks(between).empty();
}

/// Nothing separates it from the word before it.
bool Editor::TouchesBefore(const TextRange& range) const
{
    return range.offset > 0 && !IsSeparator(deck_.files.GetText(range.file)[range.offset - 1]);
}

void Editor::Fail(const char* why) const
{
    throw EditError(fmt::format("{}: {}", deck_.NameOf(keyword_), why));
}

} // namespace

std::vector<TextEdit> EditValues(
    const DeckContents& deck, const KeywordInstance& keyword, const NewWords& words)
{
    return Editor(deck, keyword, words).Edit();
}

} // namespace Veld::Quor::Core::Decks
