#include "quor/deck/internal/read/deck/TimeLine.h"

#include "quor/data/Access.h"
#include "quor/data/DataAccessUtils.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/WordText.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/Units.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Time;

namespace {

using MDType = IKeywordDataMD::MDType;

constexpr MDTypes date = {MDType::Integer, MDType::String, MDType::Integer, MDType::String};
constexpr int monthOfDate = 1; // of its items

const IKeywordListData& ListOf(const KeywordInstance& keyword)
{
    return static_cast<const IKeywordListData&>(*keyword.data);
}

double PeriodAt(const IKeywordListData& periods, std::size_t i)
{
    return *static_cast<const double*>(periods.GetData(i));
}

const IKeywordRecordData& DateAt(const IKeywordListData& list, std::size_t i)
{
    return static_cast<const IKeywordRecordData&>(*static_cast<const IKeywordData*>(list.GetData(i)));
}

/// For messages: the last year in which a date has a text, or the first, for one that has none.
std::string NameOfTime(const Time& time)
{
    std::string text = DateText(time);
    if (!text.empty())
        return text;
    return time < Time(0, 1, 1, 0, 0, 0, 0) ? "the year 0" : "the year 32767";
}

/// Months are compared as they are written.
void FoldMonth(IKeywordData& record)
{
    auto& text = *static_cast<Service::Optional<std::string>*>(
        static_cast<IKeywordRecordData&>(record).GetData(monthOfDate));
    if (text)
        text = ToUpper(*text);
}

void FoldMonths(IKeywordListData& dates)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(dates.GetSize()); ++i)
        FoldMonth(*static_cast<IKeywordData*>(dates.GetData(i)));
}

template <class T>
void FillIn(IKeywordRecordData& record, int item, SimulatorType::Enum simulator)
{
    if (const Service::Optional<T> value = GetOrDefault<T>(record, item, simulator))
        Set(record, item, *value);
}

/// What the deck leaves out is as the metadata say.
Time TimeOf(const IKeywordData& record, SimulatorType::Enum simulator)
{
    const std::unique_ptr<IKeywordData> copy = record.CloneSafely();
    auto& whole = static_cast<IKeywordRecordData&>(*copy);
    int item = 0;
    for (const MDType::Enum type : date) {
        type == MDType::Integer ? FillIn<int>(whole, item, simulator)
                                : FillIn<std::string>(whole, item, simulator);
        ++item;
    }
    return DataAccessUtils::GetTime(whole);
}

} // namespace

void TimeLine::Follow(bool isSound)
{
    KeywordInstance& keyword = deck_.keywords.back();
    if (!keyword.data) {
        bool isUnits = false;
        const auto system = UnitSystem::FromString(keyword.syntax->GetName(), &isUnits);
        if (isUnits)
            SetUnits(system, isSound);
        return;
    }
    const RolesOfKeyword& roles = deck_.language.RolesOf(*keyword.syntax);
    if (roles.Has(Role::StartOfRun) && IsRecordOf(keyword.data->GetMD(), date)) {
        FoldMonth(*keyword.data);
        FollowStart(keyword, isSound);
    } else if (!Advances(keyword, roles)) {
        return;
    } else if (roles.Has(Role::DatesOfSteps)) {
        FoldMonths(static_cast<IKeywordListData&>(*keyword.data));
        FollowDates(keyword, isSound);
    } else {
        FollowPeriods(keyword, roles.Has(Role::TimesOfSteps), isSound);
    }
}

void TimeLine::SetUnits(UnitSystem::Enum system, bool isSound)
{
    const Unit* const unit = Units::Find("time", system);
    if (!unit)
        return;
    reached_.ticksPerUnit = std::llround(unit->factor) * Time::TicksPerSecond;
    if (isSound)
        sound_.ticksPerUnit = reached_.ticksPerUnit;
}

std::uint32_t TimeLine::StepIn(SectionType::Enum section)
{
    if (section != section_)
        step_ = noIndex;
    section_ = section;
    return step_;
}

bool TimeLine::Advances(const KeywordInstance& keyword, const RolesOfKeyword& roles)
{
    if (!keyword.data)
        return false;
    if (roles.Has(Role::DatesOfSteps))
        return IsListOfRecords(keyword.data->GetMD(), date);
    return (roles.Has(Role::LengthsOfSteps) || roles.Has(Role::TimesOfSteps))
        && IsListOf(keyword.data->GetMD(), MDType::Real);
}

void TimeLine::FollowStart(const KeywordInstance& keyword, bool isSound)
{
    const Time start = TimeOf(*keyword.data, simulator_);
    reached_.start = reached_.now = deck_.start = start;
    if (!isSound)
        return;
    // With two of them, which is reported, no date is wrong that fits one.
    sound_.start = sound_.now = sound_.start.IsDef() && start.IsDef() ? std::min(sound_.start, start) : start;
    if (!start.IsDef())
        reporter_.Report(FirstWordOf(keyword), Code::BadDate,
            fmt::format("{}: invalid date '{}'", keyword.syntax->GetName(),
                RecordText(static_cast<const IKeywordRecordData&>(*keyword.data))),
            "expected a date such as 1 JAN 2020");
}

/// The first word of the keyword's data; the keyword itself if they are in another file.
TextRange TimeLine::FirstWordOf(const KeywordInstance& keyword) const
{
    const std::size_t begin = keyword.name.offset + keyword.name.length;
    const std::size_t end = keyword.whole.offset + keyword.whole.length;
    LineReader lines(deck_.files.GetText(keyword.name.file).substr(begin, std::max(begin, end) - begin));
    for (Line line; lines.Next(line);) {
        if (IsEmpty(line.text))
            continue;
        const std::size_t blanks = line.text.find_first_not_of(" \t");
        const auto offset =
            static_cast<std::size_t>(line.text.data() - deck_.files.GetText(keyword.name.file).data());
        return {keyword.name.file, offset + blanks, FindDataWord(line.text.substr(blanks)).length};
    }
    return keyword.name;
}

void TimeLine::FollowDates(const KeywordInstance& keyword, bool isSound)
{
    const IKeywordListData& dates = ListOf(keyword);
    const auto size = static_cast<std::size_t>(dates.GetSize());
    for (std::size_t i = 0; i < size; ++i) {
        const IKeywordRecordData& record = DateAt(dates, i);
        const Time time = DataAccessUtils::GetTime(record); // MinTime for what is no date
        if (isSound)
            CheckDate(time, keyword, i);
        if (time.IsDef() && !(reached_.now.IsDef() && time <= reached_.now))
            Reach(time, i);
    }
}

void TimeLine::CheckDate(const Time& time, const KeywordInstance& keyword, std::size_t record)
{
    const TextRange range = RangeOf(keyword, record);
    const std::string& name = keyword.syntax->GetName();
    if (!time.IsDef())
        reporter_.Report(range, Code::BadDate,
            fmt::format("{}: invalid date '{}'", name, RecordText(DateAt(ListOf(keyword), record))),
            "expected a date such as 1 JAN 2020");
    else if (sound_.now.IsDef() && time == sound_.now)
        reporter_.Report(range, Code::RepeatedDate,
            fmt::format("{}: {} has no effect; the schedule has already reached it", name, NameOfTime(time)));
    else if (sound_.now.IsDef() && time < sound_.now)
        reporter_.Report(range, Code::DateOrder,
            fmt::format("{}: {} is not after {}, which the schedule has already reached", name,
                NameOfTime(time), NameOfTime(sound_.now)));
    if (time.IsDef())
        sound_.now = time; // one date in the wrong order doesn't make all others wrong
}

Time TimeLine::Clock::After(double length, bool isFromStart) const
{
    return DataAccessUtils::Advance(isFromStart || !now.IsDef() ? start : now, ticksPerUnit, length);
}

void TimeLine::FollowPeriods(const KeywordInstance& keyword, bool isFromStart, bool isSound)
{
    if (isSound)
        CheckPeriods(keyword, isFromStart);
    const IKeywordListData& periods = ListOf(keyword);
    const auto size = static_cast<std::size_t>(periods.GetSize());
    for (std::size_t i = 0; i < size; ++i) {
        const Time next = reached_.After(PeriodAt(periods, i), isFromStart);
        if (!(reached_.now.IsDef() && next < reached_.now))
            Reach(next, i);
    }
}

void TimeLine::CheckPeriods(const KeywordInstance& keyword, bool isFromStart)
{
    const IKeywordListData& periods = ListOf(keyword);
    const auto size = static_cast<std::size_t>(periods.GetSize());
    Clock end = sound_;
    for (std::size_t i = 0; i < size; ++i)
        end.now = end.After(PeriodAt(periods, i), isFromStart);
    if (sound_.now.IsDef() && end.now < sound_.now)
        reporter_.Report(keyword.name, Code::DateOrder,
            fmt::format("{}: {} is before {}, which the schedule has already reached",
                keyword.syntax->GetName(), NameOfTime(end.now), NameOfTime(sound_.now)));
    else
        sound_ = end;
}

/// The last keyword of the deck leads to a report.
void TimeLine::Reach(const Time& time, std::size_t element)
{
    reached_.now = time;
    step_ = static_cast<std::uint32_t>(deck_.steps.size());
    deck_.steps.push_back({time, static_cast<std::uint32_t>(deck_.keywords.size() - 1),
        RangeOf(deck_.keywords.back(), element)});
}

} // namespace Veld::Quor::Core::Decks
