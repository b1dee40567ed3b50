#include "quor/deck/internal/read/keyword/PlainRecord.h"

#include "quor/deck/internal/read/values/ValueReader.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NumberText.h"
#include "quor/foundation/service/Optional.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

using MDType = IKeywordDataMD::MDType;

/// What ends a bare word, or may make it another than it looks: all that is not a part of most words.
constexpr std::array<bool, 256> isOdd = [] {
    std::array<bool, 256> table = {};
    for (std::size_t c = 0x80; c < table.size(); ++c)
        table[c] = true;
    for (const char c : std::string_view(" \t\n\v\f\r,/-'\"*$\\"))
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

bool IsBlankInLine(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

/// Of the first such character from an offset on; the size if there is none.
std::size_t FindOdd(std::string_view line, std::size_t at)
{
    while (at < line.size() && !isOdd[static_cast<unsigned char>(line[at])])
        ++at;
    return at;
}

/// Whether a word ends before the offset, and nothing but that.
bool EndsWord(std::string_view line, std::size_t at)
{
    return at < line.size() && (IsBlankInLine(line[at]) || line[at] == '/');
}

bool IsNumber(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), IsDigit);
}

std::optional<int> FindChoice(const DataPlan& item, std::string_view text)
{
    for (const DataPlan::PlainChoice& choice : item.choices) {
        if (choice.word[0] == text[0] && choice.word == text)
            return choice.index;
    }
    return std::nullopt;
}

/// Whether the line begins with one of the words, whose index is then set; its length, or 0.
std::size_t FindLeadingChoice(const DataPlan& item, std::string_view line, int& index)
{
    for (const DataPlan::PlainChoice& choice : item.choices) {
        if (choice.isBare && choice.word[0] == line[0] && line.starts_with(choice.word)
            && EndsWord(line, choice.word.size())) {
            index = choice.index;
            return choice.word.size();
        }
    }
    return 0;
}

template <class T>
void Set(void* item, T&& value)
{
    *static_cast<Optional<std::decay_t<T>>*>(item) = std::forward<T>(value);
}

} // namespace

bool PlainRecord::Read(std::string_view text, const DataPlan& plan)
{
    plan_ = &plan;
    values_.clear();
    last_ = {};
    given_ = repeated_ = length_ = 0;
    for (;;) {
        while (length_ < text.size() && IsBlankInLine(text[length_]))
            ++length_;
        if (length_ == text.size())
            return false;
        if (text[length_] == '/')
            return given_ >= plan.required && !last_.empty();
        if (!ReadWord(text.substr(length_)))
            return false;
        length_ += last_.size();
    }
}

bool PlainRecord::ReadWord(std::string_view line)
{
    return IsQuote(line.front()) ? ReadQuoted(line) : ReadUsual(line) || ReadBare(line);
}

/// A number or a choice as most are written: it is found in one go with its end.
bool PlainRecord::ReadUsual(std::string_view line)
{
    if (given_ == plan_->items.size())
        return false;
    const DataPlan& item = plan_->items[given_];
    Value value = {given_, {}, 0, 0};
    std::size_t length = 0;
    if (item.type == MDType::Real) {
        const LeadingReal real = FindLeadingReal(line);
        value.real = real.value;
        length = IsWithinLimits(item, real.value) ? real.length : 0;
    } else if (item.type == MDType::Integer) {
        const LeadingInteger whole = FindLeadingInteger(line);
        value.whole = whole.value;
        length = IsWithinLimits(item, whole.value) ? whole.length : 0;
    } else if (item.type == MDType::Choice) {
        length = FindLeadingChoice(item, line, value.whole);
    }
    if (length == 0 || !EndsWord(line, length) || !item.isValid || item.isUnsupported)
        return false;
    last_ = line.substr(0, length);
    values_.push_back(value);
    ++given_;
    return true;
}

bool PlainRecord::ReadQuoted(std::string_view line)
{
    std::size_t end = 1;
    while (end < line.size() && line[end] != line[0] && line[end] != '\n')
        ++end;
    if (end == 1 || !EndsWord(line, end + 1) || line[end] == '\n')
        return false;
    const std::string_view text = line.substr(1, end - 1);
    const bool isPadded = IsBlankInLine(text.front()) || IsBlankInLine(text.back());
    last_ = line.substr(0, end + 1);
    return !isPadded && text.find('$') == std::string_view::npos && TakeValue(text, true);
}

bool PlainRecord::ReadBare(std::string_view line)
{
    std::size_t end = FindOdd(line, 0);
    for (; end < line.size(); end = FindOdd(line, end + 1)) {
        const char c = line[end];
        if (c == '*' && IsNumber(line.substr(0, end))) {
            last_ = line.substr(0, end + 1);
            return EndsWord(line, end + 1) && TakeDefaults(static_cast<std::size_t>(FindRepeat(last_).count));
        }
        const bool isPart = c == '*' || (c == '-' && end + 1 < line.size() && line[end + 1] != '-');
        if (!isPart)
            break;
    }
    last_ = line.substr(0, end);
    return end > 0 && EndsWord(line, end) && last_ != "-" && TakeValue(last_, false);
}

bool PlainRecord::TakeDefaults(std::size_t count)
{
    if (count == 0 || count > plan_->items.size() - given_)
        return false;
    repeated_ += count - 1;
    for (; count > 0; --count, ++given_) {
        if (!plan_->items[given_].MayBeMissing())
            return false;
    }
    return true;
}

bool PlainRecord::TakeValue(std::string_view text, bool isQuoted)
{
    if (given_ == plan_->items.size())
        return false;
    const DataPlan& item = plan_->items[given_];
    Value& value = values_.emplace_back(Value{given_++, text, 0, 0});
    const auto take = [&value](std::optional<int> whole) {
        value.whole = whole.value_or(0);
        return whole.has_value();
    };
    if (!item.isValid || item.isUnsupported)
        return false;
    switch (item.type) {
    case MDType::String:
        return item.longest <= 0 || text.size() <= static_cast<std::size_t>(item.longest);
    case MDType::Choice:
        return take(FindChoice(item, text));
    case MDType::Boolean:
        return take(ToBoolean(text));
    case MDType::Integer:
        return !isQuoted && take(ToInteger(text)) && IsWithinLimits(item, value.whole);
    case MDType::Real: {
        const std::optional<double> real = isQuoted ? std::nullopt : ToReal(text);
        value.real = real.value_or(0);
        return real && IsWithinLimits(item, value.real);
    }
    case MDType::Assignment:
    case MDType::Line:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return false;
}

void PlainRecord::Fill(IKeywordRecordData& record) const
{
    for (const Value& value : values_) {
        void* const item = record.GetData(static_cast<int>(value.item));
        const MDType::Enum type = plan_->items[value.item].type;
        if (type == MDType::String)
            Set(item, std::string(value.text));
        else if (type == MDType::Real)
            Set(item, double(value.real));
        else if (type == MDType::Boolean)
            Set(item, value.whole != 0);
        else
            Set(item, int(value.whole));
    }
}

} // namespace Veld::Quor::Core::Decks
