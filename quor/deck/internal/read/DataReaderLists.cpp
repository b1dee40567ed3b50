#include "quor/deck/internal/read/DataReader.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordBooleanMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordStringMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

/// The default of a list's element for the target; a value of nothing if the simulator works it out.
template <class MD, class T>
T DefaultOf(const DataPlan& item, SimulatorType::Enum simulator)
{
    return static_cast<const MD*>(item.md)->GetDefault(simulator).ValueOr(T());
}

bool EndsNumber(char c)
{
    return IsSeparator(c) || c == '/';
}

/// The number at the beginning, and its length; 0 if there is none that stands for itself.
std::size_t FindPlain(std::string_view text, double& value)
{
    const LeadingReal real = FindLeadingReal(text);
    value = real.value;
    return real.length;
}

std::size_t FindPlain(std::string_view text, int& value)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() ? static_cast<std::size_t>(end - text.data()) : 0;
}

template <class T>
void AppendRepeated(IKeywordListData& list, T value, long long count, bool isDefault)
{
    constexpr long long room = 4096;
    T values[room];
    std::fill_n(values, std::min(count, room), value);
    const auto first = static_cast<std::size_t>(list.GetSize());
    for (long long left = count; left > 0; left -= room)
        list.AddData(values, values + std::min(left, room));
    for (std::size_t i = first; isDefault && i < static_cast<std::size_t>(list.GetSize()); ++i)
        list.SetDefaulted(i, true);
}

} // namespace

DataReader::Ended DataReader::ReadList(
    const DataPlan& plan, IKeywordListData& list, std::vector<RecordStart>* starts)
{
    if (plan.items.empty())
        return Ended::Complete;
    const bool wasOneLine = std::exchange(isOneLine_, plan.termination == Termination::EOL);
    const long long misfits = std::exchange(misfits_, 0);
    const Ended ended = ReadElementsOf(plan, list, starts);
    isOneLine_ = wasOneLine;
    misfits_ = misfits;
    return ended;
}

DataReader::Ended DataReader::ReadElementsOf(
    const DataPlan& plan, IKeywordListData& list, std::vector<RecordStart>* starts)
{
    const DataPlan& item = plan.items.front();
    const long long size = SizeOf(ListMD(plan).GetSize());
    switch (item.type) {
    case MDType::Integer:
        return ReadNumbers<int>(plan, size, list);
    case MDType::Real:
        return ReadNumbers<double>(plan, size, list);
    case MDType::Line:
        return ReadLines(plan, list);
    case MDType::Boolean:
    case MDType::Choice:
    case MDType::String:
        return ReadValues(plan, size, list);
    case MDType::Assignment:
    case MDType::List:
    case MDType::Map:
    case MDType::None:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return ReadElements(plan, size, list, starts);
}

/// Whether the list goes on with another element; a slash or a word that ends it is taken.
bool DataReader::HasMore(const DataPlan& plan, long long size, const IKeywordListData& list, Ended& ended)
{
    ended = Ended::Complete;
    const bool endsByItself = plan.termination == Termination::NONE;
    if (endsByItself && list.GetSize() == size)
        return false;
    const Got got = Peek();
    if (got == Got::Stop) {
        // A list of unknown size that nothing closes goes on to the next keyword.
        if (!endsByItself)
            ended = UnclosedList(plan.items.front());
        else if (size != unknownSize)
            CheckSize(plan, size, list.GetSize(), {last_.file, last_.offset + last_.length, 0});
        return false;
    }
    if (const auto* words = ListMD(plan).GetCustomReadTermination()) {
        bool ignored = false;
        if (got != Got::Default && repeats_ == 0 && text_.PeekData().kind != Token::Kind::Quoted
            && words->Matches(std::string(text_.PeekData().text), ignored)) {
            const Token word = text_.NextData();
            SetLast(word.range);
            notes_.endWords.emplace_back(word.text);
            ++position_.ends;
            return false;
        }
    } else if (got == Got::Slash) {
        const bool isElement = !plan.items.front().IsScalar() && endsByItself;
        if (isElement)
            return true;
        Next();
        CheckSize(plan, size, list.GetSize(), value_.range);
        if (endsByItself)
            ended = Ended::BySlash;
        else if (plan.termination == Termination::SLASH)
            ++position_.ends;
        return false;
    }
    return true;
}

/// A list of records or lists.
DataReader::Ended DataReader::ReadElements(
    const DataPlan& plan, long long size, IKeywordListData& list, std::vector<RecordStart>* starts)
{
    const DataPlan& item = plan.items.front();
    Columns columns{&item, std::vector<double>(item.hasConstraints ? item.items.size() : 0, std::nan(""))};
    Columns* const around = std::exchange(columns_, item.hasConstraints ? &columns : nullptr);
    const DataPlan* const elementAround = std::exchange(element_, &item);
    const Ended ended = ReadEachElement(plan, size, list, starts);
    columns_ = around;
    element_ = elementAround;
    return ended;
}

DataReader::Ended DataReader::ReadEachElement(
    const DataPlan& plan, long long size, IKeywordListData& list, std::vector<RecordStart>* starts)
{
    Ended ended = Ended::Complete;
    while (HasMore(plan, size, list, ended)) {
        const TextRange begin = text_.HasPeeked() ? text_.PeekData().range : value_.range;
        if (starts)
            starts->push_back(RecordStart::Of(begin));
        const std::size_t taken = taken_;
        path_.push_back(static_cast<int>(list.GetSize()));
        ended = ReadContainer(plan.items.front(), *static_cast<IKeywordData*>(list.AddData(nullptr)));
        path_.pop_back();
        if (ended == Ended::ByStop)
            return ended;
        if (ended == Ended::BySlash) { // of the list: it came within the element
            CheckSize(plan, size, list.GetSize(), value_.range);
            if (plan.termination == Termination::NONE)
                return ended;
            ++position_.ends;
            return Ended::Complete;
        }
        if (taken == taken_) { // elements of no size would go on for ever
            reporter_.Report(begin, Code::TooManyValues,
                fmt::format("{}: nothing takes a value here", keyword_.text), "the size of the data is 0");
            return SkipToSlash();
        }
    }
    return ended;
}

/// A list of truth values, choices or texts.
DataReader::Ended DataReader::ReadValues(const DataPlan& plan, long long size, IKeywordListData& list)
{
    const DataPlan& item = plan.items.front();
    const long long longest = std::exchange(longestRepeat_, std::max(size, mostValues));
    Ended ended = Ended::Complete;
    while (HasMore(plan, size, list, ended)) {
        const bool isDefault = Next() == Got::Default;
        if (isDefault && !ListMD(plan).IsItemDefaultable()) {
            reporter_.Report(
                value_.range, Code::NoDefault, fmt::format("{}: the values have no default", In(item)));
            repeats_ = 0;
            continue;
        }
        const SimulatorType::Enum simulator = target_.simulator;
        const std::int64_t before = list.GetSize();
        if (item.type == MDType::String) {
            std::string value =
                isDefault ? DefaultOf<IKeywordStringMD, std::string>(item, simulator) : std::string();
            if (isDefault || Convert(item, value) || isVariable_)
                list.AddData(&value);
        } else if (item.type == MDType::Boolean) {
            bool value = isDefault && DefaultOf<IKeywordBooleanMD, bool>(item, simulator);
            if (isDefault || Convert(item, value)) {
                const char byte = value ? 1 : 0;
                list.AddData(&byte);
            }
        } else {
            int value = isDefault ? DefaultOf<IKeywordChoiceMD, int>(item, simulator) : 0;
            if (isDefault || Convert(item, value) || isVariable_)
                list.AddData(&value);
        }
        if (list.GetSize() == before)
            ++misfits_;
        const auto index = static_cast<std::size_t>(list.GetSize() - 1);
        if (isDefault)
            list.SetDefaulted(index, true);
        if (isVariable_)
            NoteVariable(static_cast<int>(index), 1);
        Pass();
    }
    longestRepeat_ = longest;
    return ended;
}

/// Numbers that need no thought: those that stand for themselves, within their limits.
template <class T>
void DataReader::ReadPlainNumbers(const DataPlan& item, long long most, IKeywordListData& list)
{
    if (text_.HasPeeked() || repeats_ > 0 || keepsValueRanges_)
        return;
    constexpr std::size_t room = 4096;
    T values[room];
    std::size_t count = room;
    while (count == room && most > 0) {
        const std::string_view rest = text_.GetRest();
        const std::size_t wanted = static_cast<std::size_t>(std::min<long long>(most, room));
        std::size_t offset = 0;
        std::size_t taken = 0;
        for (count = 0; count < wanted; ++count) {
            while (offset < rest.size() && IsSeparator(rest[offset]))
                ++offset;
            T& value = values[count];
            const std::size_t length = FindPlain(rest.substr(offset), value);
            const std::size_t end = offset + length;
            const bool isPlain = length > 0 && (end == rest.size() || EndsNumber(rest[end]))
                && static_cast<double>(value) >= item.min && static_cast<double>(value) <= item.max;
            if (!isPlain)
                break;
            last_ = {0, offset, length};
            offset = taken = end;
        }
        if (count > 0) {
            SetLast(text_.RangeOf(rest.substr(last_.offset, last_.length)));
            list.AddData(values, values + count);
        }
        most -= static_cast<long long>(count);
        taken_ += count;
        position_.slots += count;
        text_.Take(taken);
    }
}

/// A list of numbers. Of those beyond their limits the first is reported, and how many more there are.
template <class T>
DataReader::Ended DataReader::ReadNumbers(const DataPlan& plan, long long size, IKeywordListData& list)
{
    using MD = std::conditional_t<std::is_same_v<T, int>, IKeywordIntegerMD, IKeywordRealMD>;
    const DataPlan& item = plan.items.front();
    const bool isDefaultable = ListMD(plan).IsItemDefaultable();
    const long long most = size == unknownSize ? std::numeric_limits<long long>::max() : size;
    if (size != unknownSize)
        list.Reserve(std::min(static_cast<std::size_t>(size), text_.GetRest().size() / 2));
    const long long longest = std::exchange(longestRepeat_, size == unknownSize ? mostValues : mostRepeats);
    TextRange firstBeyond;
    double beyondValue = 0;
    long long beyond = 0;
    TextRange firstSurplus;
    long long surplus = 0;
    Ended ended = Ended::Complete;
    for (;;) {
        ReadPlainNumbers<T>(item, most - list.GetSize(), list);
        if (!HasMore(plan, size, list, ended))
            break;
        const Got got = Next();
        T value = T();
        if (got == Got::Default) {
            if (!isDefaultable) {
                reporter_.Report(value_.range, Code::NoDefault,
                    fmt::format("{}: the values have no default", In(item)), "give each value");
            }
            value = DefaultOf<MD, T>(item, target_.simulator);
            if (ListMD(plan).FillEmptyElementsWithPreviousValue() && list.GetSize() > 0)
                value = *static_cast<const T*>(list.GetData(static_cast<std::size_t>(list.GetSize() - 1)));
        } else if (!Convert(item, value)) {
            if (!isVariable_) {
                ++misfits_;
                continue;
            }
            value = T();
        }
        const long long count = repeats_ + 1;
        repeats_ = 0;
        if (got == Got::Value && !isVariable_
            && (static_cast<double>(value) < item.min || static_cast<double>(value) > item.max)) {
            if (beyond == 0) {
                firstBeyond = value_.range;
                beyondValue = static_cast<double>(value);
            }
            beyond += count;
        }
        // What is beyond the size is counted, and not kept.
        const long long kept = std::min(count, most - list.GetSize());
        if (surplus == 0 && kept < count)
            firstSurplus = value_.range;
        surplus += count - kept;
        if (isVariable_)
            NoteVariable(static_cast<int>(list.GetSize()), kept);
        AppendRepeated(list, value, kept, got == Got::Default && isDefaultable);
        Pass(static_cast<std::size_t>(kept));
    }
    longestRepeat_ = longest;
    // Without its size the list may have taken what doesn't belong to it.
    if (beyond > 0 && (size != unknownSize || plan.termination != Termination::NONE || records_.empty()))
        ReportBeyond(item, firstBeyond, beyondValue, beyond - 1);
    if (surplus > 0)
        reporter_.Report(firstSurplus, Code::WrongSize,
            fmt::format("{}: {} values are expected, and here are {} more", keyword_.text, size, surplus),
            fmt::format("the size is {}", *ListMD(plan).GetSize()));
    return ended;
}

DataReader::Ended DataReader::ReadLines(const DataPlan& plan, IKeywordListData& list)
{
    const auto* const words = ListMD(plan).GetCustomReadTermination();
    for (;;) {
        const Token line = text_.NextLine(false);
        if (line.kind != Token::Kind::Word)
            return words || plan.termination != Termination::NONE ? Unclosed("list") : Ended::Complete;
        SetLast(line.range);
        const std::string_view word = line.text.substr(0, line.text.find_first_of(" \t"));
        const bool isAlone = word == "/" || IsEmpty(line.text.substr(word.size()));
        bool ignored = false;
        if (isAlone && (words ? words->Matches(std::string(word), ignored) : word == "/")) {
            if (words)
                notes_.endWords.emplace_back(word);
            ++position_.ends;
            SetLast({line.range.file, line.range.offset, word.size()});
            return Ended::Complete;
        }
        ++taken_;
        const std::string text(line.text);
        list.AddData(&text);
        value_ = line;
        Pass();
    }
}

void DataReader::CheckSize(const DataPlan& plan, long long size, long long count, const TextRange& range)
{
    if (text_.MissedInclusion() || isShapeReported_)
        return;
    const std::string* const least = ListMD(plan).GetMinSize();
    const std::string* const most = ListMD(plan).GetMaxSize();
    const bool isShort = size != unknownSize && count + misfits_ < size && !(mayBeShort_ && count > 0);
    // A table without rows stands for the one before it.
    if (isShort && (count > 0 || plan.termination == Termination::NONE || plan.items.front().IsScalar()))
        reporter_.Report(range, Code::WrongSize,
            fmt::format("{}: {} values are expected, and here are {}", keyword_.text, size, count),
            fmt::format("the size is {}", *ListMD(plan).GetSize()));
    else if (const long long fewest = SizeOf(least);
             count > 0 && fewest != unknownSize && count + misfits_ < fewest)
        reporter_.Report(range, Code::WrongSize,
            fmt::format("{}: at least {} are expected, and here are {}", keyword_.text, fewest, count));
    else if (const long long greatest = SizeOf(most); greatest != unknownSize && count > greatest)
        reporter_.Report(range, Code::WrongSize,
            fmt::format("{}: at most {} are expected, and here are {}", keyword_.text, greatest, count));
}

/// Names are those of items of the records being read, the innermost first, and then those of the deck.
long long DataReader::SizeOf(const std::string* text) const
{
    if (!text)
        return unknownSize;
    return EvaluateSize(*text, [this](const std::string& name) {
        return SizeOfName(name);
    }).value_or(unknownSize);
}

std::optional<long long> DataReader::SizeOfName(const std::string& name) const
{
    for (auto record = records_.rbegin(); record != records_.rend(); ++record) {
        const auto& items = record->first->items;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const void* const storage = record->second->GetData(static_cast<int>(i));
            if (items[i].md->GetName() != name)
                continue;
            if (items[i].type == MDType::List)
                return static_cast<const IKeywordListData*>(storage)->GetSize();
            if (items[i].type == MDType::Integer && static_cast<const Optional<int>*>(storage)->HasValue())
                return **static_cast<const Optional<int>*>(storage);
        }
    }
    return sizeOfName_(name);
}

} // namespace Veld::Quor::Core::Decks
