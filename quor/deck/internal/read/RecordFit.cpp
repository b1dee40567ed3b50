#include "quor/deck/internal/read/RecordFit.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordChoiceMD.h"

#include <algorithm>
#include <string>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

template <class T>
bool IsWithin(const DataPlan& item, const std::optional<T>& value)
{
    return value && static_cast<double>(*value) >= item.min && static_cast<double>(*value) <= item.max;
}

bool Takes(const DataPlan& item, const RecordWord& word)
{
    if (word.isDefault)
        return item.MayBeMissing();
    if (word.text.find('$') != std::string_view::npos) // a variable
        return true;
    std::string ignored;
    switch (item.type) {
    case MDType::Boolean:
        return ToBoolean(word.text).has_value();
    case MDType::Choice:
        return static_cast<const IKeywordChoiceMD*>(item.md)->GetIndex(std::string(word.text), ignored) >= 0;
    case MDType::Integer:
        return !word.isQuoted && IsWithin(item, ToInteger(word.text));
    case MDType::Real:
        return !word.isQuoted && IsWithin(item, ToReal(word.text));
    case MDType::Assignment:
    case MDType::Line:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
    case MDType::String:
        break;
    }
    return true;
}

RecordWord TakeQuoted(std::string_view line, std::size_t& offset)
{
    const std::size_t begin = offset + 1;
    const std::size_t end = std::min(line.find(line[offset], begin), line.size());
    offset = std::min(end + 1, line.size());
    return {line.substr(begin, end - begin), 1, true, false};
}

RecordWord TakeWord(std::string_view line, std::size_t& offset)
{
    if (IsQuote(line[offset]))
        return TakeQuoted(line, offset);
    std::string_view text = line.substr(offset, LengthOfWord(line.substr(offset)));
    offset += text.size();
    const Repeat repeat = FindRepeat(text);
    text.remove_prefix(repeat.length);
    RecordWord word{text, repeat.count, false, text.empty()};
    if (word.isDefault && offset < line.size() && IsQuote(line[offset])) {
        word = TakeQuoted(line, offset);
        word.count = repeat.count;
    }
    return word;
}

} // namespace

RecordWords FindRecordWords(std::string_view line)
{
    RecordWords found;
    std::size_t offset = 0;
    while (offset < line.size() && !found.isEnded && !IsCommentAt(line, offset)) {
        if (IsSeparator(line[offset])) {
            ++offset;
        } else if (line[offset] == '/') {
            found.isEnded = true;
        } else {
            found.words.push_back(TakeWord(line, offset));
        }
    }
    return found;
}

std::size_t CountValues(const RecordWords& line)
{
    std::size_t count = 0;
    for (const RecordWord& word : line.words)
        count += static_cast<std::size_t>(word.count);
    return count;
}

bool Fits(const DataPlan& record, std::size_t first, std::span<const RecordWord> words)
{
    const auto& items = record.items;
    std::size_t next = first;
    for (const RecordWord& word : words) {
        for (long long i = 0; i < word.count; ++i, ++next) {
            if (next >= items.size())
                return false;
            if (!items[next].IsScalar())
                return true;
            if (!Takes(items[next], word))
                return false;
        }
    }
    return std::all_of(items.begin() + static_cast<std::ptrdiff_t>(std::min(next, items.size())), items.end(),
        [](const DataPlan& item) { return !item.IsScalar() || item.MayBeMissing() || !item.isValid; });
}

std::optional<bool> ToBoolean(std::string_view text)
{
    const std::string word = ToUpper(text);
    if (word == "YES" || word == "Y" || word == "TRUE" || word == "T")
        return true;
    if (word == "NO" || word == "N" || word == "FALSE" || word == "F")
        return false;
    return std::nullopt;
}

} // namespace Veld::Quor::Core::Decks
