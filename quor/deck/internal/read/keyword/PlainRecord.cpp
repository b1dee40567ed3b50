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

} // namespace

bool PlainRecord::Read(std::string_view text, const DataPlan& plan, IKeywordRecordData& record)
{
    item_ = plan.items.data();
    itemsEnd_ = item_ + plan.items.size();
    record_ = &record;
    given_ = repeated_ = 0;
    last_ = {};
    std::string_view rest = text;
    for (;;) {
        while (!rest.empty() && IsBlankInLine(rest[0]))
            rest.remove_prefix(1);
        if (rest.empty())
            return false;
        if (rest[0] == '/') {
            length_ = text.size() - rest.size();
            return given_ >= plan.required && !last_.empty();
        }
        const std::size_t length = ReadWord(rest);
        if (length == 0)
            return false;
        last_ = {rest.data(), length};
        rest.remove_prefix(length);
    }
}

/// Its length; 0 if the record is no plain one.
std::size_t PlainRecord::ReadWord(std::string_view line)
{
    if (item_ == itemsEnd_)
        return 0;
    if (IsQuote(line[0]))
        return ReadQuoted(line);
    const bool mayBeUsual = item_->type != MDType::String && item_->isValid && !item_->isUnsupported;
    const std::size_t length = mayBeUsual ? ReadUsual(line) : 0;
    return length > 0 ? length : ReadBare(line);
}

/// A number or a choice as most are written: it is found in one go with its end.
std::size_t PlainRecord::ReadUsual(std::string_view line)
{
    if (item_->type == MDType::Real) {
        const LeadingReal real = FindLeadingReal(line);
        if (real.length == 0 || !EndsWord(line, real.length) || !IsWithinLimits(*item_, real.value))
            return 0;
        Set(real.value);
        return real.length;
    }
    if (item_->type == MDType::Integer) {
        const LeadingInteger whole = FindLeadingInteger(line);
        if (whole.length == 0 || !EndsWord(line, whole.length) || !IsWithinLimits(*item_, whole.value))
            return 0;
        Set(whole.value);
        return whole.length;
    }
    int choice = 0;
    const std::size_t length = item_->type == MDType::Choice ? FindLeadingChoice(*item_, line, choice) : 0;
    if (length > 0)
        Set(choice);
    return length;
}

std::size_t PlainRecord::ReadQuoted(std::string_view line)
{
    std::size_t end = 1;
    while (end < line.size() && line[end] != line[0] && line[end] != '\n')
        ++end;
    if (end == 1 || !EndsWord(line, end + 1) || line[end] == '\n')
        return 0;
    const std::string_view text = line.substr(1, end - 1);
    const bool isPadded = IsBlankInLine(text.front()) || IsBlankInLine(text.back());
    return !isPadded && text.find('$') == std::string_view::npos && TakeValue(text, true) ? end + 1 : 0;
}

std::size_t PlainRecord::ReadBare(std::string_view line)
{
    std::size_t end = FindOdd(line, 0);
    for (; end < line.size(); end = FindOdd(line, end + 1)) {
        const char c = line[end];
        if (c == '*' && IsNumber(line.substr(0, end))) {
            const std::size_t count = static_cast<std::size_t>(FindRepeat(line.substr(0, end + 1)).count);
            return EndsWord(line, end + 1) && TakeDefaults(count) ? end + 1 : 0;
        }
        const bool isPart = c == '*' || (c == '-' && end + 1 < line.size() && line[end + 1] != '-');
        if (!isPart)
            break;
    }
    const std::string_view text = line.substr(0, end);
    return end > 0 && EndsWord(line, end) && text != "-" && TakeValue(text, false) ? end : 0;
}

bool PlainRecord::TakeDefaults(std::size_t count)
{
    if (count == 0 || count > static_cast<std::size_t>(itemsEnd_ - item_))
        return false;
    repeated_ += count - 1;
    given_ += count;
    for (; count > 0; --count, ++item_) {
        if (!item_->MayBeMissing())
            return false;
    }
    return true;
}

bool PlainRecord::TakeValue(std::string_view text, bool isQuoted)
{
    const DataPlan& item = *item_;
    if (!item.isValid || item.isUnsupported)
        return false;
    const auto take = [this](const auto& value) {
        if (value)
            Set(*value);
        return value.has_value();
    };
    switch (item.type) {
    case MDType::String:
        if (item.longest > 0 && text.size() > static_cast<std::size_t>(item.longest))
            return false;
        Set(std::string(text));
        return true;
    case MDType::Choice:
        return take(FindChoice(item, text));
    case MDType::Boolean:
        return take(ToBoolean(text));
    case MDType::Integer: {
        const std::optional<int> whole = isQuoted ? std::nullopt : ToInteger(text);
        return whole && IsWithinLimits(item, *whole) && take(whole);
    }
    case MDType::Real: {
        const std::optional<double> real = isQuoted ? std::nullopt : ToReal(text);
        return real && IsWithinLimits(item, *real) && take(real);
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

/// The value of the next item.
template <class T>
void PlainRecord::Set(T&& value)
{
    *static_cast<Optional<std::decay_t<T>>*>(record_->GetData(static_cast<int>(given_))) =
        std::forward<T>(value);
    ++given_;
    ++item_;
}

} // namespace Veld::Quor::Core::Decks
