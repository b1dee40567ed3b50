#include "quor/deck/Deck.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

const std::string date = "<item name='D'><integer/></item><item name='M'><string/></item><item "
                         "name='Y'><integer/></item><item name='T' optional='true'><string/></item>";
const std::string common = R"(
<keyword name='RUNSPEC'/> <keyword name='SCHEDULE'/> <keyword name='SUMMARY'/>
<keyword name='INCLUDE'/> <keyword name='END'/> <keyword name='ENDINC'/>
)";
const std::string skips =
    "<keyword name='SKIP'/> <keyword name='SKIPCAR'/> <keyword name='SKIPDUN'/> <keyword name='ENDSKIP'/>";
const std::string start =
    "<keyword name='START'><data><record termination='SLASH'>" + date + "</record></data></keyword>";
const std::string tstep = "<keyword name='TSTEP'><data><list><real/></list></data></keyword>";

std::string Dates(const std::string& section)
{
    return "<keyword name='DATES' id='DATES-" + section + "'><validSections><section name='" + section
        + "'/></validSections><data><list><record termination='SLASH'>" + date
        + "</record></list></data></keyword>";
}

struct LanguageRow {
    const char* name;
    std::string document;
    std::string deck;
    const char* steps;
    const char* findings = "";
};

/// The times of the report steps, and the codes of the findings.
std::string StepsOf(const Deck& deck)
{
    std::string steps;
    for (const ReportStep& step : deck.GetSteps())
        steps += step.time.GetAsString().substr(0, 10) + " ";
    return steps;
}
std::string CodesOf(const Deck& deck)
{
    std::string codes;
    for (const Finding& finding : deck.GetFindings())
        codes += finding.code + std::string(":") + std::to_string(finding.location.line) + " ";
    return codes;
}

const std::string steps = "RUNSPEC\nSTART\n 1 JAN 2020 /\nSCHEDULE\nTSTEP\n 1 2 /\n";
const std::string skipped = "SKIPCAR\n nothing\nENDSKIP\n";
const std::string dates = "DATES\n 1 FEB 2020 /\n 31 FEB 2020 /\n/\n";

const LanguageRow languages[] = {
    {"All", common + skips + start + tstep + Dates("SCHEDULE"), steps + skipped + dates,
        "2020-01-02 2020-01-04 2020-02-01 ", "bad-date:12 "},
    {"InAnotherOrder", Dates("SCHEDULE") + tstep + common + skips + start, steps + skipped + dates,
        "2020-01-02 2020-01-04 2020-02-01 ", "bad-date:12 "},
    {"WithoutDates", common + start + tstep, steps, "2020-01-02 2020-01-04 "},
    {"DatesOfTwoSections", common + Dates("SUMMARY") + Dates("SCHEDULE") + start + tstep,
        steps + dates + "SUMMARY\nDATES\n 5 MAR 2020 /\n/\n", "2020-01-02 2020-01-04 2020-02-01 2020-03-05 ",
        "bad-date:9 section-order:11 "},
};

// A deck is read with the table that is there, whatever tables were there before.
TEST(TablesOfOneProcess, ServeTheirOwnDecks)
{
    for (int round = 0; round < 2; ++round) {
        for (const LanguageRow& row : languages) {
            SCOPED_TRACE(row.name);
            const LoadedTable table(row.document);
            const DeckLanguage language;
            const Deck deck = Deck::ReadText(row.deck, language,
                ReadOptions().SetSimulator(Veld::Quor::Core::Keywords::SimulatorType::Carrow));
            EXPECT_EQ(StepsOf(deck), row.steps);
            EXPECT_EQ(CodesOf(deck), row.findings);
        }
    }
}

} // namespace
