#include "quor/deck/internal/read/TimeLine.h"

#include "quor/data/DataAccessUtils.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/internal/read/DataShape.h"

#include <fmt/format.h>

#include <string>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Time;

namespace {

using MDType = IKeywordDataMD::MDType;

constexpr MDTypes date = {MDType::Integer, MDType::String, MDType::Integer, MDType::String};

} // namespace

void TimeLine::Follow(const DeckKeyword& keyword)
{
    const std::string& name = keyword.syntax->GetName();
    if (name == "LAB") // the one set of units whose unit of time is the hour
        ticksPerUnit_ = 3600 * Time::TicksPerSecond;
    else if (!keyword.data)
        return;
    else if (name == "START" && IsRecordOf(keyword.data->GetMD(), date))
        FollowStart(keyword);
    else if (Advances(keyword))
        name == "DATES" ? FollowDates(keyword) : Advance(keyword);
}

bool TimeLine::Advances(const DeckKeyword& keyword)
{
    if (!keyword.data)
        return false;
    const std::string& name = keyword.syntax->GetName();
    if (name == "DATES")
        return IsListOfRecords(keyword.data->GetMD(), date);
    return (name == "TSTEP" || name == "TIME") && IsListOf(keyword.data->GetMD(), MDType::Real);
}

void TimeLine::FollowStart(const DeckKeyword& keyword)
{
    start_ = DataAccessUtils::GetTimeFromSTART(keyword.data.get());
    now_ = start_;
    if (!start_.IsDef())
        reporter_.Report(keyword.name, Code::BadDate, "START: there is no such date", "as in 1 JAN 2020");
}

void TimeLine::FollowDates(const DeckKeyword& keyword)
{
    const auto& dates = static_cast<const IKeywordListData&>(*keyword.data);
    for (std::size_t i = 0; i < keyword.records.size(); ++i) {
        const auto one = KeywordDataFactory::Instance().Construct(*keyword.syntax);
        static_cast<IKeywordListData&>(*one).AddData(dates.GetData(i));
        const auto times = DataAccessUtils::GetTimesFromDATES(one.get());
        const TextRange range{
            static_cast<std::uint32_t>(keyword.records[i].file), keyword.records[i].offset, 1};
        if (times.empty()) {
            reporter_.Report(range, Code::BadDate, "DATES: there is no such date", "as in 1 JAN 2020");
            continue;
        }
        if (now_.IsDef() && times.front() <= now_)
            reporter_.Report(range, Code::DateOrder,
                fmt::format("DATES: {} does not lie behind {}, which was reached before",
                    times.front().GetAsString(), now_.GetAsString()));
        else
            now_ = times.front();
    }
}

void TimeLine::Advance(const DeckKeyword& keyword)
{
    const Time next = DataAccessUtils::AdvanceTime(start_, now_, ticksPerUnit_, keyword.data.get());
    if (now_.IsDef() && next < now_)
        reporter_.Report(keyword.name, Code::DateOrder,
            fmt::format("{}: {} lies before {}, which was reached already", keyword.syntax->GetName(),
                next.GetAsString(), now_.GetAsString()));
    else
        now_ = next;
}

} // namespace Veld::Quor::Core::Decks
