#include "tests/data/DataText.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

using namespace Veld::Quor::Tests;

using Service::Time;

namespace {

constexpr long long day = 86400 * Time::TicksPerSecond;
const Time start(2024, 1, 1, 0, 0, 0, 0);

const std::string dateRecord = "<record><item name='D'><integer/></item><item name='M'><string/></item><item "
                               "name='Y'><integer/></item><item name='T'><string/></item></record>";
const std::string startKeyword = "<keyword name='START'><data>" + dateRecord + "</data></keyword>";
const std::string datesKeyword =
    "<keyword name='DATES'><data><list>" + dateRecord + "</list></data></keyword>";
const std::string tstepKeyword = "<keyword name='TSTEP'><data><list><real/></list></data></keyword>";

/// Which of the utilities accept the data of the table's START, DATES and TSTEP, of those that it has.
std::string AcceptedOf(const LoadedTable& table)
{
    std::string accepted;
    const auto make = [&table](const char* name, const char* text) {
        const IKeywordSyntax* const syntax = table->Lookup(name, true);
        return syntax ? Make(*syntax, text) : nullptr;
    };
    if (const auto data = make("START", "(2 'JAN' 2024 -)")) {
        const Time time = DataAccessUtils::GetTime(AsRecord(*data));
        EXPECT_EQ(time, start + day) << "is told by its items alone";
        if (FailureOf([&] { EXPECT_EQ(DataAccessUtils::GetTimeFromSTART(data.get()), time); }) == "done")
            accepted += "start ";
    }
    if (const auto data = make("DATES", "[(2 'JAN' 2024 -)]")) {
        if (FailureOf([&] { DataAccessUtils::GetTimesFromDATES(data.get()); }) == "done")
            accepted += "dates ";
        if (DataAccessUtils::AdvanceTime(start, start, day, data.get()) == start + day)
            accepted += "by-dates ";
    }
    if (const auto data = make("TSTEP", "[0.25 0.75]")) {
        if (DataAccessUtils::AdvanceTime(start, start, day, data.get()) == start + day)
            accepted += "by-tstep ";
    }
    return accepted;
}

} // namespace

// One process has one table after the other: the keywords are those of the table that is there at the first
// call, and what is later at the address of one of them is refused.
TEST(TimeKeywords, AreThoseOfTheFirstTable)
{
    EXPECT_EQ(
        AcceptedOf(LoadedTable(startKeyword + datesKeyword + tstepKeyword)), "start dates by-dates by-tstep ")
        << "a document without TIME serves too";
    for (const std::string& document : {startKeyword + datesKeyword + tstepKeyword,
             tstepKeyword + startKeyword, datesKeyword + startKeyword + datesKeyword}) {
        EXPECT_EQ(AcceptedOf(LoadedTable(document)), "") << document;
    }
}
