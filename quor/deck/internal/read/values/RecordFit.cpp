#include "quor/deck/internal/read/values/RecordFit.h"

#include "quor/deck/internal/read/values/ValueReader.h"
#include "quor/deck/internal/read/values/WordHints.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordMapMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// Where a text may not be left out, a lone asterisk and a blank text are texts.
bool MayBeDefault(const DataPlan& item, const DataWord& word)
{
    const bool isText = item.type == DataPlan::MDType::String && (word.IsQuoted() || word.length == 1);
    return item.MayBeMissing() || isText;
}

bool IsMapWord(const DataPlan& map, const DataWord& word)
{
    const std::string_view name = TrimBlanks(word.text.substr(0, word.text.find('=')));
    const auto& md = static_cast<const IKeywordMapMD&>(*map.md);
    return ToNumber<int>(word.text) || FindAssignment(md, std::string(name)) || md.GetWildcardSize() > 0;
}

/// The record or scalar that the data begin with.
const DataPlan& FirstOf(const DataPlan& data)
{
    const DataPlan* first = &data;
    while (first->type == MDType::List && !first->items.empty())
        first = &first->items.front();
    return *first;
}

/// The index after the last item that the words fill from `first` on; beyond the number of items if there are
/// more words, and that number if an item is no scalar, since the words don't say it then. Empty if a word
/// doesn't fit.
std::optional<std::size_t> Fill(const DataPlan& record, std::size_t first, std::span<const DataWord> words)
{
    const auto& items = record.items;
    std::size_t next = first;
    for (const DataWord& word : words) {
        for (long long i = 0; i < word.repeat.count; ++i, ++next) {
            if (next >= items.size() && word.IsDefault())
                break; // beyond the last item defaults do no harm
            if (next >= items.size())
                return items.size() + 1;
            if (!items[next].IsScalar())
                return items.size();
            if (word.IsDefault() ? !MayBeDefault(items[next], word) : !CanBeValue(items[next], word))
                return std::nullopt;
        }
    }
    return next;
}

bool FitsFirstOf(const DataPlan& first, const LineWords& line)
{
    const DataWord& word = line.words.front();
    if (first.type == MDType::Map)
        return IsMapWord(first, word);
    if (first.type == MDType::Record)
        return Fill(first, 0, line.words).has_value();
    return !first.IsScalar() || word.IsDefault() || CanBeValue(first, word);
}

/// The words of the first line that has any.
LineWords FirstWords(std::string_view text)
{
    LineReader lines(text);
    for (Line line; lines.Next(line);) {
        if (!IsEmpty(line.text))
            return FindLineWords(line.text);
    }
    return {};
}

bool IsName(const DataWord& word)
{
    return !word.IsQuoted() && !word.text.empty() && IsLetter(word.text.front());
}

/// Whether the words on the line are names where texts are expected, which says nothing, but the line below
/// begins a record and can't be the rest of one.
bool BeginsBelow(const DataPlan& first, const LineWords& line, const LineWords& below)
{
    if (first.type != MDType::Record || first.termination != DataPlan::Termination::SLASH)
        return false;
    const std::size_t count = CountValues(line);
    const bool areTexts = count < first.items.size()
        && std::all_of(first.items.begin(), first.items.begin() + static_cast<std::ptrdiff_t>(count),
            [](const DataPlan& item) { return item.type == MDType::String; });
    return areTexts && below.isEnded && std::all_of(line.words.begin(), line.words.end(), IsName)
        && Fits(first, 0, below.words) && !Fits(first, count, below.words);
}

/// Whether the words are prose: bare ones, not all of them in upper case.
bool IsProse(const LineWords& line)
{
    return std::all_of(line.words.begin(), line.words.end(), IsName)
        && std::any_of(line.words.begin(), line.words.end(),
            [](const DataWord& word) { return ToUpper(word.text) != word.text; });
}

} // namespace

bool MayBegin(const DataPlan& data, std::string_view line, std::string_view next)
{
    const LineWords words = FindLineWords(line);
    const DataPlan& first = FirstOf(data);
    const bool isLine = first.type == MDType::Line
        || (first.type == MDType::Record && !first.items.empty() && first.items.front().type == MDType::Line);
    if (words.words.empty() || isLine || line.find_last_not_of(" \t\r") == line.find('/'))
        return true;
    if (!FitsFirstOf(first, words))
        return false;
    if (words.isEnded)
        return true;
    if (first.type == MDType::String)
        return !IsProse(words);
    return !BeginsBelow(first, words, FirstWords(next));
}

bool Fits(const DataPlan& record, std::size_t first, std::span<const DataWord> words)
{
    const auto& items = record.items;
    const std::optional<std::size_t> next = Fill(record, first, words);
    return next && *next <= items.size()
        && std::all_of(items.begin() + static_cast<std::ptrdiff_t>(*next), items.end(),
            [](const DataPlan& item) { return !item.IsScalar() || item.MayBeMissing() || !item.isValid; });
}

std::string FindShift(const DataPlan& record, std::size_t index, long long repeats, LineWords line)
{
    if (!line.isEnded || line.words.empty())
        return {};
    line.words.front().repeat.count = repeats;
    if (Fits(record, index + 1, line.words))
        return {};
    if (Fits(record, index, std::span(line.words).subspan(1)))
        return "this value seems to be extra";
    line.words.front().repeat.count = repeats + 1;
    for (std::size_t first = index + 1; first < record.items.size(); ++first) {
        if (Fits(record, first, line.words))
            return first == index + 1
                ? "a value seems to be missing before this one"
                : fmt::format("{} values seem to be missing before this one", first - index);
    }
    return {};
}

} // namespace Veld::Quor::Core::Decks
