#include "quor/deck/Deck.h"

#include "tests/deck/DeckRow.h"
#include "tests/support/Cases.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

/// 200 wells whose control is given twice, in two months; `change` replaces a line of the first month.
std::string ManyWells(int change, const std::string& record)
{
    std::string deck = "RUNSPEC\nOIL\nSCHEDULE\nWELSPECS\n";
    for (int well = 0; well < 200; ++well)
        deck += fmt::format(" W{} G 1 1 1* OIL /\n", well);
    for (const char* const month : {"FEB", "MAR"}) {
        deck += "/\nWCONPROD\n";
        for (int well = 0; well < 200; ++well)
            deck += well == change && month == std::string("FEB")
                ? record + "\n"
                : fmt::format(" W{} {} ORAT 50 /\n", well, well % 2 == 0 ? "OPEN" : "SHUT");
        deck += fmt::format("/\nDATES\n 1 {} 2030 /\n", month);
    }
    return deck + "/\n";
}

TEST(RecordsOfALongList, AreJudgedAsThoseOfAShortOne)
{
    static const DeckLanguage language;
    const struct {
        int record;
        const char* text;
        const char* finding;
    } cases[] = {
        {150, " W150\n OPEN ORAT 50 /", ""},
        {150, " 'w150' 'SHUT' 'ORAT' 50 /", ""},
        {150, " $W OPEN ORAT 50 /", "unknown-variable"},
        {0, " X0 OPEN ORAT 50 /", "undefined-name"},
        {63, " X63 OPEN ORAT 50 /", "undefined-name"},
        {64, " X64 OPEN ORAT 50 /", "undefined-name"},
        {199, " X199 OPEN ORAT 50 /", "undefined-name"},
        {199, " W199 OPEN ORAT /", "missing-item"},
        {199, " W0 OPEN ORAT 50 /", "repeated-record"},
        {70, " w60 SHUT ORAT 50 /", "repeated-record"},
        {70, " W199 SHUT ORAT 50 /", "repeated-record"},
        {70, " 1* OPEN ORAT 50 /", "no-default"},
        {70,
            " W70 OPEN ORAT 50 /\n/\nWCONINJE\n W68 OIL OPEN RATE 9 /\n W69 OIL OPEN RATE 9 "
            "/\n/\nWCONPROD",
            "repeated-record"},
    };
    for (const auto& row : cases) {
        std::string found;
        for (const Finding& finding :
            Deck::ReadText(ManyWells(row.record, row.text), language, {}, "d").GetFindings())
            found += finding.code;
        EXPECT_EQ(found, row.finding) << row.record << row.text;
    }
}

TEST(Suggestions, AreMadeUntilTwoMillionNamesWereCompared)
{
    static const DeckLanguage language;
    constexpr int wells = 2'000;
    std::string deck = "SCHEDULE\nWELSPECS\n";
    for (int well = 0; well < wells; ++well)
        deck += fmt::format(" W{} G 1 1 1* OIL /\n", well);
    deck += "/\nWELOPEN\n";
    for (int well = 0; well < 1'001; ++well)
        deck += fmt::format(" W{} OPEN /\n", wells + well);
    const Deck read = Deck::ReadText(deck + "/\n", language, ReadOptions().SetMaxFindings(2'000), "d");
    const std::vector<Finding>& findings = read.GetFindings().GetKept();
    ASSERT_EQ(findings.size(), 1'001U);
    EXPECT_EQ(findings[999].hint, "did you mean W299, W999, W1999?");
    EXPECT_EQ(findings[1'000].hint, "define the well with WELSPECS before it is named");
}

INSTANTIATE_TEST_SUITE_P(Records, DeckFindings,
    testing::Values(
        DeckRow{"LackATarget", R"(RUNSPEC
OIL
SCHEDULE
WCONPROD
 P1 OPEN ORAT 1* 50 /
 P2 OPEN ORAT 0 50 /
 P3 SHUT ORAT /
 P4 OPEN BHP 6* 90 10 0 /
 P5 OPEN ORAT WUX 50 /
/
WCONINJE
 I1 WATER OPEN RATE 100 /
 I2 OIL OPEN RATE 100 /
/
)",
            "d:5:10: warning: WCONPROD: CONTROL is ORAT; expected a value for ORAT [missing-item] | add the "
            "value, or change CONTROL\nd:12:5: error: WCONINJE: TYPE is WATER; expected keyword WATER, "
            "CO2STORE or "
            "H2STORE in the deck [missing-keyword] | add the keyword, or change TYPE"},
        DeckRow{"ForTheSame", R"(SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
 p1 G 2 1 1* OIL /
/
COMPDAT
 P1 1 1 1 2 OPEN /
 P1 1 1 2 2 OPEN /
 P1 2* 3 3 /
 P1 2* 3 3 /
/
)",
            "d:4:2: warning: WELSPECS: repeated record for WELL p1 [repeated-record] | correct the record, "
            "or remove one of them (d:3:2: the first is here)\nd:10:2: warning: COMPDAT: repeated record for "
            "WELL P1, K1 3, K2 3 [repeated-record] | correct the record, or remove one of them (d:9:2: the "
            "first is here)"},
        DeckRow{"AnArrayTwice",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nGRID\nPORO\n 2*0.2 /\nPORO\n 2*0.3 /\nMULTX\n 2*1 /\nBOX\n 1 1 1 1 "
            "1 1 /\nPORO\n 0.2 /\nENDBOX\nNTG\n 2*1 /\nMULTIPLY\n NTG 0.5 /\n/\nNTG\n 2*1 /\n",
            "d:7:1: warning: PORO is given again for the same cells [repeated-array] | remove the one that "
            "does not apply (d:5:1: its values from here have no effect)"},
        DeckRow{"OfATree", R"(SCHEDULE
WELSPECS
 P1 A 1 1 1* OIL /
 P2 C 1 1 1* OIL /
 P3 FIELD 1 1 1* OIL /
/
GRUPTREE
 A B /
 B A /
 D C /
 E FIELD /
/
)",
            "d:8:4: error: GRUPTREE: group 'A' is below itself [name-tree] | correct the name of the group "
            "above it"},
        DeckRow{"OfATreeWithoutALoop",
            "SCHEDULE\nWELSPECS\n P1 C 1 1 1* OIL /\n P2 FIELD 1 1 1* OIL /\n/\nGRUPTREE\n D C /\n E FIELD "
            "/\n/\n",
            "d:3:5: error: WELSPECS: group 'C' has groups below it; expected no wells [name-tree] | put them "
            "into a separate group (d:7:4: a group is put below it here)"},
        DeckRow{"OfAStep", R"(RUNSPEC
WATER
VFPPDIMS
 1 1 1 1 1 2 /
SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
/
COMPDAT
 P1 1 1 1 1 OPEN /
/
VFPPROD
 1 0 LIQ WCT GOR /
 1 /
 1 /
 0 /
 0 /
 0 /
 1 1 1 1 5 /
VFPPROD
 1 0 LIQ WCT GOR /
 1 /
 1 /
 0 /
 0 /
 0 /
 1 1 1 1 6 /
WCONPROD
 P1 OPEN ORAT 5 /
/
WCONINJE
 P1 WATER OPEN RATE 5 /
/
TSTEP
 1 /
WCONPROD
 P1 OPEN ORAT 5 /
/
)",
            "d:21:2: warning: VFPPROD: repeated record for TABLE 1 [repeated-record] | correct the record, "
            "or "
            "remove one of them (d:12:1: the first is here)\nd:32:2: warning: WCONINJE: WELL P1 is in "
            "WCONPROD too [repeated-record] | correct the record, or remove one of them (d:29:2: the first "
            "is "
            "here)"},
        DeckRow{"OfTwoKeywordsWhoseWellsAreUnsure", R"(SCHEDULE
WELSPECS
 $W G 1 1 1* OIL /
/
WCONPROD
 P1 OPEN ORAT 5 /
 P2 OPEN ORAT 5 /
/
WCONHIST
 P1 SHUT ORAT 5 /
 P2 OPEN ORAT 5 /
/
)",
            "d:3:2: error: variable '$W' has no value [unknown-variable] | set the variable $W\nd:11:2: "
            "warning: "
            "WCONHIST: WELL P2 is in WCONPROD too [repeated-record] | correct the record, or remove one of "
            "them (d:7:2: the first is here)"},
        DeckRow{"AfterSomeWithoutAny", R"(RUNSPEC
WATER
SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
 P2 G 1 1 1* OIL /
 P3 G 1 1 1* OIL /
/
COMPDAT
 P1 1 1 1 1 OPEN /
 P2 1 1 1 1 OPEN /
 P3 1 1 1 1 OPEN /
/
WCONPROD
 P1 OPEN ORAT 5 /
 P2 OPEN ORAT 5 /
 P3 OPEN ORAT 5 /
/
TSTEP
 1 /
WCONPROD
 P1 OPEN ORAT 6 /
 P2 OPEN ORAT 6 /
 P3 OPEN ORAT 6 /
/
WCONINJE
 P3 WATER SHUT RATE 5 /
/
TSTEP
 1 /
WCONPROD
 P2 OPEN ORAT 7 /
 P1 OPEN ORAT 7 /
 P2 OPEN ORAT 7 /
/
WCONINJE
 P3 WATER OPEN RATE 5 /
 P1 WATER OPEN RATE 5 /
/
TSTEP
 1 /
WCONPROD
 P1 OPEN ORAT 8 /
 P3 OPEN ORAT 1* 5 /
 P4 OPEN ORAT 8 /
/
)",
            "d:34:2: warning: WCONPROD: repeated record for WELL P2 [repeated-record] | correct the record, "
            "or remove one of them (d:32:2: the first is here)\nd:38:2: warning: WCONINJE: WELL P1 is in "
            "WCONPROD too [repeated-record] | correct the record, or remove one of them (d:33:2: the first "
            "is here)\nd:44:10: warning: WCONPROD: CONTROL is ORAT; expected a value for ORAT [missing-item] "
            "| add the value, or change CONTROL\nd:45:2: error: WCONPROD: undefined well 'P4' "
            "[undefined-name] | did you mean P1, P2, P3?"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Matches, DeckFindings,
    testing::Values(DeckRow{"OfCompletionsAndSegments", R"(SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
 P2 G 1 1 1* OIL /
/
COMPDAT
 P1 2* 1 4 OPEN /
 P2 3 3 1 1 OPEN /
/
WELOPEN
 P1 SHUT 1 1 4 /
 P2 SHUT 3 3 2 /
 P2 SHUT 0 0 0 /
/
WELSEGS
 P1 10 10 1* ABS /
 2 5 1 1 20 20 0.1 0.001 /
 6 6 1 8 30 30 0.1 0.001 /
/
COMPSEGS
 P1 /
 1 1 5 1 10 20 /
/
WSEGVALV
 P1 6 0.7 0.001 /
 P1 9 0.7 0.001 /
/
)",
                        "d:12:10: error: WELOPEN: 'P2' has no completion at I 3, J 3, K 2 [undefined-name] | "
                        "correct the numbers, or define the completion with COMPDAT\n"
                        "d:22:2: error: COMPSEGS: 'P1' has no completion at I 1, J 1, K 5 [undefined-name] | "
                        "correct the numbers, or define the completion with COMPDAT\n"
                        "d:18:8: error: WELSEGS: 'P1' has no segment at OUTLET 8 [undefined-name] | correct "
                        "the numbers, or define the segment with WELSEGS\n"
                        "d:26:5: error: WSEGVALV: 'P1' has no segment at SEGMENT 9 [undefined-name] | "
                        "correct the numbers, or define the segment with WELSEGS"},
        DeckRow{"OfAWellThatNothingCompletes",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n P2 G 1 1 1* OIL /\n/\nCOMPDAT\n P1 2* 1 4 OPEN "
            "/\n/\nWCONPROD\n P2 SHUT ORAT 5 /\n/\nWCONPROD\n P2 OPEN ORAT 5 /\n/\nWELSEGS\n Q1 10 10 1* ABS "
            "/\n"
            " 2 5 1 1 20 20 0.1 0.001 /\n/\nCOMPSEGS\n P1 /\n 1 1 1 1 10 20 /\n/\n",
            "d:16:2: error: WELSEGS: undefined well 'Q1' [undefined-name] | did you mean P1?\n"
            "d:13:2: warning: WCONPROD: undefined well with completions 'P2' [undefined-name] | did you mean "
            "P1?"},
        DeckRow{"OfACompletionByAPattern",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nCOMPDAT\n 'P*' 2* 1 4 OPEN /\n P1 2* 1 1 OPEN "
            "/\n/\nWELOPEN\n P1 SHUT 1 1 9 /\n/\n",
            ""}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Outputs, DeckFindings,
    testing::Values(
        DeckRow{"OfAnAquiferARegionAWell", R"(RUNSPEC
REGDIMS
 2 /
DIMENS
 3 1 1 /
GRID
EQUALS
 PERMX -5 /
/
REGIONS
FIPNUM
 1 2 3 /
SOLUTION
AQUFLUX
 1 5 /
/
SUMMARY
AAQR
 1 2 /
RPR
 1 3 4 /
WOPR
 P /
SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
/
UDQ
 DEFINE WUX WOPR * 2 /
/
ACTIONX
 A 1 /
 WUX Q7 > 5 AND /
 WUY P1 > 5 /
/
ENDACTIO
)",
            "d:8:8: error: EQUALS, PERMX: value -5 is too small (expected at least 0) [out-of-range]\n"
            "d:21:6: warning: RPR: number 4, but NTFIP is 2 [index-outside] (d:2:1: NTFIP is 2 here)\n"
            "d:19:4: error: AAQR: undefined aquifer '2' [undefined-name] | define the aquifer with AQUCT, "
            "AQUFETP, AQUFLUX, AQUCHWAT, AQUCHGAS, HMAQUCT or HMAQUFET\n"
            "d:23:2: error: WOPR: undefined well 'P' [undefined-name] | did you mean P1?\n"
            "d:33:6: error: ACTIONX: undefined well 'Q7' [undefined-name] | define the well with WELSPECS"},
        DeckRow{"OfALocalGrid",
            "RUNSPEC\nLGR\n 1 /\nDIMENS\n 2 2 2 /\nGRID\nCARFIN\n L 1 1 1 1 1 1 3 3 3 /\nENDFIN\nSCHEDULE\n"
            "WELSPECL\n P1 G L 3 4 1* OIL /\n/\nCOMPDATL\n P1 L 3 3 1 5 /\n/\n",
            "d:12:11: error: WELSPECL: J is 4, but NY of 'L' is 3 [index-outside] (d:7:1: the local grid is "
            "here)\n"
            "d:15:13: error: COMPDATL: K2 is 5, but NZ of 'L' is 3 [index-outside] (d:7:1: the local grid is "
            "here)"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(OneReason, DeckFindings,
    testing::Values(DeckRow{"OfAMisspeltSection", "RNSPEC\nOIL\nGRID\nPORO\n 1 /\n",
                        "d:1:1: error: unknown keyword 'RNSPEC' [unknown-keyword] | did you mean RSSPEC, "
                        "RUNSPEC, INSPEC?"},
        DeckRow{"OfASizeTwice",
            "RUNSPEC\nTABDIMS\n 1 /\nTABDIMS\n 2 /\nSTART\n 1 JAN 2000 /\nSTART\n 1 JAN 2010 "
            "/\nPROPS\nSWOF\n 0.2 0 1 0\n 1 1 0 0 "
            "/\nDENSITY\n 800 1000 1 /\nSCHEDULE\nDATES\n 1 JAN 2005 /\n/\n",
            "d:4:1: warning: TABDIMS is repeated with other values [repeated-keyword] | remove "
            "one of them (d:2:1: the first is here)\n"
            "d:8:1: warning: START is repeated with other values [repeated-keyword] | remove one "
            "of them (d:6:1: the first is here)"},
        DeckRow{"OfASizeThatIsTooSmall",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nCOMPS\n 2 /\nEQLDIMS\n 1 /\nPROPS\nTCRIT\n 300 400 500 "
            "/\nREGIONS\nEQLNUM\n 1 2 "
            "/\nSOLUTION\nZMFVD\n 1000 0.2 0.3 0.5\n 2000 0.2 0.3 0.5 /\nEQUIL\n 1000 100 /\n 2000 100 /\n",
            "d:10:10: error: TCRIT: too many values (expected 2, found 3) [wrong-size] | the size is NCOMPS\n"
            "d:13:4: error: EQLNUM: number 2 in cell 2, but NTEQUL, the number of equilibration regions, is "
            "1 [region-outside] | correct the number, or increase NTEQUL (d:6:1: NTEQUL is 1 here)"},
        DeckRow{"OfAPhase", R"(RUNSPEC
DIMENS
 1 1 1 /
WELLDIMS
 1 1 1 1 /
GRID
PROPS
DENSITY
 800 1000 1 /
-- without a phase
PVTW
 200 1 4E-5 0.5 0 /
SOLUTION
SCHEDULE
WELSPECS
 I1 G 1 1 1* WATER /
/
COMPDAT
 I1 1 1 1 1 OPEN /
/
WCONINJE
 I1 WATER OPEN RATE 5 /
/
)",
            "d:1:1: error: RUNSPEC: no water phase; expected WATER [missing-keyword] | PVTW requires it "
            "(d:11:1: PVTW is here)"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Counts, DeckFindings,
    testing::Values(
        DeckRow{"OfWhatAWellHas", R"(RUNSPEC
WELLDIMS
 5 3 5 1 /
SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
 P2 G 1 1 1* OIL /
 P3 H 1 1 1* OIL /
/
COMPDAT
 P1 1 1 1 2 /
 P1 1 1 1 3 /
 P2 1 1 1 3 /
 P2 1 1 4 4 /
 P3 1 1 1 9 /
/
)",
            "d:7:5: error: WELSPECS: 2 wells for G, but MAXWGRP is 1 [too-many-names] | increase MAXWGRP in "
            "WELLDIMS (d:2:1: MAXWGRP is 1 here)\nd:14:2: error: COMPDAT: 4 connections for P2, but MAXCONN "
            "is 3 [too-many-names] | increase MAXCONN in WELLDIMS (d:2:1: MAXCONN is 3 here)"},
        DeckRow{"OfRecordsAndRows",
            "RUNSPEC\nTABDIMS\n 1 1 2 /\nFAULTDIM\n 1 /\nGRID\nFAULTS\n F 1 1 1 1 1 1 X /\n G 1 1 1 1 1 1 X "
            "/\n/\nPROPS\nSWOF\n 0.2 0 1 0\n 0.5 0.5 0.5 0\n 1 1 0 0 /\n",
            "d:9:2: error: FAULTS: 2 segments of faults, but MFSEGS is 1 [too-many-names] | increase MFSEGS "
            "in FAULTDIM (d:4:1: MFSEGS is 1 here)\nd:13:2: error: SWOF: 3 rows in table 1, but NSSFUN is 2 "
            "[too-many-names] | increase NSSFUN in TABDIMS (d:2:1: NSSFUN is 2 here)"},
        DeckRow{"OfOneSizeOnce",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nEQLDIMS\n 1 /\nREGIONS\nEQLNUM\n 1 2 /\nEQUALS\n EQLNUM 3 "
            "/\n/\nSOLUTION\nTHPRES\n 1 2 5 /\n/\n",
            "d:8:4: error: EQLNUM: number 2 in cell 2, but NTEQUL, the number of equilibration regions, is 1 "
            "[region-outside] | correct the number, or increase NTEQUL (d:4:1: NTEQUL is 1 here)\nd:13:1: "
            "error: THPRES requires EQLOPTS before it [missing-precedent]"},
        DeckRow{"OfGroupsWithoutNodes",
            "RUNSPEC\nWELLDIMS\n 5 3 1 5 /\nNETWORK\n 5 5 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL "
            "/\n/\nBRANPROP\n G B 9999 /\n B C 9999 /\n A B 1 /\n/\nNODEPROP\n C 20 /\n/\n",
            "d:13:2: warning: BRANPROP: undefined group or outlet of a branch 'A' [undefined-name] | define "
            "the group or outlet of a branch with WELSPECS or GRUPTREE"},
        DeckRow{"OfTheFieldBeforeAnyGroup",
            "SCHEDULE\nGCONPROD\n FIELD ORAT 5000 /\n/\nGCONPROD\n G ORAT 5000 /\n/\nWELSPECS\n P1 H 1 1 1* "
            "OIL "
            "/\n/\n",
            "d:6:2: error: GCONPROD: undefined group 'G' [undefined-name] | define the group with "
            "WELSPECS or GRUPTREE before it is named"},
        DeckRow{"ByAWordOfAnotherKeyword",
            "RUNSPEC\nTABDIMS\n 3 2 /\nPROPS\nROCK\n 1 1 /\n FILLEPS\nROCKOPTS\n 2* SATNUM /\nROCK\n 1 1 "
            "/\n 2 1 /\n",
            "d:6:7: error: ROCK: too few records (expected 2, found 1) [wrong-size] | the size is NTROCK\n"
            "d:12:7: error: ROCK: too few records (expected 3, found 2) [wrong-size] | the size is NTROCK"},
        DeckRow{"ByAKeywordThatIsThere",
            "RUNSPEC\nCOMPS\n 2 /\nROCKCOMP\n/\nPROPS\nOILVISCT\n 50 1 2 90 0.5 1 /\nROCKTAB\n 1 1 1 2 1 1 "
            "/\nRKTRMDIR\nROCKTAB\n 1 1 1 1 1\n 2 1 1 1 1 "
            "/\n",
            ""},
        DeckRow{"ByItemsBefore",
            "RUNSPEC\nPOLYMER\nCOAL\nREGDIMS\n 3 4* 2 /\nPROPS\nLANGMUIR\n 1 0 9 5 /\n 1 0 9 6 /\nSKPRWAT\n "
            "1 /\n 0 9 /\n 1 2 3 /\n 1 2 3 /\n 4 5 /\nSCHEDULE\nDATUMR\n 5 1* /\nUDT\n A 2 /\n NV 1 2 /\n LL "
            "10 20 /\n 1 2 /\n 3 4 /\n/\nUDT\n B /\n LC 1 2 /\n 1 2 /\n/\n",
            "d:15:6: error: SKPRWAT: too few values (expected 3, found 2) [wrong-size] | the size is "
            "VELOCITY"},
        DeckRow{"OfDataThatMayBeMissing",
            "RUNSPEC\nMISCIBLE\nMULTSAVE\n 1\nOIL\nBRINE\nNACL KCL /\nBRINE\nWATR\nGAS\nBRINE\nTABDMS\n 1 1 "
            "/\nMISCIBLE note\n 2 3 /\nBRINE\nSATOPT\n HYSTER /\n",
            "d:4:3: error: MULTSAVE: missing slash at the end of the record [unclosed-data] | add a slash "
            "after the last value\nd:9:1: error: unknown keyword 'WATR' [unknown-keyword] | did you mean "
            "WATER?\nd:12:1: error: unknown keyword 'TABDMS' [unknown-keyword] | did you mean TABDIMS?\n"
            "d:14:10: warning: MISCIBLE: the text 'note' is read as a remark [text-after-keyword] | write "
            "'--' "
            "before a remark, and data on the next line\n"
            "d:17:1: error: unknown keyword 'SATOPT' [unknown-keyword] | did you mean SATOPTS, RPTOPT?"},
        DeckRow{"OfTheMatrixAlone",
            "RUNSPEC\nDIMENS\n 2 2 2 /\nGRID\nLX\n 4*1 /\nPERMX\n 4*1 /\nDPGRID\nPORO\n 4*1 /\nZCORN\n 32*1 "
            "/\n"
            "NTG\n 3*1 /\n",
            "d:8:6: error: PERMX: too few values (expected 8, found 4) [wrong-size] | the size is NX*NY*NZ\n"
            "d:15:6: error: NTG: too few values (expected 8, found 3) [wrong-size] | the size is NX*NY*NZ"},
        DeckRow{"OfLocalGridsWithOneEnd",
            "RUNSPEC\nDIMENS\n 4 4 1 /\nLGR\n 9 99 /\nGRID\nCARFIN\n A 1 1 1 1 1 1 2 2 1 /\nPORO\n 4*1 "
            "/\nCARFIN\n B 3 3 1 1 1 1 3 3 1 /\n"
            "PORO\n 9*1 /\nENDFIN\nPORO\n 16*1 /\nSOLUTION\nREFINE\n b /\nPRESSURE\n 9*1 /\nREFINE\n A "
            "/\nSWAT\n 4*1 /\nREFINE\n C "
            "/\nSWAT\n 5*1 /\n",
            "d:27:1: error: unclosed REFINE; expected ENDFIN [unclosed-scope] | add ENDFIN before the end of "
            "the section"},
        DeckRow{"OfPillarsAndCells",
            "RUNSPEC\nDIMENS\n 3 3 2 /\nGRID\nSPECGRID\n 2 2 1 1 F /\nCOORD\n 54*0 /\nZCORN\n 32*0 /\nPORO\n "
            "4*1 /\n",
            "d:5:1: error: SPECGRID: NX is 2, but NX of DIMENS is 3 [wrong-size] | write the same sizes in "
            "both (d:2:1: "
            "DIMENS is here)"},
        DeckRow{"OfPillarsAndCellsAfterAnArray",
            "RUNSPEC\nDIMENS\n 3 3 2 /\nGRID\nPORO\n 4*1 /\nSPECGRID\n 2 2 1 1 F /\nCOORD\n 54*0 /\nNTG\n "
            "4*1 /\n",
            "d:6:6: error: PORO: too few values (expected 18, found 4) [wrong-size] | the size is NX*NY*NZ"},
        DeckRow{"OfPhasesInAPartOfADeck",
            "SCHEDULE\nWELSPECS\n A G 1 1 1* GAS /\n/\nWCONINJE\n A GAS OPEN RATE 1000 /\n/\n", ""},
        DeckRow{"OfUnitsInAPartOfADeck", "PROPS\nDENSITY\n 49 63 0.05 /\n", ""},
        DeckRow{"OfATableTwice", "PROPS\nDENSITY\n 800 1000 1 /\nDENSITY\n 810 1000 1 /\n",
            "d:4:1: warning: DENSITY is repeated with other values [repeated-keyword] | remove one of them "
            "(d:2:1: the first is here)"},
        DeckRow{"OfTwoEnds", "RUNSPEC\nDIMENS\n 2 2 2 /\nGRID\nBOX\n 5 4 1 3 1 1 /\nENDBOX\n",
            "d:6:2: error: BOX: I1 is 5, but NX is 2 [index-outside] (d:2:1: NX is 2 here)\nd:6:8: error: "
            "BOX: J2 is 3, but NY is 2 [index-outside] (d:2:1: NY is 2 here)"}),
    CaseName<DeckRow>);

} // namespace
