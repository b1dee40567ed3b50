#include "quor/deck/internal/check/Suppressions.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/FindingCodes.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NearestNames.h"

#include <fmt/format.h>

#include <algorithm>
#include <cassert>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

constexpr std::string_view mark = "quor:";
constexpr const char* example = "for example '-- quor: off wrong-section'";

/// Takes the next word, which blanks or commas end; empty if there is none, or only a comment.
std::string_view TakeWord(std::string_view& text)
{
    const auto isSeparator = [](char c) { return IsSeparator(c); };
    const auto begin = std::find_if_not(text.begin(), text.end(), isSeparator);
    const auto end = std::find_if(begin, text.end(), isSeparator);
    const std::string_view word(begin, end);
    if (word.starts_with("--"))
        return {};
    text = std::string_view(end, text.end());
    return word;
}

std::string HintOf(std::string_view word, std::vector<std::string> names)
{
    for (const CodeInfo& info : Codes())
        names.emplace_back(info.name);
    const std::vector<std::string> nearest = FindNearest(names, Shorten(word));
    return nearest.empty() ? "write the code of a finding, for example wrong-section"
                           : SuggestionOf({nearest.front()});
}

} // namespace

Suppressions::Suppressions(const SourceText& source, const std::vector<std::string>& ownCodes)
    : ownCodes_(ownCodes)
    , text_(source.GetText())
{
    Scan(source);
    ReportOpen();
}

bool Suppressions::Cover(std::size_t offset, const std::string& code) const
{
    if (lines_.empty() && regions_.empty())
        return false;
    const auto isAfter = [](std::size_t value, const auto& row) { return value < row.begin; };
    const auto line = std::upper_bound(lines_.begin(), lines_.end(), offset, isAfter);
    const std::size_t bit = NumberOf(code);
    if (line != lines_.begin() && offset <= (line - 1)->end && (line - 1)->codes[bit])
        return true;
    const auto region = std::upper_bound(regions_.begin(), regions_.end(), offset,
        [](std::size_t value, const Region& row) { return value < row.offset; });
    return region != regions_.begin() && (region - 1)->codes[bit];
}

void Suppressions::Scan(const SourceText& source)
{
    constexpr std::size_t stride = std::size_t(16) << 20;
    for (std::size_t begin = 0; begin < text_.size(); begin += stride) {
        const std::string_view part = text_.substr(begin, stride + mark.size() - 1);
        for (std::size_t at = part.find(mark); at != std::string_view::npos; at = part.find(mark, at + 1))
            Follow(begin + at);
        if (text_.size() > stride) // a text of that size needn't stay in memory
            source.Release(begin, std::min(begin + stride, text_.size()));
    }
}

/// `markAt`: where the mark is; it counts at the beginning of a comment.
void Suppressions::Follow(std::size_t markAt)
{
    if (markAt < followed_)
        return;
    std::size_t begin = markAt;
    while (begin > 0 && (text_[begin - 1] == ' ' || text_[begin - 1] == '\t'))
        --begin;
    if (begin < 2 || !IsCommentAt(text_, begin - 2))
        return;
    begin -= 2;
    const std::string_view line = LineAt(begin);
    const std::string_view comment = line.substr(begin - OffsetOf(line));
    followed_ = begin + comment.size();
    std::string_view words = comment.substr(markAt + mark.size() - begin);
    const std::string_view verb = TakeWord(words);
    Do(verb, words, comment);
}

void Suppressions::Do(std::string_view verb, std::string_view words, std::string_view comment)
{
    if (verb == "off")
        SuppressLine(comment, ReadCodes(words));
    else if (verb == "begin-off")
        Open(comment, ReadCodes(words));
    else if (verb == "end-off")
        Close(comment, ReadCodes(words));
    else if (verb.empty())
        Report(comment, "nothing after 'quor:'; expected off, begin-off or end-off", example);
    else
        Report(verb,
            fmt::format("unexpected '{}' after 'quor:'; expected off, begin-off or end-off", Shorten(verb)),
            example);
}

Suppressions::CodeSet Suppressions::ReadCodes(std::string_view words)
{
    assert(Codes().size() + ownCodes_.size() <= mostCodes && "Suppressions: more codes than bits");
    CodeSet codes;
    bool isAll = true;
    for (std::string_view word = TakeWord(words); !word.empty(); word = TakeWord(words)) {
        isAll = false;
        if (const std::size_t number = NumberOf(word); number < mostCodes) {
            codes.set(number);
            continue;
        }
        constexpr std::size_t mostHints = 1000; // they take long to find
        Report(word, fmt::format("unknown finding code '{}'", Shorten(word)),
            mistakes_.size() < mostHints ? HintOf(word, ownCodes_) : "");
    }
    return isAll ? codes.set() : codes;
}

/// Of a code of the library, or of rules after those; `mostCodes` if it is neither.
std::size_t Suppressions::NumberOf(std::string_view code) const
{
    const auto& rows = Codes();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [code](const CodeInfo& info) { return info.name == code; });
    if (row != rows.end())
        return static_cast<std::size_t>(row - rows.begin());
    const auto own = std::find(ownCodes_.begin(), ownCodes_.end(), code);
    return own == ownCodes_.end() ? mostCodes
                                  : rows.size() + static_cast<std::size_t>(own - ownCodes_.begin());
}

void Suppressions::SuppressLine(std::string_view comment, const CodeSet& codes)
{
    std::string_view line = LineAt(OffsetOf(comment));
    std::size_t begin = OffsetOf(line);
    // Comments that follow one another are for the same line: it was found for the first of them.
    const bool isFound = !lines_.empty() && lines_.back().begin >= begin;
    if (!isFound) {
        if (IsComment(line))
            line = NextFullLine(begin);
        begin = OffsetOf(line);
        lines_.push_back({begin, begin + line.size(), {}});
    }
    lines_.back().codes |= codes;
}

/// The first line from `offset` on that is more than a comment; an empty one at the end if there is none.
std::string_view Suppressions::NextFullLine(std::size_t offset) const
{
    std::string_view line = LineAt(offset);
    while (offset < text_.size() && IsEmpty(line)) {
        offset = std::min(text_.find('\n', offset), text_.size() - 1) + 1;
        line = LineAt(offset);
    }
    return line;
}

void Suppressions::Open(std::string_view comment, const CodeSet& codes)
{
    for (std::size_t i = 0; i < mostCodes; ++i) {
        if (codes[i] && !opened_[i])
            opened_[i] = comment;
    }
    regions_.push_back({OffsetOf(comment), codes | (regions_.empty() ? CodeSet() : regions_.back().codes)});
}

void Suppressions::Close(std::string_view comment, const CodeSet& codes)
{
    const CodeSet open = regions_.empty() ? CodeSet() : regions_.back().codes;
    if (codes.any() && (open & codes).none())
        Report(
            comment, "end-off without begin-off", "add '-- quor: begin-off' with the same codes before it");
    for (std::size_t i = 0; i < mostCodes; ++i) {
        if (codes[i])
            opened_[i].reset();
    }
    regions_.push_back({OffsetOf(comment), open & ~codes});
}

/// A comment that opens several codes is reported once.
void Suppressions::ReportOpen()
{
    std::vector<const char*> reported;
    for (const auto& comment : opened_) {
        if (!comment || std::find(reported.begin(), reported.end(), comment->data()) != reported.end())
            continue;
        reported.push_back(comment->data());
        Report(*comment, "begin-off without end-off; the findings are hidden up to the end of the file",
            "add '-- quor: end-off' with the same codes after it");
    }
    const auto byOffset = [](const Mistake& a, const Mistake& b) { return a.offset < b.offset; };
    std::stable_sort(mistakes_.begin(), mistakes_.end(), byOffset);
}

void Suppressions::Report(std::string_view part, std::string message, std::string hint)
{
    mistakes_.push_back({OffsetOf(part), part.size(), std::move(message), std::move(hint)});
}

std::string_view Suppressions::LineAt(std::size_t offset) const
{
    const std::size_t before = offset == 0 ? std::string_view::npos : text_.rfind('\n', offset - 1);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    std::string_view line = text_.substr(begin, text_.find('\n', offset) - begin);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

} // namespace Veld::Quor::Core::Decks
