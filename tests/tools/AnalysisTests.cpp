#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

using namespace Veld::Quor::Tests;
using nlohmann::json;

namespace {

// A deck in two parts; what a case is about stands between and behind them.
const std::string runspec = "RUNSPEC\nDIMENS\n 2 2 1 /\nOIL\nSTART\n 1 JAN 2020 /\n";
const std::string schedule = "SCHEDULE\nWELSPECS\n P1 G1 1 1 1* OIL /\n P2 G1 2 2 1* OIL /\n/\n";

std::string Producers(const std::string& records)
{
    return schedule + "WCONPROD\n" + records + "/\n";
}

/// In a folder that has the two decks.
Outcome Analyse(const std::string& arguments, const std::string& a, const std::string& b = {},
    const std::string& environment = {})
{
    const TemporaryDirectory folder;
    folder.Write("a.data", a);
    folder.Write("b.data", b);
    return RunShell("cd " + Quote(folder.Path().string()) + "; \"$QUOR\" " + arguments, environment);
}

// Differences

struct DiffCase {
    const char* name;
    std::string a;
    std::string b;
    std::string out; ///< without the count; empty: the decks say the same
    const char* options = "";
};

class Differences : public testing::TestWithParam<DiffCase> { };

TEST_P(Differences, AreTold)
{
    const DiffCase& row = GetParam();
    Outcome outcome = Analyse(std::string("diff a.data b.data ") + row.options, row.a, row.b);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, row.out.empty() ? 0 : 1);
    const std::size_t last = outcome.out.find_last_of('\n', outcome.out.size() - 2);
    EXPECT_EQ(last == std::string::npos ? "" : outcome.out.substr(0, last + 1), row.out);
}

INSTANTIATE_TEST_SUITE_P(Same, Differences,
    testing::Values(DiffCase{"Layout", runspec + "GRID\nPORO\n 4*0.2 /\n",
                        "-- a comment\n" + runspec + "GRID\n\nPORO\n 0.2 2*0.2\n 2.0E-1 /\nEND\n", ""},
        DiffCase{"RecordsSpreadAndInAnyOrder", Producers(" P1 OPEN ORAT 5 /\n P2 OPEN ORAT 6 /\n"),
            Producers(" P2 OPEN ORAT 6 /\n/\nWCONPROD\n P1 OPEN ORAT 5 /\n"), ""},
        DiffCase{"DefaultGiven", Producers(" P1 1* ORAT 5 /\n"), Producers(" P1 OPEN ORAT 5 5* 0 /\n"), ""},
        DiffCase{"CaseOfNames", Producers(" P1 OPEN ORAT 5 /\n"), Producers(" 'p1' OPEN ORAT 5 /\n"), ""},
        DiffCase{"StepsAndDates", runspec + schedule + "TSTEP\n 31 29 /\n",
            runspec + schedule + "DATES\n 1 FEB 2020 /\n 1 MAR 2020 /\n/\n", ""},
        DiffCase{"DefaultedCells", runspec + "GRID\nMULTX\n 2* 2*3 /\n",
            runspec + "GRID\nMULTX\n 1 1 3 3 /\n", ""},
        DiffCase{"MapInAnyOrder", "SCHEDULE\nRPTSCHED\n FIP=2 WELLS=3 /\n",
            "SCHEDULE\nRPTSCHED\n WELLS=3 FIP=2 /\n", ""}),
    CaseName<DiffCase>);

INSTANTIATE_TEST_SUITE_P(Told, Differences,
    testing::Values(DiffCase{"Item", Producers(" P1 OPEN ORAT 5 /\n P2 OPEN ORAT 5 /\n"),
                        Producers(" P2 OPEN ORAT 6 /\n P1 SHUT ORAT 5 /\n"),
                        "SCHEDULE\n"
                        "  ~ WCONPROD P1: STATUS OPEN -> SHUT   (a.data:7, b.data:8)\n"
                        "  ~ WCONPROD P2: ORAT 5 -> 6   (a.data:8, b.data:7)\n"},
        DiffCase{"LeftOut", Producers(" P1 OPEN ORAT 5 /\n"), Producers(" P1 OPEN ORAT 1* 7 3* 2.5 /\n"),
            "SCHEDULE\n"
            "  ~ WCONPROD P1: ORAT 5 -> default (calculated)   (a.data:7, b.data:7)\n"
            "  ~ WCONPROD P1: WRAT default (calculated) -> 7   (a.data:7, b.data:7)\n"
            "  ~ WCONPROD P1: BHP default (1.01325) -> 2.5   (a.data:7, b.data:7)\n"},
        DiffCase{"Strictly", Producers(" P1 1* ORAT 5 /\n"), Producers(" P1 OPEN ORAT 5 /\n"),
            "SCHEDULE\n  ~ WCONPROD P1: STATUS default (OPEN) -> OPEN   (a.data:7, b.data:7)\n", "--strict"},
        DiffCase{"DefaultOfTheSimulator", "SCHEDULE\nNUPCOL\n/\n", "SCHEDULE\nNUPCOL\n 3 /\n",
            "SCHEDULE\n  ~ NUPCOL: NUPCOL default (5) -> 3   (a.data:2, b.data:2)\n", "--simulator Hallow"},
        DiffCase{"RecordsAddedAndGone", Producers(" P1 OPEN ORAT 5 /\n"), Producers(" P2 OPEN ORAT 5 /\n"),
            "SCHEDULE\n  - WCONPROD P1   (a.data:7)\n  + WCONPROD P2   (b.data:7)\n"},
        DiffCase{"Dates",
            runspec + schedule + "DATES\n 1 FEB 2020 /\n 1 MAR 2020 /\n/\nWCONPROD\n P1 OPEN ORAT 5 /\n/\n",
            runspec + schedule + "DATES\n 1 FEB 2020 /\n/\nWCONPROD\n P1 OPEN ORAT 5 /\n/\n",
            "SCHEDULE, 2020-02-01\n  + WCONPROD P1   (b.data:16)\n"
            "SCHEDULE, 2020-03-01\n  - report   (a.data:14)\n  - WCONPROD P1   (a.data:17)\n"},
        DiffCase{"StepsWithoutDates", schedule + "TSTEP\n 2*1 /\nWCONPROD\n P1 OPEN ORAT 5 /\n/\n",
            schedule + "TSTEP\n 1 /\nTSTEP\n 3 /\nWCONPROD\n P1 OPEN ORAT 6 /\n/\n",
            "SCHEDULE, report step 2\n  ~ WCONPROD P1: ORAT 5 -> 6   (a.data:9, b.data:11)\n"},
        DiffCase{"Arrays", runspec + "GRID\nPORO\n 0.2 0.2 0.3 0.4 /\n",
            runspec + "GRID\nPORO\n 0.2 0.25 0.3 0.1 /\n",
            "GRID\n  ~ PORO: 2 of 4 differ, first [2]: 0.2 -> 0.25, by 0.3 at most   (a.data:8, b.data:8)\n"},
        DiffCase{"OneOfSeveralArrays", runspec + "GRID\nPORO\n 4*1 /\nPORO\n 4*0.5 /\nPORO\n 4*0 /\n",
            runspec + "GRID\nPORO\n 4*1 /\nPORO\n 4*0 /\n", "GRID\n  - PORO   (a.data:10)\n"},
        DiffCase{"RowOfATable", "PROPS\nSWOF\n 0.1 0 1 0\n 0.5 0.2 0.2 0\n 1 1 0 0 /\n",
            "PROPS\nSWOF\n 0.1 0 1 0\n 0.3 0.1 0.5 0\n 0.5 0.2 0.2 0\n 1 1 0 0 /\n",
            "PROPS\n  ~ SWOF: [1][2] absent -> 0.3 0.1 0.5 0   (a.data:2, b.data:2)\n"},
        DiffCase{"Map", "SCHEDULE\nRPTSCHED\n FIP=2 WELLS /\n", "SCHEDULE\nRPTSCHED\n FIP=1 WELLS /\n",
            "SCHEDULE\n  ~ RPTSCHED: FIP 2 -> 1   (a.data:2, b.data:2)\n"},
        DiffCase{"Raw", "RUNSPEC\nNOTES\nas it was\nto the end\nENDNOTES\n",
            "RUNSPEC\nNOTES\nas it was\nto an end\nENDNOTES\n",
            "RUNSPEC\n  ~ NOTES: text to the end -> to an end   (a.data:2, b.data:2)\n"},
        DiffCase{"Variables", Producers(" P1 OPEN ORAT $A /\n"), Producers(" P1 OPEN ORAT $B /\n"),
            "SCHEDULE\n  ~ WCONPROD P1: variables ORAT $A -> ORAT $B   (a.data:7, b.data:7)\n",
            "--set A=5 --set B=5"},
        DiffCase{"Sections", "GRID\nNOECHO\nPROPS\n", "GRID\nPROPS\nNOECHO\n",
            "GRID\n  - NOECHO   (a.data:2)\nPROPS\n  + NOECHO   (b.data:3)\n"},
        DiffCase{"Scopes",
            runspec
                + "LGR\n 2 4 /\nGRID\nCARFIN\n A 1 1 1 1 1 1 1 1 1 /\nPORO\n 0.1 /\nENDFIN\n"
                  "CARFIN\n B 2 2 1 1 1 1 1 1 1 /\nPORO\n 0.2 /\nENDFIN\n",
            runspec
                + "LGR\n 2 4 /\nGRID\nCARFIN\n B 2 2 1 1 1 1 1 1 1 /\nPORO\n 0.3 /\nENDFIN\n"
                  "CARFIN\n A 1 1 1 1 1 1 1 1 1 /\nPORO\n 0.1 /\nENDFIN\n",
            "GRID\n  ~ PORO: 1 of 1 differ, first [1]: 0.2 -> 0.3   (a.data:17, b.data:12)\n"}),
    CaseName<DiffCase>);

/// One record for each of many wells, the numbers of which go up or down.
std::string ManyRecords(bool isTurned)
{
    std::string text = "SCHEDULE\nWELSPECS\n P G 1 1 1* OIL /\n/\nWCONPROD\n";
    for (int i = 0; i < 100'000; ++i)
        text += " P" + std::to_string(isTurned ? 99'999 - i : i) + " OPEN ORAT 5 /\n";
    return text + "/\n";
}

TEST(Difference, OfManyRecordsTakesTimeByTheirNumber)
{
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Analyse("diff a.data b.data", ManyRecords(false), ManyRecords(true)).out,
        "0 changed, 0 added, 0 removed\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60)); // under a sanitizer too
}

TEST(Difference, ShowsAChoiceWithoutAValue)
{
    const std::string before = "RUNSPEC\nCOMPS\n 1 /\nPROPS\nEOS\n ";
    const Outcome outcome = Analyse("diff a.data b.data", before + "$A /\n", before + "PR /\n");
    EXPECT_TRUE(Holds(outcome.out, "  ~ EOS: [1] unknown value -> PR   (a.data:5, b.data:5)\n"))
        << outcome.out;
}

TEST(Difference, AsJsonHasValuesAndPlaces)
{
    const Outcome outcome = Analyse("diff a.data b.data --format json", runspec + "GRID\nPORO\n 4*1 /\n",
        runspec + "GRID\nPORO\n 3*1 0 /\n");
    const json change = json::parse(outcome.out).at("changes").at(0);
    EXPECT_EQ(change.at("array").dump(),
        R"({"differing":1,"first":4,"greatest":1.0,"sizeAfter":4,"sizeBefore":4})");
    EXPECT_EQ(change.at("b").dump(), R"({"file":"b.data","line":8})");
}

// Summaries

struct InfoCase {
    const char* name;
    std::string deck;
    const char* pointer; ///< into the JSON
    const char* value;
};

class Summaries : public testing::TestWithParam<InfoCase> { };

TEST_P(Summaries, Hold)
{
    const Outcome outcome = Analyse("info a.data --format json", GetParam().deck, "PORO\n 4*1 /\n");
    EXPECT_EQ(outcome.status, 0);
    const json summary = json::parse(outcome.out);
    EXPECT_EQ(summary.at(json::json_pointer(GetParam().pointer)).dump(), GetParam().value);
}

const std::string control = "WCONPROD\n P* OPEN ORAT 5 /\n/\nWCONINJE\n P2 WATER OPEN RATE 5 /\n/\n";
const std::string completions = "COMPDAT\n P1 1 1 1 3 /\n/\nCOMPDAT\n P1 1 1 1 3 SHUT /\n P1 1 2 5 5 /\n/\n";

INSTANTIATE_TEST_SUITE_P(Decks, Summaries,
    testing::Values(InfoCase{"Title", "RUNSPEC\nTITLE\n  Two wells\n", "/title", "\"Two wells\""},
        InfoCase{"Included", runspec + "GRID\nINCLUDE\n 'b.data' /\n", "/files/1",
            R"({"bytes":12,"depth":1,"keywords":1,"name":"b.data"})"},
        InfoCase{"Sections", runspec + "GRID\n", "/sections/1",
            R"({"keywords":1,"place":{"file":"a.data","line":7},"section":"GRID"})"},
        InfoCase{
            "SizesButNoDates", runspec, "/sizes", R"([{"keyword":"DIMENS","sizes":{"NX":2,"NY":2,"NZ":1}}])"},
        InfoCase{"Options", runspec + "LAB\nECHO\n", "/options", R"(["OIL","ECHO"])"},
        InfoCase{"Units", runspec + "LAB\n", "/units", "\"LAB\""},
        InfoCase{"HoursOfTheLaboratory", runspec + "LAB\nSCHEDULE\nTSTEP\n 36 /\n", "/end",
            "\"2020-01-02 12:00:00\""},
        InfoCase{
            "Reports", runspec + schedule + "TSTEP\n 3*10 /\nDATES\n 1 JAN 2021 /\n/\n", "/reports", "4"},
        InfoCase{"NoStart", "SCHEDULE\nTSTEP\n 3 /\n", "/end", "null"},
        InfoCase{"LastControl", schedule + control, "/wells/1/control", "\"WCONINJE WATER RATE\""},
        InfoCase{"ControlByBeginning", schedule + control, "/wells/0/control", "\"WCONPROD ORAT\""},
        InfoCase{"CompletionsOnce", schedule + completions, "/wells/0/completions", "4"},
        InfoCase{
            "LayersInTheWrongOrder", schedule + "COMPDAT\n P1 1 1 3 1 /\n/\n", "/wells/0/completions", "0"},
        InfoCase{"Since", runspec + "SCHEDULE\nTSTEP\n 1 /\nWELSPECS\n P1 G1 1 1 1* OIL /\n/\n",
            "/wells/0/since", "\"2020-01-02\""},
        InfoCase{"Groups", schedule + "GRUPTREE\n G1 PLAT /\n/\n", "/groups",
            R"([{"name":"FIELD","parent":null,"wells":0},{"name":"PLAT","parent":"FIELD","wells":0},)"
            R"({"name":"G1","parent":"PLAT","wells":2}])"},
        InfoCase{"GroupsInACircle", "SCHEDULE\nGRUPTREE\n A B /\n B A /\n/\n", "/groups/2",
            R"({"name":"A","parent":"B","wells":0})"},
        InfoCase{"Properties", runspec + "GRID\nMULTX\n 2* -0 4 /\n", "/properties/0",
            R"({"count":4,"defaulted":2,"greatest":4.0,"keyword":"MULTX","least":-0.0,"mean":2.0,)"
            R"("measurement":null,"place":{"file":"a.data","line":8},"property":"MULTX"})"},
        InfoCase{"AllDefaulted", runspec + "GRID\nMULTX\n 4* /\n", "/properties/0/mean", "null"}),
    CaseName<InfoCase>);

TEST(Summary, ListsTheFirstRowsUnlessAskedForAll)
{
    std::string deck = "SCHEDULE\nWELSPECS\n";
    for (int i = 0; i < 25; ++i)
        deck += " P" + std::to_string(i) + " G 1 1 1* OIL /\n";
    const Outcome few = Analyse("info a.data", deck + "/\n");
    EXPECT_TRUE(Holds(few.out, "25 wells\n")) << few.out;
    EXPECT_TRUE(Holds(few.out, "  5 more; use --wells to list all\n")) << few.out;
    EXPECT_TRUE(Holds(Analyse("info a.data --wells", deck + "/\n").out, "  P24 "));
}

// Losses

const std::string lossLanguage = R"(
<keyword name='RUNSPEC'/> <keyword name='GRID'/> <keyword name='SKIPCAR'/> <keyword name='ENDSKIP'/>
<keyword name='ONLY'><validSections><section name='GRID'/></validSections>
  <validSimulators><simulator name='Dunmere'/></validSimulators></keyword>
<keyword name='REC'><data><list termination='SLASH'><record termination='SLASH'>
  <item name='N' optional='true'><integer><default type='specified' val='1'>
    <override name='Carrow' type='specified' val='2'/>
    <override name='Wend' type='no default'/>
    <override name='Sedge' type='calculated'/>
  </default></integer></item>
  <item name='NEW' optional='true'><integer/><validity>
    <simulator name='Dunmere'/>
  </validity></item>
  <item name='IDLE' optional='true'><integer/><unsupportedBy>
    <simulator name='Carrow'/>
  </unsupportedBy></item>
  <item name='WORD' optional='true'><choice><values><value string='A'/><value string='B'><validity>
    <simulator name='Dunmere'/>
  </validity></value><value string='C'><unsupportedBy>
    <simulator name='Carrow'/>
  </unsupportedBy></value></values><default type='no default'/></choice></item>
</record></list></data></keyword>
<keyword name='ARRAY'><data><list termination='SLASH' itemsDefaultable='true'><integer>
  <default type='specified' val='1'>
    <override name='Carrow' type='specified' val='2'/>
  </default></integer></list></data></keyword>
<keyword name='MAP'><data><map><assignment name='KEY'><integer/><validity>
    <simulator name='Dunmere'/>
  </validity></assignment></map></data></keyword>
)";

struct PortCase {
    const char* name;
    std::string deck;
    const char* targets;
    std::string out; ///< kind, keyword, item, detail and count of each, and the line of the first
};

class Losses : public testing::TestWithParam<PortCase> { };

std::string LossesOf(const json& answer)
{
    std::string text;
    for (const json& loss : answer.at("losses")) {
        text += text.empty() ? "" : "; ";
        for (const char* const member : {"kind", "keyword", "item", "detail"})
            text += loss.at(member).is_null() ? "" : loss.at(member).get<std::string>() + ' ';
        text +=
            std::to_string(loss.at("count").get<int>()) + " from line " + loss.at("first").at("line").dump();
    }
    return text;
}

TEST_P(Losses, AreFound)
{
    const TemporaryDirectory folder;
    const std::string document = folder.Write("main.xml", Document(lossLanguage));
    folder.Write("trusted/none.xml", Document(""));
    const Outcome outcome = Analyse(std::string("port a.data --format json ") + GetParam().targets,
        "RUNSPEC\nGRID\n" + GetParam().deck, {},
        std::string(mainVariable) + "=" + Quote(document) + " " + trustedVariable + "="
            + Quote((folder.Path() / "trusted").string()));
    EXPECT_EQ(outcome.status, GetParam().out.empty() ? 0 : 1);
    EXPECT_EQ(LossesOf(json::parse(outcome.out)), GetParam().out);
}

INSTANTIATE_TEST_SUITE_P(Decks, Losses,
    testing::Values(
        PortCase{"Keyword", "ONLY\nONLY\n", "--to Carrow", "keyword-not-valid ONLY 2 from line 3"},
        PortCase{"Items", "REC\n 1 /\n 1 4 5 /\n 1 6 7 A /\n/\n", "--to Carrow",
            "item-not-valid REC NEW 2 from line 5; item-unsupported REC IDLE 2 from line 5"},
        PortCase{"Words", "REC\n 1 2* A /\n 1 2* B /\n 1 2* C /\n/\n", "--to Carrow",
            "choice-not-valid REC WORD B 1 from line 5; choice-unsupported REC WORD C 1 from line 6"},
        PortCase{"OtherDefault", "REC\n 1 /\n 1* /\n 2* /\n/\n", "--to Carrow",
            "other-default REC N 1 -> 2 2 from line 5"},
        PortCase{"CalculatedDefault", "REC\n 1* /\n/\n", "--from Carrow --to Sedge",
            "other-default REC N 2 -> calculated 1 from line 4"},
        PortCase{"NoDefault", "REC\n 1* /\n/\n", "--to Wend", "no-default REC N 1 -> none 1 from line 4"},
        PortCase{"SameDefault", "REC\n 1* /\n/\n", "--from Hallow --to Ostrey", ""},
        PortCase{"DefaultedElements", "ARRAY\n 1 3* 4 /\n", "--to Carrow",
            "other-default ARRAY 1 -> 2 3 from line 3"},
        PortCase{"Map", "MAP\n KEY=1 /\n", "--to Carrow", "item-not-valid MAP KEY 1 from line 3"},
        PortCase{"WhatWasntThere", "ONLY\nMAP\n KEY=1 /\nREC\n 1 4 /\n 1 2* B /\n/\n",
            "--from Wend_GE --to Marlpit", ""},
        PortCase{"BehindASkip", "SKIPCAR\nONLY\nENDSKIP\n", "--to Carrow", ""}),
    CaseName<PortCase>);

TEST(Loss, OfEachPlaceIsListedIfAskedFor)
{
    const std::string deck = "SCHEDULE\nTIME\n 1 /\nTIME\n 2 /\n";
    const Outcome outcome = Analyse("port a.data --to Carrow --all", deck);
    EXPECT_TRUE(
        Holds(outcome.out, "  TIME in SCHEDULE  2      a.data:2\n                           a.data:4\n"))
        << outcome.out;
    EXPECT_TRUE(Holds(outcome.out, "lost for Carrow: 1 feature in 2 locations\n")) << outcome.out;
}

// All three

TEST(Analysis, GoesOnBehindErrorsAndSaysSo)
{
    for (const std::string arguments : {"info a.data", "diff a.data a.data", "port a.data --to Carrow"}) {
        const Outcome outcome = Analyse(arguments, runspec + "NOSUCH\n");
        EXPECT_EQ(outcome.status, 0) << arguments;
        EXPECT_TRUE(Holds(outcome.err, "a.data has 1 error; run 'quor check a.data")) << outcome.err;
    }
}

} // namespace
