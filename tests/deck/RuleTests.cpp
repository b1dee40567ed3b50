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

TEST_P(Rules, FindTheseMistakesAndNoOthers)
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
            "d:10:2: error: WELOPEN: no list of wells matches '*M' [undefined-name] | did you mean *L?"},
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
        RuleRow{"BeforeAnyDefinition",
            "SCHEDULE\nWELOPEN\n P1 SHUT /\n P1 OPEN /\n P* SHUT /\n/\nWELSPECS\n P1 G 1 1 1* OIL /\n/\n",
            "d:3:2: error: WELOPEN: undefined well 'P1' [undefined-name] | define the well before it is "
            "named"},
        RuleRow{"OfAListOfAVector",
            "SUMMARY\nWOPR\n '*L' '*M' /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWLIST\n '*L' "
            "NEW P1 /\n/\n",
            "d:3:7: error: WOPR: no list of wells matches '*M' [undefined-name] | did you mean *L?"},
        RuleRow{"NoneIsDefined", "SCHEDULE\nWELOPEN\n P1 SHUT /\n/\n"},
        RuleRow{"OneMayBeInAnUnknownKeyword",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWELXYZAB\n P2 /\n/\nWELOPEN\n P2 "
            "SHUT /\n/\n",
            "d:5:1: error: unknown keyword 'WELXYZAB' [unknown-keyword]"},
        RuleRow{"OneMayBeInASkippedBlock",
            "SUMMARY\nWOPR\n P9 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nSKIP\n",
            "d:8:1: error: unclosed SKIP; expected ENDSKIP in the same file [unclosed-skip] | add ENDSKIP "
            "after "
            "the block"},
        RuleRow{"OneMayBeInAnEarlierRun",
            "SOLUTION\nRESTART\n BASE 10 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 "
            "1* OIL /\n/\nWELOPEN\n P2 SHUT /\n/\n"},
        RuleRow{"OneMayBeInABadRecord",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWELSPECS\n P2 G 1 1 1* OLI /\n/\nWELOPEN\n P2 SHUT "
            "/\n P3 SHUT "
            "/\n/\n",
            "d:6:14: error: WELSPECS, PHASE: unknown value 'OLI' [not-a-choice] | did you mean OIL?\n"
            "d:10:2: error: WELOPEN: undefined well 'P3' [undefined-name] | did you mean P1?"},
        RuleRow{"OfOneItemOnce",
            "RUNSPEC\nWSEGDIMS\n 1 5 2 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n P2 G 1 1 1* OIL "
            "/\n/\nWELSEGS\n P1 2000 0 1* ABS /\n 2 2 1 1 10 2010 0.1 1E-5 /\n/\nCOMPSEGS\n P9 /\n 1 1 1 1 0 "
            "10 "
            "/\n/\nCOMPSEGS\n P2 /\n 1 1 1 1 0 10 /\n/\n",
            "d:14:2: error: COMPSEGS: undefined well 'P9' [undefined-name] | did you mean P2, P1?\nd:18:2: "
            "error: COMPSEGS: undefined well with segments 'P2' [undefined-name] | did you mean P1?"},
        RuleRow{"OfAnAquifer",
            "SOLUTION\nAQUFETP\n 1 2000 200 1E6 1E-5 10 /\n/\nAQUANCON\n 2 1 1 1 1 1 1 I- /\n/\n",
            "d:6:2: error: AQUANCON: undefined aquifer '2' [undefined-name] | define the aquifer with AQUCT, "
            "AQUFETP, AQUNUM, AQUFLUX, AQUCHWAT, AQUCHGAS, HMAQUCT or HMAQUFET before it is named"},
        RuleRow{"OneMoreThanAllowed",
            "RUNSPEC\nWELLDIMS\n 1 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n P1 G 1 1 1* OIL /\n P2 G 1 1 "
            "1* OIL /\n P3 G 1 1 1* OIL /\n/\n",
            "d:7:2: warning: WELSPECS: repeated record for WELL P1 [repeated-record] | correct the record, "
            "or "
            "remove one of them (d:6:2: the first is here)\n"
            "d:8:2: error: WELSPECS: well 'P2' is number 2, but MAXWELLS is 1 [too-many-names] | increase "
            "MAXWELLS in WELLDIMS (d:2:1: MAXWELLS is 1 here)"}),
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
            "d:8:17: error: EQUALS: K1 is 3, but NZ is 2 [index-outside] (d:2:1: NZ is 2 here)\n"
            "d:9:15: error: EQUALS: J1 is 2, but J2 is 1 [index-order] | write the lower number first"},
        RuleRow{"OfALocalGrid",
            "RUNSPEC\nLGR\n /\nDIMENS\n 2 2 2 /\nSCHEDULE\nWELSPECL\n P1 G L 5 5 1* OIL /\n/\nCOMPDATL\n P1 "
            "L 5 5 1 5 /\n/\n"},
        RuleRow{"OfTwoCells", "RUNSPEC\nDIMENS\n 2 2 2 /\nGRID\nNNC\n 2 2 2 1 1 1 0.5 /\n/\n"},
        RuleRow{"BeyondASizeThatIsWrong",
            "RUNSPEC\nTABDIMS\n 1 1 /\nPROPS\nROCK\n 200 5E-5 /\nSWFN\n 0 0 0 1 1 0 /\n 0 0 0 1 1 0 /\n"
            "REGIONS\nEQUALS\n SATNUM 2 /\n/\n",
            "d:9:2: error: SWFN: too many tables (expected 1) [wrong-size] | the size is NTSFUN"},
        RuleRow{"OfATableInOneCell",
            "RUNSPEC\nDIMENS\n 4 1 1 /\nTABDIMS\n 2 /\nREGIONS\nSATNUM\n 2*1 -- west\n 3 0 /\n",
            "d:9:2: error: SATNUM: number 3 in cell 3, but NTSFUN, the number of saturation tables, is 2 "
            "[region-outside] | correct the number, or increase NTSFUN (d:4:1: NTSFUN is 2 here)"},
        RuleRow{"OfATableInABox", "RUNSPEC\nDIMENS\n 4 1 1 /\nREGIONS\nEQUALS\n pvtnum 2 /\n/\n",
            "d:6:9: error: EQUALS: number 2 for PVTNUM, but NTPVT, the number of tables of fluid properties, "
            "is 1 "
            "[region-outside] | correct the number, or increase NTPVT"}),
    CaseName<RuleRow>);

INSTANTIATE_TEST_SUITE_P(Keywords, Rules,
    testing::Values(RuleRow{"Contradict", "RUNSPEC\nMETRIC\nMETRIC\nFIELD\n",
                        "d:4:1: error: FIELD contradicts METRIC; expected one system of units "
                        "[conflicting-keywords] | remove one of them (d:2:1: METRIC is here)"},
        RuleRow{"RepeatedWithOtherValues", "RUNSPEC\nTABDIMS\n 2 /\nTABDIMS\n 2 /\nTABDIMS\n 3 /\n",
            "d:6:1: warning: TABDIMS is repeated with other values [repeated-keyword] | "
            "remove one of them (d:2:1: the first is here)"},
        RuleRow{"Missing", R"(RUNSPEC
DIMENS
 1 1 1 /
WATER
GRID
EQUALS
 PORO 0.2 /
 PERMR 10 /
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
            "d:5:1: error: GRID: no depths of cells; expected ZCORN, TOPS or MIDS [missing-keyword]\n"
            "d:13:1: error: PROPS: no properties of water; expected PVTW or PVTWSALT [missing-keyword] | "
            "WATER "
            "requires it (d:4:1: WATER is here)"},
        RuleRow{"MayBeInAMissingFile",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nINCLUDE 'no such file' /\nPROPS\nSOLUTION\nPRVD\n 1 1 2 1 "
            "/\nSCHEDULE\n",
            "d:5:9: error: can't read 'no such file': No such file or directory [include-missing] | a "
            "relative name "
            "starts from the folder of the deck"},
        RuleRow{"InAFolderThatIsMissing",
            "RUNSPEC\nPATHS\n A 'no such folder' /\n/\nINCLUDE '$A/x' /\nINCLUDE '$A/y' /\n",
            "d:5:9: error: can't read 'no such folder/x': No such file or directory [include-missing] | "
            "correct "
            "the name, or the folder of '$A' in PATHS"},
        RuleRow{"WithASectionThatIsMisspelt", "RUNSPEC\nGRI\nINIT\n",
            "d:2:1: error: unknown keyword 'GRI' [unknown-keyword] | did you mean GRID, GI?"},
        RuleRow{"OfAPartOfADeck", "RUNSPEC\nWATER\nGRID\nPROPS\nDENSITY\n 800 1000 1 /\n"}),
    CaseName<RuleRow>);

INSTANTIATE_TEST_SUITE_P(Records, Rules,
    testing::Values(
        RuleRow{"LackATarget", R"(RUNSPEC
OIL
SCHEDULE
WCONPROD
 P1 OPEN ORAT 1* 50 /
 P2 OPEN ORAT 0 50 /
 P3 SHUT ORAT /
 P4 OPEN BHP 6* 90 10 0 /
/
WCONINJE
 I1 WATER OPEN RATE 100 /
 I2 OIL OPEN RATE 100 /
/
)",
            "d:5:10: warning: WCONPROD: CONTROL is ORAT; expected a value for ORAT [missing-item] | add the "
            "value, or change CONTROL\nd:11:5: error: WCONINJE: TYPE is WATER; expected keyword WATER, "
            "CO2STORE or "
            "H2STORE in the deck [missing-keyword] | add the keyword, or change TYPE"},
        RuleRow{"ForTheSame", R"(SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
 P1 G 2 1 1* OIL /
/
COMPDAT
 P1 1 1 1 2 OPEN /
 P1 1 1 2 2 OPEN /
 P1 2* 3 3 /
 P1 2* 3 3 /
/
)",
            "d:4:2: warning: WELSPECS: repeated record for WELL P1 [repeated-record] | correct the record, "
            "or remove one of them (d:3:2: the first is here)\nd:10:2: warning: COMPDAT: repeated record for "
            "WELL P1, K1 3, K2 3 [repeated-record] | correct the record, or remove one of them (d:9:2: the "
            "first is here)"},
        RuleRow{"AnArrayTwice",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nGRID\nPORO\n 2*0.2 /\nPORO\n 2*0.3 /\nMULTX\n 2*1 /\nBOX\n 1 1 1 1 "
            "1 1 /\nPORO\n 0.2 /\nENDBOX\nNTG\n 2*1 /\nMULTIPLY\n NTG 0.5 /\n/\nNTG\n 2*1 /\n",
            "d:7:1: warning: PORO is given again for the same cells [repeated-array] | remove the one that "
            "does not apply (d:5:1: its values from here have no effect)"},
        RuleRow{"OfATree", R"(SCHEDULE
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
            "above it\nd:3:5: error: WELSPECS: group 'A' has groups below it; expected no wells [name-tree] "
            "| put them into a group of their own (d:9:4: a group is put below it here)\nd:4:5: error: "
            "WELSPECS: group 'C' has groups below it; expected no wells [name-tree] | put them into a group "
            "of their own (d:10:4: a group is put below it here)"}),
    CaseName<RuleRow>);

INSTANTIATE_TEST_SUITE_P(Counts, Rules,
    testing::Values(
        RuleRow{"OfWhatAWellHas", R"(RUNSPEC
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
        RuleRow{"OfRecordsAndRows",
            "RUNSPEC\nTABDIMS\n 1 1 2 /\nFAULTDIM\n 1 /\nGRID\nFAULTS\n F 1 1 1 1 1 1 X /\n G 1 1 1 1 1 1 X "
            "/\n/\nPROPS\nSWOF\n 0.2 0 1 0\n 0.5 0.5 0.5 0\n 1 1 0 0 /\n",
            "d:9:2: error: FAULTS: 2 segments of faults, but MFSEGS is 1 [too-many-names] | increase MFSEGS "
            "in FAULTDIM (d:4:1: MFSEGS is 1 here)\nd:13:2: error: SWOF: 3 rows in table 1, but NSSFUN is 2 "
            "[too-many-names] | increase NSSFUN in TABDIMS (d:2:1: NSSFUN is 2 here)"},
        RuleRow{"OfOneSizeOnce",
            "RUNSPEC\nDIMENS\n 2 1 1 /\nEQLDIMS\n 1 /\nREGIONS\nEQLNUM\n 1 2 /\nEQUALS\n EQLNUM 3 "
            "/\n/\nSOLUTION\nTHPRES\n 1 2 5 /\n/\n",
            "d:8:4: error: EQLNUM: number 2 in cell 2, but NTEQUL, the number of equilibration regions, is 1 "
            "[region-outside] | correct the number, or increase NTEQUL (d:4:1: NTEQUL is 1 here)\nd:13:1: "
            "error: THPRES requires EQLOPTS before it [missing-precedent]"},
        RuleRow{"OfGroupsWithoutNodes",
            "RUNSPEC\nWELLDIMS\n 5 3 1 5 /\nNETWORK\n 5 5 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL "
            "/\n/\nBRANPROP\n A B 9999 /\n B G 9999 /\n/\n",
            ""},
        RuleRow{"OfTheFieldBeforeAnyGroup",
            "SCHEDULE\nGCONPROD\n FIELD ORAT 5000 /\n/\nGCONPROD\n G ORAT 5000 /\n/\nWELSPECS\n P1 H 1 1 1* "
            "OIL "
            "/\n/\n",
            "d:6:2: error: GCONPROD: undefined group 'G' [undefined-name] | define the group with "
            "WELSPECS or GRUPTREE before it is named"},
        RuleRow{"ByAWordOfAnotherKeyword",
            "RUNSPEC\nTABDIMS\n 3 2 /\nPROPS\nROCK\n 1 1 /\n FILLEPS\nROCKOPTS\n 2* SATNUM /\nROCK\n 1 1 "
            "/\n 2 1 /\n",
            "d:6:7: error: ROCK: too few records (expected 2, found 1) [wrong-size] | the size is NTROCK\n"
            "d:12:7: error: ROCK: too few records (expected 3, found 2) [wrong-size] | the size is NTROCK"},
        RuleRow{"ByAKeywordThatIsThere",
            "RUNSPEC\nROCKCOMP\n/\nPROPS\nROCKTAB\n 1 1 1 2 1 1 /\nRKTRMDIR\nROCKTAB\n 1 1 1 1 1\n 2 1 1 1 1 "
            "/\n",
            ""},
        RuleRow{"OfPhasesInAPartOfADeck",
            "SCHEDULE\nWELSPECS\n A G 1 1 1* GAS /\n/\nWCONINJE\n A GAS OPEN RATE 1000 /\n/\n", ""},
        RuleRow{"OfUnitsInAPartOfADeck", "PROPS\nDENSITY\n 49 63 0.05 /\n", ""},
        RuleRow{"OfATableTwice", "PROPS\nDENSITY\n 800 1000 1 /\nDENSITY\n 810 1000 1 /\n",
            "d:4:1: warning: DENSITY is repeated with other values [repeated-keyword] | remove one of them "
            "(d:2:1: the first is here)"},
        RuleRow{"OfTwoEnds", "RUNSPEC\nDIMENS\n 2 2 2 /\nGRID\nBOX\n 5 4 1 3 1 1 /\nENDBOX\n",
            "d:6:2: error: BOX: I1 is 5, but NX is 2 [index-outside] (d:2:1: NX is 2 here)\nd:6:8: error: "
            "BOX: J2 is 3, but NY is 2 [index-outside] (d:2:1: NY is 2 here)"}),
    CaseName<RuleRow>);

} // namespace
