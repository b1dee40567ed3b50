#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;
using nlohmann::json;

namespace {

// Differences

/// `a & b`, and what is told of them, without the count; nothing if they say the same.
class Differences : public testing::TestWithParam<Row> { };

TEST_P(Differences, ArePrintedByDateAndRecord)
{
    const auto decks = Split(GetParam().text, " & ");
    const Outcome outcome = Analyse("diff a.data b.data " + GetParam().options, decks.at(0), decks.at(1));
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, GetParam().expected.empty() ? 0 : 1);
    const std::size_t last = outcome.out.find_last_of('\n', outcome.out.size() - 2);
    const std::string heading = GetParam().expected.empty() ? "" : "A: a.data\nB: b.data\n";
    EXPECT_EQ(last == std::string::npos ? "" : outcome.out.substr(0, last), heading + GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Same, Differences, testing::ValuesIn(Rows(R"(
Layout: {runspec}GRID\nPORO\n 4*0.2 /\n & -- a comment\n{runspec}GRID\n\nPORO\n 0.2 2*0.2\n 2.0E-1 /\nEND\n =>
RecordsSpreadAndInAnyOrder: {schedule}WCONPROD\n P1 OPEN ORAT 5 /\n P2 OPEN ORAT 6 /\n/\n & {schedule}WCONPROD\n P2 OPEN ORAT 6 /\n/\nWCONPROD\n P1 OPEN ORAT 5 /\n/\n =>
DefaultGiven: {schedule}WCONPROD\n P1 1* ORAT 5 /\n/\n & {schedule}WCONPROD\n P1 OPEN ORAT 5 5* 0 /\n/\n =>
CaseOfNames: {schedule}WCONPROD\n P1 OPEN ORAT 5 /\n/\n & {schedule}WCONPROD\n 'p1' OPEN ORAT 5 /\n/\n =>
StepsAndDates: {runspec}{schedule}TSTEP\n 31 29 /\n & {runspec}{schedule}DATES\n 1 FEB 2020 /\n 1 MAR 2020 /\n/\n =>
DefaultedCells: {runspec}GRID\nMULTX\n 2* 2*3 /\n & {runspec}GRID\nMULTX\n 1 1 3 3 /\n =>
MapInAnyOrder: SCHEDULE\nRPTSCHED\n FIP=2 WELLS=3 /\n & SCHEDULE\nRPTSCHED\n WELLS=3 FIP=2 /\n =>
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Told, Differences, testing::ValuesIn(Rows(R"(
Item: {schedule}WCONPROD\n P1 OPEN ORAT 5 /\n P2 OPEN ORAT 5 /\n/\n & {schedule}WCONPROD\n P2 OPEN ORAT 6 /\n P1 SHUT ORAT 5 /\n/\n =>
    SCHEDULE
      ~ WCONPROD P1: STATUS OPEN -> SHUT   (A 7, B 8)
      ~ WCONPROD P2: ORAT 5 -> 6   (A 8, B 7)
LeftOut: {schedule}WCONPROD\n P1 OPEN ORAT 5 /\n/\n & {schedule}WCONPROD\n P1 OPEN ORAT 1* 7 3* 2.5 /\n/\n =>
    SCHEDULE
      ~ WCONPROD P1: ORAT 5 -> default (calculated)   (A 7, B 7)
      ~ WCONPROD P1: WRAT default (calculated) -> 7   (A 7, B 7)
      ~ WCONPROD P1: BHP default (1.01325) -> 2.5   (A 7, B 7)
Strictly (--strict): {schedule}WCONPROD\n P1 1* ORAT 5 /\n/\n & {schedule}WCONPROD\n P1 OPEN ORAT 5 /\n/\n =>
    SCHEDULE
      ~ WCONPROD P1: STATUS default (OPEN) -> OPEN   (A 7, B 7)
DefaultOfTheSimulator (--simulator Hallow): SCHEDULE\nNUPCOL\n/\n & SCHEDULE\nNUPCOL\n 3 /\n =>
    SCHEDULE
      ~ NUPCOL: NUPCOL default (5) -> 3   (A 2, B 2)
RecordsAddedAndGone: {schedule}WCONPROD\n P1 OPEN ORAT 5 /\n/\n & {schedule}WCONPROD\n P2 OPEN ORAT 5 /\n/\n =>
    SCHEDULE
      - WCONPROD P1   (A 7)
      + WCONPROD P2   (B 7)
Dates: {runspec}{schedule}DATES\n 1 FEB 2020 /\n 1 MAR 2020 /\n/\nWCONPROD\n P1 OPEN ORAT 5 /\n/\n & {runspec}{schedule}DATES\n 1 FEB 2020 /\n/\nWCONPROD\n P1 OPEN ORAT 5 /\n/\n =>
    SCHEDULE, 2020-02-01
      + WCONPROD P1   (B 16)
    SCHEDULE, 2020-03-01
      - report   (A 14)
      - WCONPROD P1   (A 17)
StepsWithoutDates: {schedule}TSTEP\n 2*1 /\nWCONPROD\n P1 OPEN ORAT 5 /\n/\n & {schedule}TSTEP\n 1 /\nTSTEP\n 3 /\nWCONPROD\n P1 OPEN ORAT 6 /\n/\n =>
    SCHEDULE, report step 2
      ~ WCONPROD P1: ORAT 5 -> 6   (A 9, B 11)
Arrays: {runspec}GRID\nPORO\n 0.2 0.2 0.3 0.4 /\n & {runspec}GRID\nPORO\n 0.2 0.25 0.3 0.1 /\n =>
    GRID
      ~ PORO: 2 of 4 differ, first [2]: 0.2 -> 0.25, by 0.3 at most   (A 8, B 8)
ArrayOfAnotherSize: GRID\nPORO\n 0.2 0.2 /\n & GRID\nPORO\n 0.2 0.2 0.3 /\n =>
    GRID
      ~ PORO: 2 values -> 3   (A 2, B 2)
OneOfSeveralArrays: {runspec}GRID\nPORO\n 4*1 /\nPORO\n 4*0.5 /\nPORO\n 4*0 /\n & {runspec}GRID\nPORO\n 4*1 /\nPORO\n 4*0 /\n =>
    GRID
      - PORO   (A 10)
RowOfATable: PROPS\nSWOF\n 0.1 0 1 0\n 0.5 0.2 0.2 0\n 1 1 0 0 /\n & PROPS\nSWOF\n 0.1 0 1 0\n 0.3 0.1 0.5 0\n 0.5 0.2 0.2 0\n 1 1 0 0 /\n =>
    PROPS
      ~ SWOF: [1][2] absent -> 0.3 0.1 0.5 0   (A 2, B 2)
RowsOfATable: PROPS\nSWOF\n 0.1 0 1 0\n 0.5 0.2 0.2 0\n 0.7 0.4 0.1 0\n 1 1 0 0 /\n & PROPS\nSWOF\n 0.1 0 0.9 0\n 0.5 0.3 0.2 0\n 0.7 0.5 0.1 0\n 1 0.9 0 0 /\n =>
    PROPS
      ~ SWOF: [1] 4 of 4 rows differ, first [1]: 0.1 0 1 0 -> 0.1 0 0.9 0   (A 2, B 2)
RowsOfALongerTable: PROPS\nSWOF\n 0.1 0 1 0\n 1 1 0 0 /\n & PROPS\nSWOF\n 0.1 0 1 0\n 0.2 0.1 0.9 0\n 0.3 0.2 0.8 0\n 0.4 0.3 0.7 0\n 0.5 0.4 0.6 0\n 1 1 0 0 /\n =>
    PROPS
      ~ SWOF: [1] 2 rows -> 6, first [2]: absent -> 0.2 0.1 0.9 0   (A 2, B 2)
TableOfAList: RUNSPEC\nTABDIMS\n 1 /\nPROPS\nSWOF\n 0.1 0 1 0\n 1 1 0 0 /\n & RUNSPEC\nTABDIMS\n 2 /\nPROPS\nSWOF\n 0.1 0 1 0\n 1 1 0 0 /\n 0.2 0 1 0\n 1 1 0 0 /\n =>
    RUNSPEC
      ~ TABDIMS: NTSFUN 1 -> 2   (A 2, B 2)
    PROPS
      ~ SWOF: [2] absent -> a table of 2 rows   (A 5, B 5)
Map: SCHEDULE\nRPTSCHED\n FIP=2 WELLS /\n & SCHEDULE\nRPTSCHED\n FIP=1 WELLS /\n =>
    SCHEDULE
      ~ RPTSCHED: FIP 2 -> 1   (A 2, B 2)
Raw: RUNSPEC\nNOTES\nas it was\nto the end\nENDNOTES\n & RUNSPEC\nNOTES\nas it was\nto an end\nENDNOTES\n =>
    RUNSPEC
      ~ NOTES: text to the end -> to an end   (A 2, B 2)
Variables (--set A=5 --set B=5): {schedule}WCONPROD\n P1 OPEN ORAT $A /\n/\n & {schedule}WCONPROD\n P1 OPEN ORAT $B /\n/\n =>
    SCHEDULE
      ~ WCONPROD P1: variables ORAT $A -> ORAT $B   (A 7, B 7)
Sections: GRID\nNOECHO\nPROPS\n & GRID\nPROPS\nNOECHO\n =>
    GRID
      - NOECHO   (A 2)
    PROPS
      + NOECHO   (B 3)
Scopes: {runspec}LGR\n 2 4 /\nGRID\nCARFIN\n A 1 1 1 1 1 1 1 1 1 /\nPORO\n 0.1 /\nENDFIN\nCARFIN\n B 2 2 1 1 1 1 1 1 1 /\nPORO\n 0.2 /\nENDFIN\n & {runspec}LGR\n 2 4 /\nGRID\nCARFIN\n B 2 2 1 1 1 1 1 1 1 /\nPORO\n 0.3 /\nENDFIN\nCARFIN\n A 1 1 1 1 1 1 1 1 1 /\nPORO\n 0.1 /\nENDFIN\n =>
    GRID
      ~ PORO: 1 of 1 differ, first [1]: 0.2 -> 0.3   (A 17, B 12)
ScopeThatEndsLater: {runspec}{schedule}ACTION\n A FOPR > 5 /\nTSTEP\n 1 /\nWCONPROD\n P1 OPEN ORAT 5 /\n/\nTSTEP\n 1 /\nENDACTIO\n & {runspec}{schedule}ACTION\n A FOPR > 5 /\nENDACTIO\nTSTEP\n 1 /\nWCONPROD\n P1 OPEN ORAT 5 /\n/\nTSTEP\n 1 /\n =>
    SCHEDULE
      + ENDACTIO   (B 14)
    SCHEDULE, 2020-01-02
      - WCONPROD P1   (A 17)
      + WCONPROD P1   (B 18)
    SCHEDULE, 2020-01-03
      - ENDACTIO   (A 21)
)")),
    CaseName<Row>);

/// One record for each of many wells, the numbers of which go up or down.
std::string ManyRecords(bool isTurned)
{
    std::string text = "SCHEDULE\nWELSPECS\n P G 1 1 1* OIL /\n/\nWCONPROD\n";
    for (int i = 0; i < 100'000; ++i)
        text += " P" + std::to_string(isTurned ? 99'999 - i : i) + " OPEN ORAT 5 /\n";
    return text + "/\n";
}

TEST(Difference, MatchesManyRecordsInAnyOrder) // each with each, it would take hours
{
    EXPECT_EQ(Analyse("diff a.data b.data", ManyRecords(false), ManyRecords(true)).out,
        "0 changed, 0 added, 0 removed\n");
}

TEST(Difference, ShowsAChoiceWithoutAValue)
{
    const std::string before = "RUNSPEC\nCOMPS\n 1 /\nPROPS\nEOS\n ";
    const Outcome outcome = Analyse("diff a.data b.data", before + "$A /\n", before + "PR /\n");
    EXPECT_TRUE(Holds(outcome.out, "  ~ EOS: [1] unknown value -> PR   (A 5, B 5)\n")) << outcome.out;
}

TEST(Difference, AsJsonHasValuesAndPlaces)
{
    const Outcome outcome = Analyse("diff a.data b.data --format json", "{runspec}GRID\nPORO\n 4*1 /\n",
        "{runspec}GRID\nPORO\n 3*1 0 /\n");
    const json change = json::parse(outcome.out).at("changes").at(0);
    EXPECT_EQ(change.at("array").dump(),
        R"({"differing":1,"first":4,"greatest":1.0,"rows":false,"sizeAfter":4,"sizeBefore":4})");
    EXPECT_EQ(change.at("b").dump(), R"({"file":"b.data","line":8})");
}

// Summaries

/// `deck at pointer into the JSON`, and the value there.
class Summaries : public testing::TestWithParam<Row> { };

TEST_P(Summaries, HaveTheValueInJson)
{
    const auto parts = Split(GetParam().text, " at ");
    const Outcome outcome = Analyse("info a.data --format json", parts.at(0), "PORO\n 4*1 /\n");
    EXPECT_EQ(outcome.status, 0);
    const json summary = json::parse(outcome.out);
    EXPECT_EQ(summary.at(json::json_pointer(parts.at(1))).dump(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Decks, Summaries, testing::ValuesIn(Rows(R"(
Title: RUNSPEC\nTITLE\n  Two wells\n at /title => "Two wells"
Included: {runspec}GRID\nINCLUDE\n 'b.data' /\n at /files/1 => {"bytes":12,"depth":1,"keywords":1,"name":"b.data"}
Sections: {runspec}GRID\n at /sections/1 => {"keywords":1,"place":{"file":"a.data","line":7},"section":"GRID"}
SizesButNoDates: {runspec} at /sizes => [{"keyword":"DIMENS","sizes":{"NX":2,"NY":2,"NZ":1}}]
Options: {runspec}LAB\nECHO\n at /options => ["OIL","ECHO"]
Units: {runspec}LAB\n at /units => "LAB"
HoursOfTheLaboratory: {runspec}LAB\nSCHEDULE\nTSTEP\n 36 /\n at /end => "2020-01-02 12:00:00"
Reports: {runspec}{schedule}TSTEP\n 3*10 /\nDATES\n 1 JAN 2021 /\n/\n at /reports => 4
NoStart: SCHEDULE\nTSTEP\n 3 /\n at /end => null
LastControl: {schedule}{control} at /wells/1/control => "WCONINJE WATER RATE"
ControlByBeginning: {schedule}{control} at /wells/0/control => "WCONPROD ORAT"
ControlOfAShutWell: {schedule}WCONHIST\n P1 SHUT /\n/\n at /wells/0/control => "WCONHIST SHUT"
ControlOfAWellThatIsShutLater: {schedule}{control}WELOPEN\n P1 SHUT /\n P2 SHUT /\n P2 SHUT 1 1 1 /\n P2 OPEN /\n/\n at /wells => [{"completions":0,"control":"WELOPEN SHUT","group":"G1","name":"P1","since":null},{"completions":0,"control":"WCONINJE WATER RATE","group":"G1","name":"P2","since":null}]
PaddedName: SCHEDULE\nWELSPECS\n 'A B  ' ' G1' 1 1 1* OIL /\n/\nCOMPDAT\n 'A B' 1 1 1 2 /\n/\n at /wells/0 => {"completions":2,"control":null,"group":"G1","name":"A B","since":null}
ArraySetAndCopied: {runspec}GRID\nEQUALS\n PERMX 100 /\n PERMX 50 2 2 /\n/\nCOPY\n PERMX PERMY /\n PERMX PERMZ /\n/\nMULTIPLY\n PERMZ 0.1 /\n/\n at /arrays => [{"array":"PERMX","cells":4,"greatest":100.0,"keywords":["EQUALS"],"least":50.0,"mean":75.0,"place":{"file":"a.data","line":8},"reason":null,"unknown":0},{"array":"PERMY","cells":4,"greatest":100.0,"keywords":["COPY"],"least":50.0,"mean":75.0,"place":{"file":"a.data","line":12},"reason":null,"unknown":0},{"array":"PERMZ","cells":4,"greatest":10.0,"keywords":["COPY","MULTIPLY"],"least":5.0,"mean":7.5,"place":{"file":"a.data","line":16},"reason":null,"unknown":0}]
ArrayInABox: {runspec}GRID\nPORO\n 4*0.1 /\nBOX\n 1 1 2 2 1 1 /\nPORO\n 0.3 /\nADD\n PORO 0.1 /\n/\nENDBOX\nMAXVALUE\n PORO 0.3 /\n/\n at /arrays/0 => {"array":"PORO","cells":4,"greatest":0.3,"keywords":["PORO","ADD","MAXVALUE"],"least":0.1,"mean":0.15,"place":{"file":"a.data","line":18},"reason":null,"unknown":0}
ArrayInRegions: {runspec}GRID\nMULTNUM\n 1 2 1 2 /\nPORO\n 4*0.1 /\nEQUALREG\n PORO 0.3 2 /\n/\n at /arrays/0/mean => 0.2
ArrayThatIsOnlyGiven: {runspec}GRID\nPERMX\n 4*100 /\nPORO\n 4*0.1 /\nCOPY\n PERMX PERMY /\n/\nADD\n PORO 0.1 /\n/\n at /arrays => [{"array":"PERMY","cells":4,"greatest":100.0,"keywords":["COPY"],"least":100.0,"mean":100.0,"place":{"file":"a.data","line":12},"reason":null,"unknown":0},{"array":"PORO","cells":4,"greatest":0.2,"keywords":["PORO","ADD"],"least":0.2,"mean":0.2,"place":{"file":"a.data","line":15},"reason":null,"unknown":0}]
ArrayOfPart: {runspec}GRID\nEQUALS\n PORO 0.2 1 1 1 1 /\n/\n at /arrays/0/unknown => 3
ArrayOfNothing: {runspec}GRID\nCOPY\n PERMX PERMY /\n/\n at /arrays/0/reason => "PERMX has no values before COPY"
ArrayOfNoNumbers: {runspec}GRID\nNOECHO\nCOPY\n NOECHO PORO /\n/\n at /arrays/0/reason => "NOECHO has no values before COPY"
ArrayThatIsNotSet: {runspec}GRID\nCOPY\n PERMX PERMY /\n/\n at /arrays/1/reason => "the deck doesn't set it"
ArrayWithoutAGrid: GRID\nEQUALS\n PORO 0.2 /\n/\n at /arrays/0/reason => "the size of the grid isn't known, or too large"
ArrayOfAnError: {runspec}GRID\nEQUALS\n PORO x /\n/\n at /arrays/0/reason => "EQUALS has errors"
ArrayNotWorkedOut: {runspec}GRID\nPORO\n 4*0.1 /\nOPERATE\n PORO 6* MULTA PORO 2 1 /\n/\n at /arrays/0/reason => "OPERATE isn't worked out"
ArrayOfAVariable: {runspec}GRID\nEQUALS\n PORO $A /\n/\n at /arrays/0/reason => "a value of EQUALS isn't known"
CompletionsOnce: {schedule}{completions} at /wells/0/completions => 4
LayersInTheWrongOrder: {schedule}COMPDAT\n P1 1 1 3 1 /\n/\n at /wells/0/completions => 0
Since: {runspec}SCHEDULE\nTSTEP\n 1 /\nWELSPECS\n P1 G1 1 1 1* OIL /\n/\n at /wells/0/since => "2020-01-02"
Groups: {schedule}GRUPTREE\n G1 PLAT /\n/\n at /groups => [{"name":"FIELD","parent":null,"wells":0},{"name":"PLAT","parent":"FIELD","wells":0},{"name":"G1","parent":"PLAT","wells":2}]
GroupsInACircle: SCHEDULE\nGRUPTREE\n A B /\n B A /\n/\n at /groups/2 => {"name":"A","parent":"B","wells":0}
Properties: {runspec}GRID\nMULTX\n 2* -0 4 /\n at /properties/0 => {"count":4,"defaulted":2,"greatest":4.0,"keyword":"MULTX","least":-0.0,"mean":2.0,"measurement":null,"place":{"file":"a.data","line":8},"property":"MULTX","unknown":0}
UnknownCells: {runspec}GRID\nMULTX\n 1* 2 $V 4 /\n at /properties/0 => {"count":4,"defaulted":1,"greatest":4.0,"keyword":"MULTX","least":2.0,"mean":3.0,"measurement":null,"place":{"file":"a.data","line":8},"property":"MULTX","unknown":1}
AllDefaulted: {runspec}GRID\nMULTX\n 4* /\n at /properties/0/mean => null
)")),
    CaseName<Row>);

TEST(Summary, ListsTheFirstRowsUnlessAskedForAll)
{
    std::string deck = "SCHEDULE\nWELSPECS\n";
    for (int i = 0; i < 25; ++i)
        deck += " P" + std::to_string(i) + " G 1 1 1* OIL /\n";
    const Outcome few = Analyse("info a.data", deck + "/\n");
    EXPECT_TRUE(Holds(few.out, "25 wells\n")) << few.out;
    EXPECT_TRUE(Holds(few.out, "  5 more; use --wells to list all\n")) << few.out;
    EXPECT_TRUE(Holds(Analyse("info a.data --wells", deck + "/\n").out, "  P24 "));
    EXPECT_TRUE(Holds(Analyse("info a.data", "{runspec}GRID\nPORO\n 4*0.5 /\nADD\n PORO 0.5 /\n/\n").out,
        "  PORO   given, ADD  4      0        1    1     1\n"));
}

// All

TEST(Analysis, GoesOnBehindErrorsAndSaysSo)
{
    for (const std::string arguments : {"info a.data", "diff a.data a.data", "port a.data --to Carrow"}) {
        const Outcome outcome = Analyse(arguments, "{runspec}NOSUCH\n");
        EXPECT_EQ(outcome.status, 0) << arguments;
        EXPECT_TRUE(Holds(outcome.err, "a.data has 1 error; run 'quor check a.data")) << outcome.err;
    }
}

} // namespace
