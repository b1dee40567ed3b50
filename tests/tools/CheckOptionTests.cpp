#include "tests/deck/Language.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"
#include "tools/quor/terminal/ProgressBar.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

using namespace Veld::Quor::Tests;
using nlohmann::json;

namespace {

/// Checks decks of the small language.
Outcome Check(const std::string& arguments)
{
    return RunOn(SmallLanguage(), "check " + arguments);
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What the summary of a text says behind the number of files.
std::string EndOf(const Outcome& outcome)
{
    const std::size_t at = outcome.out.rfind("file");
    return at == std::string::npos ? outcome.err : outcome.out.substr(outcome.out.find(':', at) + 2);
}

const std::string knownDeck = "RUNSPEC\nWATR\nWATR \nINCLUDE 'sub/a.inc' /\n";

struct Change {
    const char* name;
    std::string deck;
    std::string included;
    const char* end; // of the summary
    int status;
};

class KnownFindings : public testing::TestWithParam<Change> { };

TEST_P(KnownFindings, AreHidden)
{
    const TemporaryDirectory folder;
    const std::string deck = folder.Write("d.data", knownDeck);
    folder.Write("sub/a.inc", "OLI\n");
    const std::string baseline = (folder.Path() / "known.json").string();
    EXPECT_EQ(Check("" + deck + " --write-baseline " + baseline).status, 0);
    folder.Write("d.data", GetParam().deck);
    folder.Write("sub/a.inc", GetParam().included);
    // From another folder, and with room for one finding: none of it is to go to a known one.
    const Outcome outcome = Check("" + deck + " --max-findings 1 --baseline " + baseline);
    EXPECT_EQ(EndOf(outcome), GetParam().end) << outcome.out;
    EXPECT_EQ(outcome.status, GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(Baselines, KnownFindings,
    testing::Values(Change{"Unchanged", knownDeck, "OLI\n", "no findings, 3 known findings hidden\n", 0},
        Change{"MovedLines", "-- c\n\nRUNSPEC\nINCLUDE 'sub/a.inc' /\n\nWATR\n", "\n\nOLI\n",
            "no findings, 2 known findings hidden\n", 0},
        Change{"OneMoreOfAKind", "RUNSPEC\nWATR\nWATR\nWATR\n", "", "1 error, 2 known findings hidden\n", 1},
        Change{"OtherText", "RUNSPEC\nWATR -- c\nINCLUDE 'sub/a.inc' /\n", "OLI\n",
            "1 error, 1 known finding hidden\n", 1},
        Change{"OtherFile", "RUNSPEC\nOLI\n", "", "1 error\n", 1},
        Change{"OtherCode", "RUNSPEC\nOIL\n  WATR\n", "", "1 error\n", 1}),
    CaseName<Change>);

TEST(Baseline, IsSortedAndReplacedAsAWhole)
{
    const TemporaryDirectory folder;
    const std::string deck = folder.Write("d.data", "RUNSPEC\n1 x\xff\nOIL\nWATR\nWATR\n");
    const std::string baseline = folder.Write("known.json", "{\"version\": 1,\n\"findings\": [{");
    const Outcome outcome = Check("" + deck + " --write-baseline " + baseline);
    EXPECT_TRUE(Holds(outcome.err, "baseline: 3 findings written")) << outcome.err;
    const json expected = {{"version", 1},
        {"findings",
            {{{"code", "stray-text"}, {"file", "d.data"}, {"text", "1 x\uFFFD"}, {"count", 1}},
                {{"code", "unknown-keyword"}, {"file", "d.data"}, {"text", "WATR"}, {"count", 2}}}}};
    EXPECT_EQ(json::parse(ReadFile(baseline)), expected);
    EXPECT_EQ(Check("" + deck + " --baseline " + baseline).status, 0);
    // A deck that can't be read leaves the file as it is, and nothing else behind.
    EXPECT_EQ(Check("/none.data --write-baseline " + baseline).status, 2);
    EXPECT_EQ(json::parse(ReadFile(baseline)), expected);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 2);
}

class BadBaselines : public testing::TestWithParam<Row> { };

TEST_P(BadBaselines, AreRefused)
{
    const TemporaryDirectory folder;
    const std::string deck = folder.Write("d.data", "RUNSPEC\n");
    const Outcome outcome = Check("" + deck + " --baseline " + folder.Write("known.json", GetParam().text));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(Holds(outcome.err, "known.json': " + GetParam().expected)) << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Files, BadBaselines, testing::ValuesIn(Rows(R"(
Empty:  => line 1: invalid JSON; create a new baseline with --write-baseline
CutShort: {"version": 1,\n"findings": [{ => line 2: invalid JSON; create a new baseline with --write-baseline
OtherJson: [1] => expected an array "findings"; create a new baseline with --write-baseline
OtherVersion: {"version": 2, "findings": []} => expected "version" 1; create a new baseline with --write-baseline
NoText: {"version": 1, "findings": [{"code": "a", "file": "b"}]} => line 1: finding 1: expected a string "text"; create a new baseline with --write-baseline
NoObject: {"version": 1, "findings": [\n{"code": "a", "file": "b", "text": "c", "count": 1},\n7]} => line 3: finding 2: expected an object; create a new baseline with --write-baseline
UnknownMember: {"version": 1, "findings": [\n{"code": "a", "file": "b", "text": "c", "count": 1, "line": 3}]} => line 2: finding 1: unknown member "line"; create a new baseline with --write-baseline
OddNumber: {"version": 1, "findings": [\n{"code": "a", "file": "b", "text": "c", "count": 1e999\n}]} => line 2: invalid JSON; create a new baseline with --write-baseline
NegativeCount: {"version": 1, "findings": [{"code": "a", "file": "b", "text": "c", "count": -1}]} => line 1: finding 1: expected "count" as a whole number above 0; create a new baseline with --write-baseline
)")),
    CaseName<Row>);

TEST(Check, CountsAbbreviationsOfEachDeckInFull) // the library tells like messages ten times only
{
    const TemporaryDirectory folder;
    std::string text = "SCHEDULE\nWELSPECS\n";
    for (int i = 0; i < 25; ++i)
        text += " 'P" + std::to_string(i) + "' 'G' 1 1 2000 WATE /\n";
    text += "/\n";
    const Outcome outcome =
        RunQuor("check --format json " + folder.Write("a.data", text) + " " + folder.Write("b.data", text));
    EXPECT_EQ(json::parse(outcome.out)["counts"]["warnings"], 50) << outcome.err;
}

TEST(Check, FoldsWhatIsAlikeInAllFormats)
{
    const TemporaryDirectory folder;
    const std::string deck = folder.Write("d.data", "RUNSPEC\nWATR\nOIL\nWATR\nWATR\n");
    const auto check = [&deck](const std::string& options) { return Check("" + options + " " + deck).out; };
    EXPECT_TRUE(Holds(check(""), "  and 2 more like it; use --all to show each\nd.data:"));
    EXPECT_TRUE(Holds(check(""), ": 3 errors\n"));
    const json report = json::parse(check("--format json"));
    EXPECT_EQ(report["findings"].size(), 1U);
    EXPECT_EQ(report["findings"][0]["more"], 2);
    EXPECT_EQ(report["counts"]["errors"], 3);
    for (const char* const format : {"gcc", "github", "sarif"})
        EXPECT_TRUE(
            Holds(check(std::string("--format ") + format), "unknown keyword 'WATR', and 2 more like it"));
    EXPECT_EQ(json::parse(check("--all --format json"))["findings"].size(), 3U);
}

TEST(CheckRules, NameTheOtherLocationInAllFormats)
{
    const TemporaryDirectory folder;
    folder.Write("a.data", "RUNSPEC\nIMPES\nAIM\n");
    folder.Write("r.xml", "<rules><exclusive keywords='IMPES AIM' what='solution'/></rules>");
    const std::string run = "cd " + Quote(folder.Path().string()) + "; \"$QUOR\" check a.data --rules r.xml";
    EXPECT_EQ(RunShell(run).out,
        R"(a.data:3:1: error: AIM contradicts IMPES; expected one solution [conflicting-keywords]
    AIM
    ^~~
  hint: remove one of them
  see a.data:2:1: IMPES is here
a.data: 3 keywords in 1 section, 1 file: 1 error
)");
    EXPECT_EQ(RunShell(run + " --format gcc").out,
        "a.data:3:1: error: AIM contradicts IMPES; expected one solution; remove one of them "
        "[conflicting-keywords]\na.data:2:1: note: IMPES is here\n");
    EXPECT_EQ(RunShell(run + " --format github").out,
        "::error file=a.data,line=3,col=1,title=conflicting-keywords::AIM contradicts IMPES; expected one "
        "solution; remove one of them%0Aa.data:2: IMPES is here\n");
    EXPECT_TRUE(Holds(RunShell(run + " --statistics").out, "1 deck, 0 clean: 1 error,"));
}

TEST(Check, CountsTheFindingsOfManyDecks)
{
    const TemporaryDirectory folder;
    folder.Write("a.data", "RUNSPEC\nWATR\nOIL\nGRID\nPORO\n x y /\nWATR\nINCLUDE\n 'none' /\n");
    folder.Write("b.data", "RUNSPEC\nOIL\nGRID\nPORO\n z /\n");
    folder.Write("c.data", "RUNSPEC\nOIL\n");
    const std::string run =
        "cd " + Quote(folder.Path().string()) + "; \"$QUOR\" check a.data b.data c.data --statistics";
    const Outcome text = RunShell(run);
    EXPECT_EQ(text.status, 1);
    EXPECT_EQ(text.out, R"(by code and keyword
  findings  decks  code             keyword  first at
  3         2      wrong-type       PORO     a.data:6
  2         1      unknown-keyword  WATR     a.data:2
  1         1      include-missing  -        a.data:9

by code
  findings  decks  code             first at
  3         2      wrong-type       a.data:6
  2         1      unknown-keyword  a.data:2
  1         1      include-missing  a.data:9

by keyword
  findings  decks  keyword  first at
  3         2      PORO     a.data:6
  2         1      WATR     a.data:2
  1         1      -        a.data:9

3 decks, 1 clean: 6 errors, 0 warnings, 0 notes
)");
    const json report = json::parse(RunShell(run + " --format json").out);
    EXPECT_EQ(report["decks"], 3);
    EXPECT_EQ(report["clean"], 1);
    EXPECT_EQ(report["counts"]["errors"], 6);
    EXPECT_EQ(report["byCodeAndKeyword"][1],
        json::parse(R"({"code": "unknown-keyword", "keyword": "WATR", "findings": 2, "decks": 1, "example":
            {"file": "a.data", "line": 2, "column": 1, "message": "unknown keyword 'WATR'"}})"));
    EXPECT_EQ(report["byKeyword"].size(), report["byCode"].size());
}

TEST(Check, GivesTheRulesTheirMeaningInSarif)
{
    const TemporaryDirectory folder;
    const Outcome outcome = Check("--format sarif " + folder.Write("d.data", "RUNSPEC\nWATR\n"));
    const json run = json::parse(outcome.out)["runs"][0];
    const json rule = run["tool"]["driver"]["rules"][run["results"][0]["ruleIndex"].get<std::size_t>()];
    EXPECT_EQ(rule["id"], "unknown-keyword");
    EXPECT_EQ(rule["shortDescription"]["text"], "A word is not a known keyword.");
}

TEST(Check, GivesTheFixOfAFinding)
{
    const TemporaryDirectory folder;
    const std::string deck =
        folder.Write("d.data", "RUNSPEC\n\xC3\xA4ndern\nENDSKIP\nNOTES\nENDNOTES\nOIL \xC3\xA4\n");
    const json change = {{"file", deck}, {"line", 3}, {"column", 1}, {"length", 8}, {"text", ""}};
    const json findings = json::parse(RunQuor("check --strict --format json " + deck).out)["findings"];
    ASSERT_EQ(findings.size(), 3U);
    EXPECT_EQ(findings[0]["fix"], json::array());
    EXPECT_EQ(findings[1]["fix"], json::array({change}));

    const json results =
        json::parse(RunQuor("check --strict --format sarif " + deck).out)["runs"][0]["results"];
    EXPECT_FALSE(results[0].contains("fixes"));
    const auto replacementOf = [](const json& result) {
        return result["fixes"][0]["artifactChanges"][0]["replacements"][0];
    };
    EXPECT_EQ(results[1]["fixes"][0]["artifactChanges"][0]["artifactLocation"],
        results[1]["locations"][0]["physicalLocation"]["artifactLocation"]);
    EXPECT_EQ(replacementOf(results[1]), json::parse(R"({"deletedRegion":
        {"startLine": 3, "startColumn": 1, "endLine": 4, "endColumn": 1}})"));
    EXPECT_EQ(replacementOf(results[2]), json::parse(R"({"deletedRegion":
        {"startLine": 6, "startColumn": 5, "endLine": 6, "endColumn": 5}, "insertedContent": {"text": "-- "}})"));
}

TEST(Check, CountsTheColumnsOfAFixInCharacters)
{
    const TemporaryDirectory folder;
    const std::string deck =
        folder.Write("d.data", "SCHEDULE\nWELSPECS\n '\xC3\xA4' 'G' 1 1 2000 WATE /\n/\n");
    const json finding = json::parse(RunQuor("check --format json " + deck).out)["findings"][0];
    EXPECT_EQ(finding["fix"][0]["column"], 20);
    const json result = json::parse(RunQuor("check --format sarif " + deck).out)["runs"][0]["results"][0];
    const json replacement = result["fixes"][0]["artifactChanges"][0]["replacements"][0];
    EXPECT_EQ(replacement["deletedRegion"]["startColumn"], 19);
    EXPECT_EQ(replacement["deletedRegion"]["endColumn"], 23);
    EXPECT_EQ(replacement["insertedContent"]["text"], "WATER");
}

struct Bar {
    const char* name;
    std::size_t done;
    std::size_t known;
    double seconds;
    std::size_t width;
    const char* text;
};

class Bars : public testing::TestWithParam<Bar> { };

TEST_P(Bars, FitTheLine)
{
    const Bar& bar = GetParam();
    EXPECT_EQ(Veld::Quor::Tools::ProgressText(bar.done, bar.known, bar.seconds, bar.width, false), bar.text);
}

INSTANTIATE_TEST_SUITE_P(Progress, Bars,
    testing::Values(Bar{"Half", 50'000'000, 100'000'000, 2, 28, "[=====      ]   50%  25 MB/s"},
        Bar{"NothingKnown", 0, 0, 0, 28, "[============]  100%  0 MB/s"},
        Bar{"MoreThanKnown", 9, 3, 1, 28, "[============]  100%  0 MB/s"},
        Bar{"Narrow", 1, 2, 1, 16, " 50%  0 MB/s"}, Bar{"NoRoom", 1, 2, 1, 5, ""}),
    CaseName<Bar>);

TEST(Progress, OfDecksHasTheirRateAndTheTimeLeft)
{
    EXPECT_EQ(Veld::Quor::Tools::DecksText(50, 200, 2, 60, false),
        "[=====                 ]  50 of 200 decks, 25.0/s, 0:06 left");
    EXPECT_EQ(Veld::Quor::Tools::DecksText(0, 2, 0, 20, false), "0 of 2 decks, 0.0/s");
}

} // namespace
