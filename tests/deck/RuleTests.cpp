#include "quor/deck/Deck.h"

#include "quor/syntax/KeywordSyntaxTable.h"
#include "tests/deck/FindingText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using Veld::Quor::Core::Keywords::KeywordSyntaxTable;
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
        RuleRow{"OneMoreThanAllowed",
            "RUNSPEC\nWELLDIMS\n 1 /\nSCHEDULE\nWELSPECS\n P1 G 1 1 1* OIL /\n P1 G 1 1 1* OIL /\n P2 G 1 1 "
            "1* OIL /\n P3 G 1 1 1* OIL /\n/\n",
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
            "RUNSPEC\nTABDIMS\n 1 1 /\nPROPS\nROCK\n 1 1 /\nSWFN\n 0 0 0 1 1 0 /\n 0 0 0 1 1 0 /\n"
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

/// The reason why a document of rules is refused; empty if it isn't.
std::string RefusalOf(const std::string& rules)
{
    const TemporaryDirectory folder;
    const std::string path = folder.Write("r.xml", rules);
    try {
        const DeckLanguage language(KeywordSyntaxTable::Instance(), {path});
    } catch (const RuleError& error) {
        const std::string text = error.what();
        EXPECT_EQ(text.find(path), 0U) << text;
        return text.substr(path.size());
    }
    return "";
}

struct RefusalRow {
    const char* name;
    const char* rules;
    const char* reason;
};

class RuleDocuments : public testing::TestWithParam<RefusalRow> { };

TEST_P(RuleDocuments, AreRefusedWithTheReason)
{
    EXPECT_EQ(RefusalOf(GetParam().rules), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(Mistakes, RuleDocuments,
    testing::Values(RefusalRow{"NoXML", "<rules>",
                        ":1:8: input ended before all started tags were ended; last tag started is 'rules'"},
        RefusalRow{"Element", "<rules><once keywords='START'/><nede/></rules>",
            ": element 2, <nede>: unknown rule; expected <names>, <index>, <order>, <region>, <assign>, "
            "<need>, "
            "<exclusive>, <once>, <count>, <role>, <plausible>, <whole>, <local> or <open>"},
        RefusalRow{"Attribute", "<rules><once keyword='START' keywords='START'/></rules>",
            ": element 1, <once>: unknown attribute 'keyword'; did you mean 'keywords'?"},
        RefusalRow{"MissingAttribute", "<rules><need in='GRID' what='X'/></rules>",
            ": element 1, <need>: missing attribute 'anyOf'"},
        RefusalRow{"MisspeltAttribute", "<rules><need anyof='TITLE' in='GRID' what='X'/></rules>",
            ": element 1, <need>: unknown attribute 'anyof'; did you mean 'anyOf'?"},
        RefusalRow{"Flag", "<rules><names kind='X' patterns='yes'/></rules>",
            ": element 1, <names>: attribute 'patterns' is 'yes'; expected 'true' or 'false'"},
        RefusalRow{"Child", "<rules><names kind='X'><refer items='WELL'/><defin/></names></rules>",
            ": element 1, <names>, element 2, <defin>: unknown element; expected <define> or <refer>"},
        RefusalRow{"Section", "<rules><index items='I' size='NX' sections='GIRD'/></rules>",
            ": element 1, <index>: unknown section 'GIRD'"},
        RefusalRow{"Entity", "<rules><names kind='X'><refer entity='Weel'/></names></rules>",
            ": element 1, <names>, element 1, <refer>: unknown kind of output vector 'Weel'"},
        RefusalRow{"Everything", "<rules><order/></rules>",
            ": element 1, <order>: no keywords and no items; expected 'keywords', 'items' or 'entity'"},
        RefusalRow{"Role", "<rules><role is='oil' keywords='OIL'/></rules>",
            ": element 1, <role>: unknown role 'oil'"},
        RefusalRow{"Number", "<rules><plausible keywords='NTG' least='0' greatest='one'/></rules>",
            ": element 1, <plausible>: attribute 'greatest' is 'one'; expected a number"},
        RefusalRow{"Order", "<rules><order items='I1'/></rules>",
            ": element 1, <order>: attribute 'items' must have two names: the first and the last"},
        RefusalRow{"Keyword", "<rules><once keywords='STRAT'/></rules>",
            ": a rule has the unknown keyword 'STRAT'; did you mean 'START'?"},
        RefusalRow{"Item", "<rules><index items='I' size='NXX'/></rules>",
            ": a rule has the unknown item 'NXX'; did you mean 'NX'?"}),
    CaseName<RefusalRow>);

TEST(RuleDocuments, OfTheLibraryNameWhatIsThere)
{
    for (const auto& file : std::filesystem::directory_iterator(QUOR_SOURCE_DIR "/language/rules"))
        EXPECT_NO_THROW(DeckLanguage(KeywordSyntaxTable::Instance(), {file.path().string()})) << file.path();
}

TEST(RuleDocuments, OfAHostAreCheckedToo)
{
    const TemporaryDirectory folder;
    const DeckLanguage language(KeywordSyntaxTable::Instance(),
        {folder.Write("r.xml", "<rules><exclusive keywords='IMPES AIM' what='solution'/></rules>")});
    EXPECT_EQ(
        Dump(Deck::ReadText("RUNSPEC\nIMPES\nAIM\nMETRIC\nLAB\n", language, {}, "d").GetFindings(), "none"),
        "d:3:1: error: AIM contradicts IMPES; expected one solution [conflicting-keywords] | remove one of "
        "them "
        "(d:2:1: IMPES is here)\n"
        "d:5:1: error: LAB contradicts METRIC; expected one system of units [conflicting-keywords] | remove "
        "one of "
        "them (d:4:1: METRIC is here)");
    EXPECT_THROW(DeckLanguage(KeywordSyntaxTable::Instance(), {"no/such.xml"}), RuleError);
}

} // namespace
