#include "quor/deck/internal/read/TimeLine.h"

#include "quor/data/DataAccessUtils.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/internal/read/DataShape.h"
#include "quor/deck/internal/read/DataValue.h"

#include <fmt/format.h>

#include <memory>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Time;

namespace {

using MDType = IKeywordDataMD::MDType;

constexpr MDTypes date = {MDType::Integer, MDType::String, MDType::Integer, MDType::String};

/// Lists of one element each, for what answers for a list.
class SingleElements {
public:
    explicit SingleElements(const KeywordInstance& keyword)
        : list_(static_cast<const IKeywordListData&>(*keyword.data))
        , single_(KeywordDataFactory::Instance().Construct(*keyword.syntax))
    {
    }

    std::size_t GetSize() const { return static_cast<std::size_t>(list_.GetSize()); }
    /// Lasts until the next call.
    const IKeywordData* Get(std::size_t element)
    {
        auto& single = static_cast<IKeywordListData&>(*single_);
        single.Clear();
        single.AddData(list_.GetData(element));
        return single_.get();
    }

private:
    const IKeywordListData& list_;
    std::unique_ptr<IKeywordData> single_;
};

} // namespace

void TimeLine::Follow(bool isSound)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const std::string& name = keyword.syntax->GetName();
    if (name == "LAB") { // the one set of units whose unit of time is the hour
        reached_.ticksPerUnit = 3600 * Time::TicksPerSecond;
        if (isSound)
            sound_.ticksPerUnit = reached_.ticksPerUnit;
    } else if (!keyword.data) {
        return;
    } else if (name == "START" && IsRecordOf(keyword.data->GetMD(), date)) {
        FollowStart(keyword, isSound);
    } else if (Advances(keyword)) {
        name == "DATES" ? FollowDates(keyword, isSound) : FollowPeriods(keyword, isSound);
    }
}

std::uint32_t TimeLine::StepIn(SectionType::Enum section)
{
    if (section != section_)
        step_ = noIndex;
    section_ = section;
    return step_;
}

bool TimeLine::Advances(const KeywordInstance& keyword)
{
    if (!keyword.data)
        return false;
    const std::string& name = keyword.syntax->GetName();
    if (name == "DATES")
        return IsListOfRecords(keyword.data->GetMD(), date);
    return (name == "TSTEP" || name == "TIME") && IsListOf(keyword.data->GetMD(), MDType::Real);
}

void TimeLine::FollowStart(const KeywordInstance& keyword, bool isSound)
{
    const Time start = DataAccessUtils::GetTimeFromSTART(keyword.data.get());
    reached_.start = reached_.now = deck_.start = start;
    if (!isSound)
        return;
    sound_.start = sound_.now = start;
    if (!start.IsDef())
        reporter_.Report(keyword.name, Code::BadDate,
            fmt::format("START: invalid date '{}'",
                RecordText(static_cast<const IKeywordRecordData&>(*keyword.data))),
            "expected a date such as 1 JAN 2020");
}

void TimeLine::FollowDates(const KeywordInstance& keyword, bool isSound)
{
    const auto& list = static_cast<const IKeywordListData&>(*keyword.data);
    SingleElements dates(keyword);
    for (std::size_t i = 0; i < dates.GetSize(); ++i) {
        const auto times = DataAccessUtils::GetTimesFromDATES(dates.Get(i));
        const Time time = times.empty() ? Time() : times.front();
        if (isSound)
            CheckDate(time, *static_cast<const IKeywordRecordData*>(list.GetData(i)), RangeOf(keyword, i));
        if (time.IsDef() && !(reached_.now.IsDef() && time <= reached_.now))
            Reach(time, i);
    }
}

void TimeLine::CheckDate(const Time& time, const IKeywordRecordData& record, const TextRange& range)
{
    if (!time.IsDef())
        reporter_.Report(range, Code::BadDate, fmt::format("DATES: invalid date '{}'", RecordText(record)),
            "expected a date such as 1 JAN 2020");
    else if (sound_.now.IsDef() && time <= sound_.now)
        reporter_.Report(range, Code::DateOrder,
            fmt::format("DATES: {} is not after {}, which the schedule has already reached", DateText(time),
                DateText(sound_.now)));
    else
        sound_.now = time;
}

/// Of TSTEP and TIME.
void TimeLine::FollowPeriods(const KeywordInstance& keyword, bool isSound)
{
    if (isSound)
        CheckPeriods(keyword);
    SingleElements periods(keyword);
    for (std::size_t i = 0; i < periods.GetSize(); ++i) {
        const Time next =
            DataAccessUtils::AdvanceTime(reached_.start, reached_.now, reached_.ticksPerUnit, periods.Get(i));
        if (!(reached_.now.IsDef() && next < reached_.now))
            Reach(next, i);
    }
}

void TimeLine::CheckPeriods(const KeywordInstance& keyword)
{
    const Time next =
        DataAccessUtils::AdvanceTime(sound_.start, sound_.now, sound_.ticksPerUnit, keyword.data.get());
    if (sound_.now.IsDef() && next < sound_.now)
        reporter_.Report(keyword.name, Code::DateOrder,
            fmt::format("{}: {} is before {}, which the schedule has already reached",
                keyword.syntax->GetName(), DateText(next), DateText(sound_.now)));
    else
        sound_.now = next;
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
