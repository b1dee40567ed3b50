#include "quor/deck/internal/read/keyword/DataReader.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <limits>

// Lists of numbers, which may be long.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;
using Termination = DataPlan::Termination;

bool EndsNumber(char c)
{
    return IsWhite(c) || c == '/';
}

/// So does a comma, unless a digit is after it: it may be meant as a part of the number.
bool IsSeparatingComma(std::string_view text, std::size_t at)
{
    return text[at] == ',' && (at + 1 == text.size() || !IsDigit(text[at + 1]));
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

/// Numbers that need no thought: those that stand for themselves, within their limits.
template <class T>
struct PlainNumbers {
    static constexpr std::size_t room = 4096;
    T values[room];
    std::size_t count = 0;
    std::string_view last; // the text of the last of them

    /// Those at the beginning of a text, `most` of them or less; `note` gets the word of each.
    template <class Note>
    PlainNumbers(std::string_view text, const DataPlan& item, std::size_t most, const Note& note)
    {
        std::size_t offset = 0;
        for (; count < most; ++count) {
            while (offset < text.size() && IsSeparator(text[offset]))
                ++offset;
            T& value = values[count];
            const std::size_t length = FindPlain(text.substr(offset), value);
            const std::size_t end = offset + length;
            const bool isPlain = length > 0
                && (end == text.size() || EndsNumber(text[end]) || IsSeparatingComma(text, end))
                && IsWithinLimits(item, static_cast<double>(value));
            if (!isPlain)
                return;
            last = text.substr(offset, length);
            note(last);
            offset = end;
        }
    }
};

} // namespace

DataReader::Ended DataReader::ReadNumbers(const DataPlan& plan, long long size, IKeywordListData& list)
{
    return plan.items.front().type == MDType::Integer
        ? ReadNumbersAs<IKeywordIntegerMD, int>(plan, size, list)
        : ReadNumbersAs<IKeywordRealMD, double>(plan, size, list);
}

template <class MD, class T>
DataReader::Ended DataReader::ReadNumbersAs(const DataPlan& plan, long long size, IKeywordListData& list)
{
    const bool isSizeKnown = size != unknownSize;
    const long long most = isSizeKnown ? size : std::numeric_limits<long long>::max();
    if (isSizeKnown)
        list.Reserve(std::min(static_cast<std::size_t>(size), text_.GetRest().size() / 2));
    const long long longest = words_.SetLongestRepeat(isSizeKnown ? mostRepeats : WordStream::mostValues);
    const bool wasTogether = words_.SetTakesTogether(true);
    NumberErrors errors;
    Ended ended = Ended::Complete;
    for (;;) {
        ReadPlainNumbers<T>(plan.items.front(), most - list.GetSize(), list);
        if (!HasMore(plan, size, list, ended))
            break;
        ReadNumber<MD, T>(plan, most, list, errors);
    }
    words_.SetLongestRepeat(longest);
    words_.SetTakesTogether(wasTogether);
    ReportNumbers(plan, size, errors);
    return ended;
}

template <class T>
void DataReader::ReadPlainNumbers(const DataPlan& item, long long most, IKeywordListData& list)
{
    if (text_.HasPeeked() || words_.GetRepeats() > 0)
        return;
    constexpr std::size_t room = PlainNumbers<T>::room;
    const auto find = [&](const auto& note) {
        return PlainNumbers<T>(
            text_.GetRest(), item, static_cast<std::size_t>(std::min<long long>(most, room)), note);
    };
    const auto noteRange = [&](std::string_view word) { notes_.NoteValue(text_.RangeOf(word)); };
    for (std::size_t count = room; count == room && most > 0; most -= static_cast<long long>(count)) {
        const PlainNumbers<T> numbers =
            notes_.KeepsValueRanges() ? find(noteRange) : find([](std::string_view /*word*/) {});
        count = numbers.count;
        if (count == 0)
            return;
        list.AddData(numbers.values, numbers.values + count);
        const TextRange last = text_.RangeOf(numbers.last);
        words_.TakePlain(count, last);
        notes_.PassPlain(count);
        text_.Take(last.offset + last.length - text_.GetOffset());
    }
}

/// One word, and all its repeats.
void DataReader::NumberErrors::AddBeyond(const TextRange& range, double value, long long count)
{
    if (beyond == 0) {
        firstBeyond = range;
        beyondValue = value;
    }
    beyond += count;
}

template <class MD, class T>
void DataReader::ReadNumber(
    const DataPlan& plan, long long most, IKeywordListData& list, NumberErrors& errors)
{
    const DataPlan& item = plan.items.front();
    const bool isDefault = words_.Next() == Got::Default;
    Reading<T> reading;
    if (isDefault) {
        errors.isShifted = errors.isShifted || !ListMD(plan).IsItemDefaultable();
        reading.value = DefaultNumber<MD, T>(plan, list);
    } else {
        reading = values_.Read<T>(item, words_.GetWord());
        Report(item, std::move(reading.errors));
        if (!reading.value && !reading.hasVariables) {
            misfits_ += CountNumbersInWord();
            return;
        }
    }
    const TextRange& range = words_.GetRange();
    const T value = reading.value.value_or(T());
    const long long count = words_.TakeRepeats();
    if (!isDefault && !reading.hasVariables && !IsWithinLimits(item, static_cast<double>(value)))
        errors.AddBeyond(range, static_cast<double>(value), count);
    // What is beyond the size is counted, and not kept.
    const long long kept = std::min(count, most - list.GetSize());
    if (kept > 1 && !words_.MayRepeat(static_cast<std::size_t>(kept - 1))) {
        misfits_ += kept;
        return;
    }
    if (errors.surplus == 0 && kept < count)
        errors.firstSurplus = range;
    errors.surplus += count - kept;
    if (reading.hasVariables)
        notes_.AddVariable(static_cast<int>(list.GetSize()), kept, words_.GetWord().text);
    if (reading.value)
        AppendRepeated(list, value, kept, isDefault && ListMD(plan).IsItemDefaultable());
    else
        AddUnknown(list, static_cast<std::size_t>(kept));
    notes_.Pass(range, static_cast<std::size_t>(kept));
}

template <class T>
void DataReader::AppendRepeated(IKeywordListData& list, T value, long long count, bool isDefault) const
{
    constexpr long long room = 4096;
    T values[room];
    std::fill_n(values, std::min(count, room), value);
    for (long long done = 0; done < count; done += room) {
        const auto first = static_cast<std::size_t>(list.GetSize());
        list.AddData(values, values + std::min(count - done, room));
        for (std::size_t i = first; isDefault && i < static_cast<std::size_t>(list.GetSize()); ++i)
            list.SetDefaulted(i, true);
        if ((done + room) % static_cast<long long>(WordStream::stride) == 0)
            text_.CheckCancelled();
    }
}

template <class MD, class T>
T DataReader::DefaultNumber(const DataPlan& plan, const IKeywordListData& list)
{
    const DataPlan& item = plan.items.front();
    const IKeywordListMD& md = ListMD(plan);
    if (!md.IsItemDefaultable())
        ReportNoDefault(item);
    if (md.FillEmptyElementsWithPreviousValue() && list.GetSize() > 0)
        return *static_cast<const T*>(list.GetData(static_cast<std::size_t>(list.GetSize() - 1)));
    return static_cast<const MD*>(item.md)->GetDefault(target_.simulator).ValueOr(T());
}

/// Of the numbers beyond their limits the first, with how many more there are; and so of those beyond the
/// size.
void DataReader::ReportNumbers(const DataPlan& plan, long long size, const NumberErrors& errors)
{
    // Without its size the list may have taken what doesn't belong to it.
    const bool isSure = size != unknownSize || plan.termination != Termination::NONE || records_.empty();
    if (errors.beyond > 0 && isSure) {
        Misfit misfit = values_.Beyond(plan.items.front(), errors.beyondValue, errors.beyond - 1);
        if (MayReportOfRow(errors.firstBeyond, misfit.hint))
            ReportAt(errors.firstBeyond, std::move(misfit));
    }
    if (errors.surplus > 0 && !errors.isShifted
        && !IsKnownSize(*ListMD(plan).GetSize(), size + errors.surplus))
        reporter_.Report(errors.firstSurplus, Code::WrongSize,
            fmt::format(
                "{}: too many values (expected {}, found {})", keyword_.text, size, size + errors.surplus),
            fmt::format("the size is {}", *ListMD(plan).GetSize()));
}

} // namespace Veld::Quor::Core::Decks
