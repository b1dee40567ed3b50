#include "quor/deck/Deck.h"

#include "tests/deck/FindingText.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

struct RuleRow {
    const char* name;
    const char* deck;
    const char* findings = ""; // as a user sees them
};

class Rules : public testing::TestWithParam<RuleRow> {
protected:
    static std::string FindingsOf(const std::string& deck)
    {
        static const DeckLanguage language;
        return Dump(Deck::ReadText(deck, language, {}, "d").GetFindings(), "none");
    }
};

TEST_P(Rules, Report)
{
    EXPECT_EQ(FindingsOf(GetParam().deck), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(Names, Rules,
    testing::Values(
        RuleRow{"OnceForEachName", R"(SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
 PROD2 G 1 1 1* OIL /
/
WELOPEN
 PROD3 SHUT /
 PROD3 OPEN /
 'Q*' SHUT /
 'P*' SHUT /
 p1 SHUT /
 '*' SHUT /
/
)",
            "d:7:2: error: WELOPEN: undefined well 'PROD3' [undefined-name] | did you mean PROD2?\n"
            "d:9:2: error: WELOPEN: no well matches 'Q*' [undefined-name] | define the well with WELSPECS "
            "before it is named"},
        RuleRow{"BeforeItsDefinition",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWELOPEN\n P2 SHUT /\n/\nWELSPECS\n P2 G 1 1 1* OIL "
            "/\n/\n",
            "d:6:2: error: WELOPEN: undefined well 'P2' [undefined-name] | did you mean P1?"},
        RuleRow{"OfAList",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWLIST\n '*L' NEW P1 P2 /\n/\nWELOPEN\n '*L' SHUT "
            "/\n '*M' SHUT /\n/\n",
            "d:6:2: error: WLIST: undefined well 'P2' [undefined-name] | did you mean P1?\n"
            "d:10:2: error: WELOPEN: no well matches '*M' [undefined-name] | define the well with WELSPECS "
            "or "
            "WELSPECL before it is named"},
        RuleRow{"OfAVectorBeforeItsDefinition",
            "SUMMARY\nWOPR\n P1 P9 /\nGOPR\n G FIELD H /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\n",
            "d:3:5: error: WOPR: undefined well 'P9' [undefined-name] | did you mean P1?\n"
            "d:5:10: error: GOPR: undefined group 'H' [undefined-name] | define the group with WELSPECS or "
            "GRUPTREE before it is named"},
        RuleRow{"OfAnArray", "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nEQUALS\n PORRO 0.2 /\n FIPABC 1 /\n/\n",
            "d:6:2: error: EQUALS: undefined array 'PORRO' [undefined-name] | did you mean PORO, PORV?"},
        RuleRow{"OfALiftTable", R"(RUNSPEC
VFPIDIMS
 2 2 2 /
SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
/
WCONPROD
 P1 OPEN THP 6* 10 7 /
/
VFPINJ
 3 1 WAT /
 1 2 /
 1 /
 1 1 2 /
)",
            "d:9:20: error: WCONPROD: undefined lift table '7' [undefined-name] | define the lift table with "
            "VFPPROD or VFPINJ before it is named"},
        RuleRow{"NoneIsDefined", "SCHEDULE\nWELOPEN\n P1 SHUT /\n/\n"},
        RuleRow{"OneMayBeInAnUnknownKeyword",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWELXYZAB\n P2 /\n/\nWELOPEN\n P2 "
            "SHUT /\n/\n",
            "d:5:1: error: unknown keyword 'WELXYZAB' [unknown-keyword]"},
        RuleRow{"OneMayBeInAnEarlierRun",
            "SOLUTION\nRESTART\n BASE 10 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 "
            "1* OIL /\n/\nWELOPEN\n P2 SHUT /\n/\n"},
        RuleRow{"OneMoreThanAllowed",
            "RUNSPEC\nWELLDIMS\n 1 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n P1 G 1 1 1* OIL /\n P2 G 1 1 "
            "1* OIL /\n P3 G 1 1 1* OIL /\n/\n",
            "d:8:2: error: WELSPECS: well 'P2' is number 2, but MAXWELLS is 1 [too-many-names] | increase "
            "MAXWELLS in WELLDIMS"}),
    CaseName<RuleRow>);

INSTANTIATE_TEST_SUITE_P(Numbers, Rules,
    testing::Values(
        RuleRow{"BeyondTheGrid", R"(RUNSPEC
DIMENS
 4 3 2 /
GRID
BOX
 1 2 1 2 1 2 /
EQUALS
 PORO 0.2 1 4 1 2*3 /
 PORO 0.2 1 4 2 1 /
/
)",
            "d:8:17: error: EQUALS: K1 is 3, but NZ is 2 [index-outside]\n"
            "d:9:15: error: EQUALS: J1 is 2, but J2 is 1 [index-order] | write the lower number first"},
        RuleRow{"OfALocalGrid",
            "RUNSPEC\nLGR\n /\nDIMENS\n 2 2 2 /\nSCHEDULE\nWELSPECL\n P1 G L 5 5 1* OIL /\n/\nCOMPDATL\n P1 "
            "L 5 5 1 5 /\n/\n"},
        RuleRow{"OfTwoCells", "RUNSPEC\nDIMENS\n 2 2 2 /\nGRID\nNNC\n 2 2 2 1 1 1 0.5 /\n/\n"},
        RuleRow{"OfATableInOneCell",
            "RUNSPEC\nDIMENS\n 4 1 1 /\nTABDIMS\n 2 /\nREGIONS\nSATNUM\n 2*1 -- west\n 3 0 /\n",
            "d:9:2: error: SATNUM: number 3 in cell 3, but the deck has 2 saturation tables (NTSFUN) "
            "[region-outside] | correct the number, or increase NTSFUN"},
        RuleRow{"OfATableInABox", "RUNSPEC\nDIMENS\n 4 1 1 /\nREGIONS\nEQUALS\n pvtnum 2 /\n/\n",
            "d:6:9: error: EQUALS: number 2 for PVTNUM, but the deck has 1 tables of fluid properties "
            "(NTPVT) "
            "[region-outside] | correct the number, or increase NTPVT"}),
    CaseName<RuleRow>);

INSTANTIATE_TEST_SUITE_P(Keywords, Rules,
    testing::Values(RuleRow{"Contradict", "RUNSPEC\nMETRIC\nMETRIC\nFIELD\n",
                        "d:4:1: error: FIELD contradicts METRIC at d:2; expected one system of units "
                        "[conflicting-keywords] | remove one of them"},
        RuleRow{"RepeatedWithOtherValues", "RUNSPEC\nTABDIMS\n 2 /\nTABDIMS\n 2 /\nTABDIMS\n 3 /\n",
            "d:6:1: warning: TABDIMS is repeated with other values; the first is at d:2 [repeated-keyword] | "
            "remove one of them"},
        RuleRow{"Missing", R"(RUNSPEC
DIMENS
 1 1 1 /
WATER
GRID
EQUALS
 PORO 0.2 /
 PERMX 10 /
 DX 10 /
 DY 10 /
 DZ 10 /
/
PROPS
DENSITY
 800 1000 1 /
SOLUTION
SCHEDULE
)",
            "d:5:1: error: GRID: no depths of cells; expected ZCORN, TOPS or DEPTHZ [missing-keyword]\n"
            "d:13:1: error: PROPS: no properties of water; expected PVTW or PVTWSALT [missing-keyword] | "
            "WATER "
            "requires it"},
        RuleRow{"OfAPartOfADeck", "RUNSPEC\nWATER\nGRID\nPROPS\nDENSITY\n 800 1000 1 /\n"}),
    CaseName<RuleRow>);

} // namespace
