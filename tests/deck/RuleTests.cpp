#include "quor/deck/Deck.h"

#include "tests/deck/DeckRow.h"
#include "tests/deck/FindingText.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

TEST_P(DeckFindings, AreTheseAndNoOthers)
{
    static const DeckLanguage language;
    EXPECT_EQ(
        Dump(Deck::ReadText(GetParam().deck, language, {}, "d").GetFindings(), "none"), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(Names, DeckFindings,
    testing::Values(
        DeckRow{"OnceForEachName", R"(SCHEDULE
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
        DeckRow{"BeforeItsDefinition",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWELOPEN\n P2 SHUT /\n/\nWELSPECS\n P2 G 1 1 1* OIL "
            "/\n/\n",
            "d:6:2: error: WELOPEN: undefined well 'P2' [undefined-name] | did you mean P1?"},
        DeckRow{"OfAList",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWLIST\n '*L' NEW P1 P2 /\n/\nWELOPEN\n '*L' SHUT "
            "/\n '*M' SHUT /\n/\n",
            "d:6:14: error: WLIST: undefined well 'P2' [undefined-name] | did you mean P1?\n"
            "d:10:2: error: WELOPEN: no list of wells matches '*M' [undefined-name] | did you mean *L?"},
        DeckRow{"OfAVectorBeforeItsDefinition",
            "SUMMARY\nWOPR\n P1 P9 /\nGOPR\n G FIELD H /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\n",
            "d:3:5: error: WOPR: undefined well 'P9' [undefined-name] | did you mean P1?\n"
            "d:5:10: error: GOPR: undefined group 'H' [undefined-name] | define the group with WELSPECS or "
            "GRUPTREE"},
        DeckRow{"OfAnArray",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nEQUALS\n WORK1 1 /\n PORRO 0.2 /\n FIPABC 1 /\n/\n",
            "d:7:2: error: EQUALS: undefined array 'PORRO' [undefined-name] | did you mean PORO, PORV?"},
        DeckRow{"OfAnArrayThatIsAKeyword", "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nEQUALS\n NOECHO 1 /\n/\n",
            "d:6:2: error: EQUALS: undefined array 'NOECHO' [undefined-name] | did you mean ECHO?"},
        DeckRow{"OfALiftTable", R"(RUNSPEC
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
            "VFPPROD or VFPINJ"},
        DeckRow{"BeforeAnyDefinition",
            "SCHEDULE\nWELOPEN\n P1 SHUT /\n P1 OPEN /\n P* SHUT /\n/\nWELSPECS\n P1 G 1 1 1* OIL /\n/\n",
            "d:3:2: error: WELOPEN: undefined well 'P1' [undefined-name] | define the well before it is "
            "named"},
        DeckRow{"OfAListOfAVector",
            "SUMMARY\nWOPR\n '*L' '*M' /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWLIST\n '*L' "
            "NEW P1 /\n/\n",
            "d:3:7: error: WOPR: no list of wells matches '*M' [undefined-name] | did you mean *L?"},
        DeckRow{"NoneIsDefined", "SCHEDULE\nWELOPEN\n P1 SHUT /\n/\n"},
        DeckRow{"OneMayBeInAnUnknownKeyword",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWELXYZAB\n P2 /\n/\nWELOPEN\n P2 "
            "SHUT /\n/\n",
            "d:5:1: error: unknown keyword 'WELXYZAB' [unknown-keyword]"},
        DeckRow{"OneMayBeInASkippedBlock",
            "SUMMARY\nWOPR\n P9 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nSKIP\n",
            "d:8:1: error: unclosed SKIP; expected ENDSKIP in the same file [unclosed-skip] | add ENDSKIP "
            "after "
            "the block"},
        DeckRow{"OneMayBeInAnEarlierRun",
            "SOLUTION\nRESTART\n BASE 10 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 "
            "1* OIL /\n/\nWELOPEN\n P2 SHUT /\n/\n"},
        DeckRow{"OneMayBeInABadRecord",
            "SCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n/\nWELSPECS\n P2 G 1 1 1* OLI /\n/\nWELOPEN\n P2 SHUT "
            "/\n P3 SHUT "
            "/\n/\n",
            "d:6:14: error: WELSPECS, PHASE: unknown value 'OLI' [not-a-choice] | did you mean OIL?\n"
            "d:10:2: error: WELOPEN: undefined well 'P3' [undefined-name] | did you mean P1?"},
        DeckRow{"OneMayBeInCurlyQuotes",
            "SCHEDULE\nWELSPECS\n \xE2\x80\x98P1\xE2\x80\x99 G 1 1 1* OIL /\n/\nWELOPEN\n P1 SHUT /\n/\n",
            "d:3:2: error: unexpected curly quote in '\xE2\x80\x98P1\xE2\x80\x99' [odd-character] | write a "
            "straight quote"},
        DeckRow{"OfOneItemOnce",
            "RUNSPEC\nWSEGDIMS\n 1 5 2 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n P2 G 1 1 1* OIL "
            "/\n/\nWELSEGS\n P1 2000 0 1* ABS /\n 2 2 1 1 10 2010 0.1 1E-5 /\n/\nCOMPSEGS\n P9 /\n 1 1 1 1 0 "
            "10 "
            "/\n/\nCOMPSEGS\n P2 /\n 1 1 1 1 0 10 /\n/\n",
            "d:14:2: error: COMPSEGS: undefined well 'P9' [undefined-name] | did you mean P1, P2?\nd:18:2: "
            "error: COMPSEGS: undefined well with segments 'P2' [undefined-name] | did you mean P1?"},
        DeckRow{"OfAnAquifer",
            "SOLUTION\nAQUFETP\n 1 2000 200 1E6 1E-5 10 /\n/\nAQUANCON\n 2 1 1 1 1 1 1 I- /\n/\n",
            "d:6:2: error: AQUANCON: undefined aquifer '2' [undefined-name] | define the aquifer with AQUCT, "
            "AQUFETP, AQUFLUX, AQUCHWAT, AQUCHGAS, HMAQUCT or HMAQUFET"},
        DeckRow{"OneMoreThanAllowed",
            "RUNSPEC\nWELLDIMS\n 1 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n P1 G 1 1 1* OIL /\n P2 G 1 1 "
            "1* OIL /\n P3 G 1 1 1* OIL /\n/\n",
            "d:7:2: warning: WELSPECS: repeated record for WELL P1 [repeated-record] | correct the record, "
            "or "
            "remove one of them (d:6:2: the first is here)\n"
            "d:8:2: error: WELSPECS: well 'P2' is number 2, but MAXWELLS is 1 [too-many-names] | increase "
            "MAXWELLS in WELLDIMS (d:2:1: MAXWELLS is 1 here)"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Numbers, DeckFindings,
    testing::Values(
        DeckRow{"BeyondTheGrid", R"(RUNSPEC
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
        DeckRow{"OfALocalGrid",
            "RUNSPEC\nLGR\n /\nDIMENS\n 2 2 2 /\nSCHEDULE\nWELSPECL\n P1 G L 5 5 1* OIL /\n/\nCOMPDATL\n P1 "
            "L 5 5 1 5 /\n/\n"},
        DeckRow{"OfTwoCells", "RUNSPEC\nDIMENS\n 2 2 2 /\nGRID\nNNC\n 2 2 2 1 1 1 0.5 /\n/\n"},
        DeckRow{"BeyondASizeThatIsWrong",
            "RUNSPEC\nTABDIMS\n 1 1 /\nPROPS\nROCK\n 200 5E-5 /\nSWFN\n 0 0 0 1 1 0 /\n 0 0 0 1 1 0 /\n"
            "REGIONS\nEQUALS\n SATNUM 2 /\n/\n",
            "d:9:2: error: SWFN: too many tables (expected 1) [wrong-size] | the size is NTSFUN"},
        DeckRow{"OfATableInOneCell",
            "RUNSPEC\nDIMENS\n 4 1 1 /\nTABDIMS\n 2 /\nREGIONS\nSATNUM\n 2*1 -- west\n 3 0 /\n",
            "d:9:2: error: SATNUM: number 3 in cell 3, but NTSFUN, the number of saturation tables, is 2 "
            "[region-outside] | correct the number, or increase NTSFUN (d:4:1: NTSFUN is 2 here)"},
        DeckRow{"OfATableInABox", "RUNSPEC\nDIMENS\n 4 1 1 /\nREGIONS\nEQUALS\n pvtnum 2 /\n/\n",
            "d:6:9: error: EQUALS: number 2 for PVTNUM, but NTPVT, the number of tables of fluid properties, "
            "is 1 "
            "[region-outside] | correct the number, or increase NTPVT"}),
    CaseName<DeckRow>);

INSTANTIATE_TEST_SUITE_P(Keywords, DeckFindings,
    testing::Values(DeckRow{"Contradict", "RUNSPEC\nMETRIC\nMETRIC\nFIELD\n",
                        "d:4:1: error: FIELD contradicts METRIC; expected one system of units "
                        "[conflicting-keywords] | remove one of them (d:2:1: METRIC is here)"},
        DeckRow{"RepeatedWithOtherValues", "RUNSPEC\nTABDIMS\n 2 /\nTABDIMS\n 2 /\nTABDIMS\n 3 /\n",
            "d:6:1: warning: TABDIMS is repeated with other values [repeated-keyword] | "
            "remove one of them (d:2:1: the first is here)"},
        DeckRow{"Missing", R"(RUNSPEC
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
        DeckRow{"MayBeInAMissingFile",
            "RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nINCLUDE 'no such file' /\nPROPS\nSOLUTION\nPRVD\n 1 1 2 1 "
            "/\nSCHEDULE\n",
            "d:5:9: error: can't read 'no such file': No such file or directory [include-missing] | a "
            "relative name "
            "starts from the folder of the deck"},
        DeckRow{"InAFolderThatIsMissing",
            "RUNSPEC\nPATHS\n A 'no such folder' /\n/\nINCLUDE '$A/x' /\nINCLUDE '$A/y' /\n",
            "d:5:9: error: can't read 'no such folder/x': No such file or directory [include-missing] | "
            "correct "
            "the name, or the folder of '$A' in PATHS"},
        DeckRow{"WithASectionThatIsMisspelt", "RUNSPEC\nGRI\nINIT\n",
            "d:2:1: error: unknown keyword 'GRI' [unknown-keyword] | did you mean GRID, GI?"},
        DeckRow{"OfAPartOfADeck", "RUNSPEC\nWATER\nGRID\nPROPS\nDENSITY\n 800 1000 1 /\n"}),
    CaseName<DeckRow>);

} // namespace
