// Follows the simulated date over the keywords of a schedule: DATES, TSTEP and TIME.

#include "quor/Keywords.h"

#include <iostream>
#include <memory>
#include <string>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;

namespace {

constexpr long long ticksOfADay = 86400 * Service::Time::TicksPerSecond;

std::unique_ptr<IKeywordData> Make(const char* keyword)
{
    return KeywordDataFactory::Instance().Construct(*KeywordSyntaxTable::Instance().Lookup(keyword, true));
}

void SetDate(IKeywordRecordData& record, int day, const std::string& month, int year)
{
    Set(record, "DAY", day);
    Set(record, "MONTH", month);
    Set(record, "YEAR", year);
}

} // namespace

int main()
{
    const auto startData = Make("START");
    SetDate(AsRecord(*startData), 1, "JAN", 2031);
    const Service::Time start = DataAccessUtils::GetTimeFromSTART(startData.get());

    const auto tstep = Make("TSTEP"); // steps from the time that the run has reached
    AddValue(AsList(*tstep), 31.0);
    AddValue(AsList(*tstep), 0.5);
    const auto dates = Make("DATES");
    SetDate(AddRecord(AsList(*dates)), 15, "MAR", 2031);
    const auto time = Make("TIME"); // since the start
    AddValue(AsList(*time), 365.0);

    Service::Time current = start;
    for (const IKeywordData* const keyword : {tstep.get(), dates.get(), time.get()}) {
        current = DataAccessUtils::AdvanceTime(start, current, ticksOfADay, keyword);
        std::cout << keyword->GetSyntax()->GetName() << " leads to " << current.GetAsString() << '\n';
    }
}
