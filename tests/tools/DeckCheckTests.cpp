#include "quor/deck/internal/check/DeckCheck.h"

#include "quor/deck/SourceText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/Language.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

using Files = std::vector<std::pair<std::string, std::string>>; // name, text

Vocabulary& SmallVocabulary()
{
    static Vocabulary vocabulary(SmallTable());
    return vocabulary;
}

/// A deck in a folder of its own.
class DeckOnDisk {
public:
    explicit DeckOnDisk(const std::string& text, const Files& files = {})
        : path_(folder_.Write("main.data", text))
    {
        for (const auto& [name, content] : files)
            folder_.Write(name, content);
    }

    DeckReport Check(const ReadOptions& options = {}) const
    {
        return CheckDeck(path_, options, SmallVocabulary());
    }
    const std::filesystem::path& Folder() const { return folder_.Path(); }

private:
    TemporaryDirectory folder_;
    std::string path_;
};

/// "code:line:column" for each, with the name of the file in front if it isn't the deck itself.
std::string Dump(const DeckReport& report)
{
    std::string text;
    for (const Finding& finding : report.findings.GetKept()) {
        const std::string file = std::filesystem::path(finding.location.file).filename();
        text += (text.empty() ? "" : " ") + (file == "main.data" ? "" : file + ":") + finding.code + ":"
            + std::to_string(finding.location.line) + ":" + std::to_string(finding.location.column);
    }
    return text;
}

std::string Repeat(const std::string& text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

struct Row {
    const char* name;
    std::string deck;
    const char* findings;
    Files files = {};
    Target target = {};
};

constexpr auto anyMode = SimulatorModeType::Any;
constexpr Target carrow{SimulatorType::Carrow, anyMode};
constexpr Target dunmere{SimulatorType::Dunmere, anyMode};

class Decks : public testing::TestWithParam<Row> { };

TEST_P(Decks, AreChecked)
{
    const DeckOnDisk deck(GetParam().deck, GetParam().files);
    EXPECT_EQ(Dump(deck.Check({.target = GetParam().target})), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(Bytes, Decks,
    testing::Values(Row{"Empty", "-- nothing\n", "no-section:1:1"},
        Row{"NoLastLineEnd", "RUNSPEC\nWATR", "unknown-keyword:2:1"},
        Row{"WindowsLineEnds", "RUNSPEC\r\nOIL\r\nWATR\r\n", "unknown-keyword:3:1"},
        Row{"ByteOrderMark", "\xEF\xBB\xBFRUNSPEC\nOIL\n", ""},
        Row{"WideCharacters", std::string("\xFF\xFER\0U\0", 6), "encoding:1:1"},
        Row{"TabsAndComments", "RUNSPEC\t-- first\nOIL--last\nWATR \t /\t-- x\nWATR\t\n",
            "unknown-keyword:3:1 unknown-keyword:4:1"},
        Row{"ZeroBytes", std::string("RUNSPEC\n 1 \0 /\nOIL\0\nWATER\n", 26), "stray-text:2:2"},
        Row{"LineOfMegabytes", "RUNSPEC\nDIMENS\n" + std::string(3'000'000, '7') + " /\nWATR\n",
            "wrong-type:3:1 unknown-keyword:4:1"},
        Row{"WordOfMegabytes", "RUNSPEC\n" + std::string(3'000'000, 'A') + "\n", "unknown-keyword:2:1"}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Recognition, Decks,
    testing::Values(Row{"IndentedWordIsNoKeyword", "RUNSPEC\n OIL\n", "stray-text:2:2"},
        Row{"UnknownWithDataBehind", "RUNSPEC\nWATR 1 /\n 2 /\n", "unknown-keyword:2:1"},
        Row{"UnknownBehindKeywordWithoutData", "RUNSPEC\nOIL\nWATR\n", "unknown-keyword:3:1"},
        Row{"UnknownBehindClosedData", "RUNSPEC\nDIMENS\n 1 1\n 1 / cells\n\n-- c\nWATR\n",
            "unknown-keyword:7:1"},
        Row{"UnknownInOpenDataIsData", "SCHEDULE\nDATES\n 1 JAN\nXYZ\n 1999 /\n", ""},
        Row{"SlashInQuotesDoesNotClose", "SCHEDULE\nDATES\n 'a/b'\nXYZ\n", "unclosed-data:4:4"},
        Row{"SlashInCommentDoesNotClose", "SCHEDULE\nDATES\n 1 -- a/b\nXYZ\n", "unclosed-data:4:4"},
        Row{"NameBeforeSlashIsData", "SUMMARY\nWBHP\nPROD /\n/\n", "stray-text:4:1"},
        Row{"KnownInOpenDataIsKeyword", "SCHEDULE\nDATES\n 1 JAN\nPORO\n 1 /\n",
            "unclosed-data:3:7 wrong-section:4:1"},
        Row{"LongNameDoesNotMatchWildcard", "SUMMARY\nFUWELL\nFUNNYNAME\n", "unknown-keyword:3:1"},
        Row{"LowerCaseIsToldOnce", "RUNSPEC\nOIL\nGrid\nPORO\n 1 /\nporo\n 1 /\n",
            "lower-case:3:1 lower-case:6:1"},
        Row{"LowerCaseInOpenDataIsData", "SCHEDULE\nDATES\n 1 JAN\noil\n 1999 /\n", ""},
        Row{"LowerCaseInclusionIsRead", "RUNSPEC\ninclude 'a.inc' /\n",
            "lower-case:2:1 a.inc:unknown-keyword:1:1", {{"a.inc", "OLI\n"}}},
        Row{"MisspeltInclusionIsRead", "RUNSPEC\nINCLDUE\n 'a.inc' /\n",
            "unknown-keyword:2:1 a.inc:unknown-keyword:1:1", {{"a.inc", "OLI\n"}}},
        Row{"OrdinaryTextIsData", "RUNSPEC\nTITLE\nx\nsome\nOIL\n", "stray-text:4:1"},
        Row{"TitleMayBeAKeyword", "RUNSPEC\nTITLE\nGRID\nOIL\n", ""},
        Row{"TitleMayBeBlank", "RUNSPEC\nTITLE\n\nWATR\n", "unknown-keyword:4:1"},
        Row{"TitleMayFollowAComment", "RUNSPEC\nTITLE\n-- c\nSTUDY\nWATR\n", "unknown-keyword:5:1"},
        Row{"KeywordBehindCommentIsNoTitle", "RUNSPEC\nTITLE\n-- c\nOIL\nWATR\n", "unknown-keyword:5:1"},
        Row{"RawTextIsPassedOver", "RUNSPEC\nHOSTDATA\nWATR\nGRID\nEND\nendhost of it\nOIL\nWATR\n",
            "unknown-keyword:8:1"},
        Row{"RawTextEndsWithAWholeWord", "RUNSPEC\nHOSTDATA\nENDHOST1\nWATR\nENDHOST\nOIL\n", ""},
        Row{"RawTextMustEnd", "RUNSPEC\nHOSTDATA\nOIL\n", "unclosed-text:2:1"},
        Row{"ListEndsWithItsWord", "SCHEDULE\nUNTIL\n a b\nSTOP\nWATR\n", "unknown-keyword:5:1"},
        Row{"BareNamesInAListAreData", "SUMMARY\nWBHP\nP1\nP2\n/\nWATR\n", "unknown-keyword:6:1"}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Sections, Decks,
    testing::Values(Row{"NoneIsToldOnce", "OIL\nWATER\nGRID\nPORO\n 1 /\n", "no-section:1:1"},
        Row{"ValidEverywhereNeedsNone", "ECHO\nSKIP\nENDSKIP\nRUNSPEC\n", ""},
        Row{"OutOfOrder", "RUNSPEC\nPROPS\nGRID\nPORO\n 1 /\nREGIONS\n", "section-order:3:1"},
        Row{"Repeated", "RUNSPEC\nGRID\nGRID\nPORO\n 1 /\n", "section-order:3:1"},
        Row{"WrongSection", "RUNSPEC\nGRID\nDATES\n 1 JAN 1999 /\n", "wrong-section:3:1"},
        Row{"MisspeltLine", "RUNSPEC\nGIRD\nPORO\n 1 /\n", "unknown-keyword:2:1"},
        Row{"MissingLineIsToldOnce", "RUNSPEC\nPORO\n 1 /\nPORO\n 1 /\nPROPS\nPORO\n 1 /\n",
            "wrong-section:2:1 wrong-section:7:1"},
        Row{"BackFromAMissingLine", "RUNSPEC\nPORO\n 1 /\nPORO\n 1 /\nOIL\nPORO\n 1 /\n",
            "wrong-section:2:1 wrong-section:7:1"},
        Row{"AliasInItsSection", "GRID\nPERMR\nKX\n", ""},
        Row{"SeveralDefinitions", "GRID\nTIME\nSUMMARY\nTIME\nSCHEDULE\nTIME\n", "wrong-section:2:1"},
        Row{"WildcardInItsSection", "GRID\nFUXX\nSUMMARY\nFUXX\n", "wrong-section:2:1"}),
    CaseName<Row>);

const std::string someKeywords = "RUNSPEC\nPARALLEL\n /\nCOMPS\n /\nGRID\nSPLIT\n /\nPROPS\nSPLIT\n /\n";

INSTANTIATE_TEST_SUITE_P(Targets, Decks,
    testing::Values(Row{"None", someKeywords, ""},
        Row{"Carrow", someKeywords, "wrong-simulator:2:1 wrong-section:10:1", {}, carrow},
        Row{"Dunmere", someKeywords, "wrong-section:7:1", {}, dunmere},
        Row{"DunmereBlackOil", someKeywords, "wrong-mode:4:1 wrong-section:7:1", {},
            {SimulatorType::Dunmere, SimulatorModeType::BlackOil}},
        Row{"ModeAlone", someKeywords, "wrong-mode:4:1 wrong-mode:7:1", {},
            {SimulatorType::Any, SimulatorModeType::Thermal}},
        Row{"WrongSectionHidesWrongSimulator", "GRID\nPARALLEL\n /\n", "wrong-section:2:1", {}, carrow},
        Row{"SectionOfOtherSimulator", "RUNSPEC\nOPTIMIZE\n", "wrong-simulator:2:1", {}, carrow}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Inclusions, Decks,
    testing::Values(Row{"NameOnTheNextLine", "RUNSPEC\nINCLUDE\n-- c\n\n 'a.inc' /\nWATR\n",
                        "a.inc:unknown-keyword:1:1 unknown-keyword:6:1", {{"a.inc", "OLI\n"}}},
        Row{"NameOnTheSameLine", "RUNSPEC\nINCLUDE \"a b.inc\" /\n", "a b.inc:unknown-keyword:1:1",
            {{"a b.inc", "OLI"}}},
        Row{"BareName", "RUNSPEC\nINCLUDE\nsub/a.inc/\n", "a.inc:unknown-keyword:1:1",
            {{"sub/a.inc", "OLI\n"}}},
        Row{"FromTheFolderOfTheDeck", "RUNSPEC\nINCLUDE\n'sub/a.inc' /\n", "b.inc:unknown-keyword:1:1",
            {{"sub/a.inc", "INCLUDE\n'sub/b.inc' /\n"}, {"sub/b.inc", "OLI\n"}}},
        Row{"SectionsGoOnBehind", "RUNSPEC\nINCLUDE\n'a.inc' /\nPORO\n 1 /\nOIL\n", "wrong-section:6:1",
            {{"a.inc", "GRID\n"}}},
        Row{"OpenDataGoOnInside", "GRID\nPORO\n 1 2\nINCLUDE\n'a.inc' /\n 5 /\nXX\n",
            "a.inc:wrong-type:1:1 unknown-keyword:7:1", {{"a.inc", "XX\n 3 4\n"}}},
        Row{"EndOfTheFile", "RUNSPEC\nINCLUDE\n'a.inc' /\nWATR\n", "unknown-keyword:4:1",
            {{"a.inc", "OIL\nENDINC\nOLI\n"}}},
        Row{"EndInside", "RUNSPEC\nINCLUDE\n'a.inc' /\nWATR\n", "", {{"a.inc", "OIL\nEND\nOLI\n"}}},
        Row{"EndIsTheEnd", "RUNSPEC\nOIL\nEND\nWATR\nSKIP\n", ""},
        Row{"EndOfTheFileInTheDeck", "RUNSPEC\nENDINC\nWATR\n", "stray-endinc:2:1 unknown-keyword:3:1"},
        Row{"Missing", "RUNSPEC\nINCLUDE\n  'none.inc' /\n", "include-missing:3:3"},
        Row{"Folder", "RUNSPEC\nINCLUDE '/'\n", "include-missing:2:9"},
        Row{"EndlessDevice", "RUNSPEC\nINCLUDE '/dev/zero' /\n", "include-missing:2:9"},
        Row{"ZeroByteInName", std::string("RUNSPEC\nINCLUDE 'a\0b' /\n", 24), "include-missing:2:9"},
        Row{"MissingMayHaveHeldSections", "RUNSPEC\nINCLUDE 'x' /\nPORO\n 1 /\nPROPS\nPORO\n",
            "include-missing:2:9 wrong-section:6:1"},
        Row{"AliasIsToldOnce", "RUNSPEC\nINCLUDE '$DIR/x.inc' /\nINCLUDE '$DIR/y.inc' /\n",
            "unknown-alias:2:9"},
        Row{"NoName", "RUNSPEC\nINCLUDE\nOIL\nINCLUDE /\nINCLUDE\n",
            "include-name:2:1 include-name:4:1 include-name:5:1"},
        Row{"OpenQuote", "RUNSPEC\nINCLUDE 'a.inc /\n", "include-name:2:9"},
        Row{"Loop", "RUNSPEC\nINCLUDE 'a.inc' /\nWATR\n", "a.inc:include-loop:1:9 unknown-keyword:3:1",
            {{"a.inc", "INCLUDE './sub/../main.data'\n"}, {"sub/x", ""}}},
        Row{"TwiceIsNoLoop", "RUNSPEC\nINCLUDE 'a.inc' /\nINCLUDE 'a.inc' /\n", "", {{"a.inc", "OIL\n"}}}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(SkippedBlocks, Decks,
    testing::Values(Row{"PassedOver", "RUNSPEC\nSKIP\nWATR\nGRID\nINCLUDE\n'x'\nEND\nENDSKIP\nOLI\n",
                        "unknown-keyword:9:1"},
        Row{"Counted", "RUNSPEC\nSKIP\nSKIPDUN\nENDSKIP\nWATR\nENDSKIP\nOLI\n", "unknown-keyword:7:1"},
        Row{"OfNoSimulatorAskedFor", "RUNSPEC\nSKIPCAR\nWATR\nENDSKIP\n", "unknown-keyword:3:1"},
        Row{"OfTheSimulator", "RUNSPEC\nSKIPCAR\nWATR\nENDSKIP\nOLI\n", "unknown-keyword:5:1", {}, carrow},
        Row{"OfAnotherSimulator", "RUNSPEC\nSKIPCAR\nWATR\nENDSKIP\nSKIPDUN\nWATR\nENDSKIP\n",
            "unknown-keyword:3:1", {}, dunmere},
        Row{"InsideABlockThatIsRead", "RUNSPEC\nSKIPCAR\nSKIP\nWATR\nENDSKIP\nOLI\nENDSKIP\n",
            "unknown-keyword:6:1", {}, dunmere},
        Row{"Unclosed", "RUNSPEC\nSKIP\nSKIP\nENDSKIP\nWATR\n", "unclosed-skip:2:1"},
        Row{"UnclosedAtTheEnd", "RUNSPEC\nSKIPCAR\nEND\n", "unclosed-skip:2:1"},
        Row{"Stray", "RUNSPEC\nENDSKIP\nOIL\n", "stray-endskip:2:1"},
        Row{"EndsInItsFile", "RUNSPEC\nINCLUDE 'a.inc' /\nENDSKIP\n",
            "a.inc:unclosed-skip:1:1 stray-endskip:3:1", {{"a.inc", "SKIP\n"}}}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(Suppressions, Decks,
    testing::Values(
        Row{"OnItsLine", "RUNSPEC\nWATR -- quor: off unknown-keyword\nOLI\n", "unknown-keyword:3:1"},
        Row{"OnTheNextLine", "RUNSPEC\n  --quor: off\n\n-- c\nWATR\nOLI\n", "unknown-keyword:6:1"},
        Row{"SeveralForOneLine", "RUNSPEC\n-- quor: off unknown-keyword\n-- quor: off stray-text\nWATR\n",
            ""},
        Row{"OtherCodeIsTold", "RUNSPEC\nWATR -- quor: off wrong-section, stray-text\n",
            "unknown-keyword:2:1"},
        Row{"ARegion",
            "RUNSPEC\n-- quor: begin-off wrong-section,unknown-keyword -- later\nWATR\nPORO\n 1 /\noil\n"
            "-- quor: end-off wrong-section\nWATR\nPORO\n 1 /\n-- quor: end-off\nWATR\n",
            "lower-case:6:1 wrong-section:9:1 unknown-keyword:12:1"},
        Row{"OfOneFile", "RUNSPEC\nINCLUDE 'a.inc' /\nWATR\n", "unknown-keyword:3:1",
            {{"a.inc", "-- quor: begin-off\nWATR\n-- quor: end-off\n"}}},
        Row{"WindowsLineEnds", "RUNSPEC\r\nWATR -- quor: off unknown-keyword\r\n", ""},
        Row{"WordsOfOtherComments", "RUNSPEC\nWATR -- see quor: off\n -- quor off\n", "unknown-keyword:2:1"},
        Row{"UnknownCode", "RUNSPEC\nWATR -- quor: off unknwon-keyword\n",
            "bad-silence:2:19 unknown-keyword:2:1"},
        Row{"UnknownVerb", "RUNSPEC\n-- quor: of\n", "bad-silence:2:10"},
        Row{"Unclosed", "RUNSPEC\n-- quor: begin-off\nWATR\n", "bad-silence:2:1"},
        Row{"ClosesNothing", "RUNSPEC\n-- quor: end-off\n", "bad-silence:2:1"},
        Row{"ItsFaultsAreToldOfATextOnce", "RUNSPEC\nINCLUDE 'a.inc' /\nINCLUDE 'a.inc' /\n",
            "a.inc:bad-silence:1:1", {{"a.inc", "-- quor:\n"}}}),
    CaseName<Row>);

TEST(DeckReports, CountSilencedFindingsForThemselves)
{
    const DeckReport report = DeckOnDisk("RUNSPEC\nWATR -- quor: off\nOLI\n").Check();
    EXPECT_EQ(report.findings.GetHiddenCount(Hiding::Silenced), 1U);
    EXPECT_EQ(report.findings.GetCount(Severity::Error), 1U);
}

TEST(DeckSilences, OfManyLinesCostNoMoreThanReadingThem) // quadratic work would run into the time limit
{
    const std::string comments = Repeat("-- quor: off stray-text\n", 300'000);
    const std::string one = Repeat(" -- quor: off", 300'000);
    EXPECT_EQ(Dump(DeckOnDisk("RUNSPEC\n" + comments + "WATR" + one + "\n").Check()), "");
}

TEST(DeckFinding, SaysWhatWhereAndWhatToDo)
{
    const DeckReport report =
        DeckOnDisk("RUNSPEC\nINCLUDE\n 'a.inc' /\n", {{"a.inc", "-- c\nSCHEDULE\nWELSPEXX  -- wells\n"}})
            .Check();
    ASSERT_EQ(report.findings.GetKept().size(), 1U);
    const Finding& finding = report.findings.GetKept().front();
    EXPECT_EQ(finding.severity, Severity::Error);
    EXPECT_EQ(finding.message, "unknown keyword 'WELSPEXX'");
    EXPECT_EQ(finding.hint, "did you mean WELSPECL, WELSPECS?");
    EXPECT_EQ(finding.excerpt, "WELSPEXX  -- wells");
    EXPECT_EQ(finding.length, 8U);
    ASSERT_EQ(finding.includedFrom.size(), 1U);
    EXPECT_EQ(finding.includedFrom[0].line, 2U);
    EXPECT_TRUE(finding.includedFrom[0].file.ends_with("main.data"));
}

struct Sentence {
    const char* name;
    std::string deck;
    Target target;
    const char* message;
    const char* hint;
};

class Sentences : public testing::TestWithParam<Sentence> { };

TEST_P(Sentences, AreReported)
{
    const DeckReport report = DeckOnDisk(GetParam().deck).Check({GetParam().target, 200});
    ASSERT_EQ(report.findings.GetKept().size(), 1U);
    EXPECT_EQ(report.findings.GetKept()[0].message, GetParam().message);
    EXPECT_EQ(report.findings.GetKept()[0].hint, GetParam().hint);
}

INSTANTIATE_TEST_SUITE_P(Objections, Sentences,
    testing::Values(Sentence{"Section", "GRID\nTIME\n", {},
                        "TIME is not valid in GRID; it is valid in SUMMARY, SCHEDULE", ""},
        Sentence{"SectionForTheSimulator", "PROPS\nSPLIT\n", carrow,
            "SPLIT is not valid in PROPS; it is valid in GRID", ""},
        Sentence{"Simulator", "RUNSPEC\nPARALLEL\n", carrow, "PARALLEL is not valid for Carrow",
            "it is valid for Dunmere"},
        Sentence{"Mode", "RUNSPEC\nCOMPS\n", {SimulatorType::Dunmere, SimulatorModeType::Thermal},
            "COMPS is not valid in the mode Thermal of Dunmere", "it is valid in Compositional"},
        Sentence{"LowerCase", "runspec\n", {}, "the keyword RUNSPEC is not in upper case", "write RUNSPEC"},
        Sentence{"LongName", "RUNSPEC\nPRODUCERS\n", {}, "PRODUCERS is not a keyword",
            "the names of keywords have at most 8 characters"}),
    CaseName<Sentence>);

TEST(DeckFinding, ShowsThePartOfALongLineAroundThePlace)
{
    const DeckReport report = DeckOnDisk("RUNSPEC\nINCLUDE" + std::string(1000, ' ') + "'x.inc' /\n").Check();
    ASSERT_EQ(report.findings.GetKept().size(), 1U);
    const Finding& finding = report.findings.GetKept().front();
    EXPECT_EQ(finding.location.column, 1008U);
    EXPECT_EQ(finding.excerptColumn, 1008U);
    EXPECT_EQ(finding.excerpt, "'x.inc' /");
}

TEST(DeckReports, CountWhatIsNotPassedOver)
{
    const DeckReport report = DeckOnDisk(
        "RUNSPEC\nOIL\nSKIP\nWATER\nENDSKIP\nGRID\nINCLUDE 'a.inc' /\nINCLUDE 'a.inc' /\nEND\nOIL\n",
        {{"a.inc",
            "PORO\n 1 /\n"}}).Check();
    EXPECT_EQ(report.keywords, 5U); // what belongs to the text is not among them
    EXPECT_EQ(report.sections, 2U);
    EXPECT_EQ(report.files, 2U);
}

TEST(DeckReports, KeepFindingsUpToTheLimitAndCountAll)
{
    const DeckReport report = DeckOnDisk("RUNSPEC\n" + Repeat("WATR\n", 5) + "INCLUDE '$X'\n").Check({{}, 2});
    EXPECT_EQ(Dump(report), "unknown-keyword:2:1 unknown-keyword:3:1");
    EXPECT_EQ(report.findings.GetOmittedCount(), 4U);
    EXPECT_EQ(report.findings.GetCount(Severity::Error), 6U);
}

TEST(DeckReports, NotesAreNoFault)
{
    Findings findings(1);
    findings.Admit(Severity::Note);
    EXPECT_FALSE(findings.HasFault());
    findings.Admit(Severity::Warning);
    EXPECT_TRUE(findings.HasFault());
}

/// Files that each include the next.
Files Chain(int length, int times)
{
    Files files;
    for (int i = 0; i < length; ++i)
        files.emplace_back(std::to_string(i), Repeat("INCLUDE '" + std::to_string(i + 1) + "'\n", times));
    files.emplace_back(std::to_string(length), "OIL\n");
    return files;
}

TEST(DeckInclusions, GoAHundredDeep)
{
    EXPECT_EQ(Dump(DeckOnDisk("RUNSPEC\nINCLUDE '0'\n", Chain(99, 1)).Check()), "");
    EXPECT_EQ(Dump(DeckOnDisk("RUNSPEC\nINCLUDE '0'\n", Chain(100, 1)).Check()), "99:include-depth:1:9");
}

TEST(DeckInclusions, ThatGrowWithoutBoundsAreStopped)
{
    const DeckReport report = DeckOnDisk("RUNSPEC\nINCLUDE '0'\n", Chain(50, 2)).Check();
    ASSERT_EQ(report.findings.GetKept().size(), 1U);
    EXPECT_EQ(report.findings.GetKept()[0].code, "include-count");
}

TEST(DeckInclusions, LoopThroughALinkToo)
{
    const DeckOnDisk deck("RUNSPEC\nINCLUDE 'link.inc' /\n");
    std::filesystem::create_symlink("main.data", deck.Folder() / "link.inc");
    EXPECT_EQ(Dump(deck.Check()), "include-loop:2:9");
}

TEST(DeckInclusions, OfALargeFileInItselfDontReadItAgain) // it would run into the time limit
{
    const DeckReport report = DeckOnDisk("RUNSPEC\n" + Repeat("INCLUDE 'main.data' /\n", 300'000)).Check();
    EXPECT_EQ(report.findings.GetCount(Severity::Error), 300'000U);
}

TEST(DeckBlocks, CostTheSameAtAnyDepth) // quadratic work would run into the time limit
{
    constexpr int many = 300'000;
    const DeckOnDisk deck(
        "RUNSPEC\n" + Repeat("SKIPCAR\n", many) + Repeat("OIL\n", many) + Repeat("ENDSKIP\n", many));
    EXPECT_EQ(Dump(deck.Check()), "");
}

TEST(DeckThatCannotBeRead, Throws)
{
    const TemporaryDirectory folder;
    EXPECT_THROW(CheckDeck((folder.Path() / "none").string(), {}, SmallVocabulary()), SourceError);
    EXPECT_THROW(CheckDeck(folder.Path().string(), {}, SmallVocabulary()), SourceError);
}

} // namespace
