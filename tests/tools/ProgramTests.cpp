#include "tests/deck/Language.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

using namespace Veld::Quor::Tests;
using nlohmann::json;

namespace {

/// Answers from the small language.
Outcome RunSmall(const std::string& arguments)
{
    return RunOn(SmallLanguage(), arguments);
}

const std::string decks = QUOR_SOURCE_DIR "/examples/decks/";

class Usage : public testing::TestWithParam<Row> { };

TEST_P(Usage, IsRefused)
{
    const Outcome outcome = RunQuor(GetParam().text);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(Holds(outcome.err, GetParam().expected)) << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Arguments, Usage, testing::ValuesIn(Rows(R"(
None:  => Subcommands:
UnknownSubcommand: chekc x => unknown command 'chekc'; did you mean check?
UnknownOption: list --sections GRID => unknown option '--sections'; did you mean --section, --settings?
OptionOfAnother: info x --baseline b => unknown option '--baseline'; it is an option of quor check, quor settings\n
OptionBeforeTheCommand: --in-place => unknown option '--in-place'; it is an option of quor format\n
UnknownSection: list --section GIRD => GIRD not in {RUNSPEC,GRID,
UnknownSimulator: check x --simulator Nobody => {Carrow,Dunmere,
UnknownMode: list --mode Cold => {BlackOil,Compositional,Thermal}
UnknownFormat: list --format xml => {text,json}
ShowNothing: show => quor show --help
TwoSubcommands: man list => unexpected argument 'list'
UnknownShell: completion tcsh => {bash,zsh,fish}
OptionWithoutValue: check x --baseline => --baseline
TwoBaselines: check x --baseline a --write-baseline b => excludes
MissingBaseline: check x --baseline /none => the baseline '/none': No such file
StatisticsAsSarif: check x --statistics --format sarif => quor: error: --statistics needs --format text or json\n
NegativeLimit: check x --max-findings=-1 => '-1' is not a whole number; expected 0 or more
MissingRules: check x --rules /none.xml => can't read the rules in '/none.xml': No such file
MissingDeck: check /none.data => can't read '/none.data': No such file
InfoOnNothing: info /none.data => can't read '/none.data': No such file
DiffWithNothing: diff /none.data /none.data => can't read '/none.data': No such file
PortToNowhere: port x => --to is required
PortToNoMode: port x --to Carrow --mode Thermal => simulator 'Carrow' has no mode 'Thermal'
FolderWithoutDecks: check /proc/self/fdinfo => quor: error: no deck in the folder '/proc/self/fdinfo'; expected .data files
FolderAsDeck: info /tmp => can't read '/tmp': it is a folder, not a file
ManualAmongOtherFiles: manual /usr => quor: error: '/usr' is not empty and has no manual; expected a new or empty folder\n
ManualWithoutName: manual '' => quor: error: '' is not empty and has no manual; expected a new or empty folder\n
ManualInNoFolder: manual /proc/none => quor: error: can't write '/proc/none/keyword/
ReportOfNothing: report /none.data -o /none.html => can't read '/none.data': No such file
ReportToNowhere: report x => --output is required
BrowserAndUnits: show WELSPECS --browser --units FIELD => excludes
)")),
    CaseName<Row>);

TEST(Help, IsDataAndHasExamples)
{
    EXPECT_TRUE(RunQuor("--version").out.starts_with("quor "));
    EXPECT_TRUE(Holds(RunQuor("--help").out, "check"));
    EXPECT_EQ(RunQuor("--help").status, 0);
    for (const std::string command : {"list", "show", "check", "info", "format", "diff", "port", "report",
             "lint", "explain", "manual", "language-server", "man", "completion"}) {
        const Outcome outcome = RunQuor(command + " --help");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_TRUE(Holds(outcome.out, "Examples:\n") && Holds(outcome.out, "quor " + command))
            << outcome.out;
    }
}

/// What `quor show --browser` prints, with a program in place of xdg-open.
Outcome OpenPage(const TemporaryDirectory& folder, const std::string& arguments)
{
    const std::string place = folder.Path().string();
    return RunQuor("show " + arguments + " --browser", "PATH=" + place + " XDG_CACHE_HOME=" + place);
}

TEST(Browser, OpensThePageOfTheKeyword)
{
    const TemporaryDirectory folder;
    const std::string page = "file://" + folder.Path().string() + "/quor/manual/";
    EXPECT_EQ(OpenPage(folder, "welspecs").err,
        "quor: error: 'xdg-open', which opens a browser, can't be started; the page is " + page
            + "keyword/WELSPECS.html\n");
    const std::string opener =
        folder.Write("xdg-open", "#!/bin/sh\necho \"$1\"\ntest \"${1##*/}\" != WELSPECS.html\n");
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    const Outcome vector = OpenPage(folder, "WOPR");
    EXPECT_EQ(vector.out + vector.err, page + "vectors/Well.html#WOPR\n");
    EXPECT_EQ(OpenPage(folder, "WELSPECS").err,
        "quor: error: 'xdg-open' opened no browser; the page is " + page + "keyword/WELSPECS.html\n");
    EXPECT_EQ(RunQuor("show WOPR --browser", "HOME= XDG_CACHE_HOME=").err,
        "quor: error: no folder for the pages: HOME and XDG_CACHE_HOME are not set\n");
}

struct Arguments {
    const char* name;
    std::string arguments;
};

class LoadFailures : public testing::TestWithParam<Arguments> { };

TEST_P(LoadFailures, AreInTheOutputForPrograms)
{
    const Outcome outcome =
        RunQuor(GetParam().arguments + " --format json", std::string(mainVariable) + "=/none.xml");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Holds(json::parse(outcome.out)["failures"][0]["message"], "/none.xml")) << outcome.out;
    const std::string text = "Can not load/find the specified XML syntax file /none.xml";
    EXPECT_TRUE(Holds(outcome.err, "quor: error: ")) << outcome.err;
    EXPECT_NE(outcome.err.find(text), std::string::npos);
    EXPECT_EQ(outcome.err.find(text), outcome.err.rfind(text)) << "told twice";
}

INSTANTIATE_TEST_SUITE_P(Commands, LoadFailures,
    testing::Values(Arguments{"List", "list"}, Arguments{"Show", "show OIL"},
        Arguments{"Check", "check " + decks + "first-comparative.data"}),
    CaseName<Arguments>);

struct Answer {
    const char* name;
    const char* arguments;
    const char* out;
    int status = 0;
    const char* err = "";
};

class SmallLanguageAnswers : public testing::TestWithParam<Answer> { };

TEST_P(SmallLanguageAnswers, AreExact)
{
    const Outcome outcome = RunSmall(GetParam().arguments);
    EXPECT_EQ(outcome.out, GetParam().out);
    EXPECT_EQ(outcome.err.substr(0, outcome.err.find("QUOR_")), GetParam().err); // of the documents
    EXPECT_EQ(outcome.status, GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(List, SmallLanguageAnswers,
    testing::Values(
        Answer{"BySection", "list --section summary --simulator Carrow --text W", "WBHP  SUMMARY  \n"},
        Answer{"ByAlias", "list --text permr", "PERMX  GRID  Permeability in x.\n"},
        Answer{"BySimulator", "list --section RUNSPEC --simulator Carrow --text l --count", "5\n"},
        Answer{"ByMode", "list --section RUNSPEC --mode Thermal --text comps", "", 0,
            "no keyword matches all options\n"},
        Answer{"OneLineForEachDefinition", "list --text TIME --section SCHEDULE", "TIME  SCHEDULE  \n"},
        Answer{"HiddenOnes", "list --hidden --text WELSPECH --count", "1\n"},
        Answer{"EmptyJson", "list --text nothing --format json",
            "{\n  \"schema_version\": 1,\n  \"keywords\": []\n}\n", 0, "no keyword matches all options\n"}),
    CaseName<Answer>);

INSTANTIATE_TEST_SUITE_P(Show, SmallLanguageAnswers,
    testing::Values(Answer{"Everywhere", "show skip",
                        "SKIP\n  role: opens a skipped block\n  valid: everywhere\n  data: none\n"},
        Answer{"ByAlias", "show kx",
            "PERMX\n  found as: KX, by alias\n  description: Permeability in x.\n"
            "  aliases: PERMR, KX (hidden), PERMEABILITY\n  valid (B BlackOil, C Compositional, T Thermal):\n"
            "                  GRID\n    Carrow        B\n    Dunmere       BCT\n    Sedge         BC\n"
            "    Hallow        BCT\n    Marlpit       BCT\n    Ostrey        BCT\n    Wend          BCT\n"
            "    Tolmen        BCT\n    Wend_GE       BCT\n    Wend_CLASSIC  BCT\n"
            "  rule: GRID needs permeabilities: PERMX, PERMXX or TRANX\n  data: none\n"},
        Answer{"Unknown", "show WELSPEXX", "", 1,
            "quor: error: unknown keyword 'WELSPEXX'; did you mean WELSPECL, WELSPECS?\n"}),
    CaseName<Answer>);

TEST(Show, GivesAllDefinitionsAndWhatIsKnownBesideTheUnknown)
{
    const Outcome outcome = RunSmall("show TIME NONSENSE FUX --format json");
    EXPECT_EQ(outcome.status, 1);
    const json list = json::parse(outcome.out)["keywords"];
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[0]["documentation"], "SUMMARY");
    EXPECT_TRUE(list[1]["validity"].contains("SCHEDULE"));
    EXPECT_EQ(list[1]["validity"]["SCHEDULE"]["Sedge"], json({"BlackOil", "Compositional"}));
    EXPECT_EQ(list[2]["name"], "FU*");
    EXPECT_EQ(list[2]["foundBy"], "wildcard");
}

TEST(List, HoldsTheBuiltInKeywords)
{
    const json list =
        json::parse(RunQuor("list --section SCHEDULE --simulator Carrow --format json").out)["keywords"];
    std::set<std::string> names;
    for (const json& keyword : list)
        names.insert(keyword["name"]);
    EXPECT_TRUE(names.count("WELSPECS"));
    EXPECT_TRUE(names.count("DATES"));
    EXPECT_FALSE(names.count("PORO"));
}

TEST(Check, FindsTheExampleClean)
{
    const Outcome outcome = RunQuor("check " + decks + "first-comparative.data --simulator Carrow");
    EXPECT_EQ(outcome.status, 0) << outcome.out;
    EXPECT_TRUE(Holds(outcome.out, "6 sections, 2 files: no findings\n")) << outcome.out;
    EXPECT_TRUE(Holds(outcome.err, "language: ")) << outcome.err;
}

TEST(Check, FindsThreeMistakes)
{
    const Outcome outcome =
        RunQuor("check " + decks + "faulty/three-mistakes.data --simulator Carrow --format json");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    const json report = json::parse(outcome.out);
    EXPECT_EQ(report["counts"]["errors"], 3);
    ASSERT_EQ(report["findings"].size(), 3U);
    EXPECT_EQ(report["findings"][0]["code"], "wrong-simulator");
    EXPECT_EQ(report["findings"][1]["code"], "wrong-section");
    EXPECT_EQ(report["findings"][2]["code"], "unknown-keyword");
}

TEST(Check, MarksThePlaceBelowTheLine)
{
    const TemporaryDirectory folder;
    folder.Write("a.inc", "OIL\nINCLUDE \t'no\x1b[1m.inc' /\n");
    const std::string deck = folder.Write("d.data", "RUNSPEC\nINCLUDE 'a.inc' /\n");
    const std::string place = folder.Path().string();
    EXPECT_EQ(RunSmall("check " + deck).out,
        place + "/a.inc:2:10: error: can't read '" + place + "/no?[1m.inc': No such file or directory"
            + " [include-missing]\n    INCLUDE \t'no?[1m.inc' /\n            \t^~~~~~~~~~~~\n"
            + "  hint: a relative name starts from the folder of the deck\n  included from " + deck + ":2\n"
            + "d.data: 2 keywords in 1 section, 2 files: 1 error\n");
}

TEST(Check, NamesTheOptionThatGivesAVariableAValue)
{
    const TemporaryDirectory folder;
    const std::string deck = folder.Write("d.data", "RUNSPEC\nDIMENS\n $N /\n");
    EXPECT_TRUE(Holds(RunSmall("check " + deck).out, "hint: set the variable $N with --set NAME=VALUE\n"));
}

TEST(Check, JudgesEachDeckAlone)
{
    const TemporaryDirectory folder;
    const std::string clean = folder.Write("clean.data", "RUNSPEC\nOIL\n");
    const std::string faulty = folder.Write("faulty.data", "GRID\nWATR\nWATR\nWATR\n");
    const Outcome both = RunSmall("check " + faulty + " " + clean + " --all --max-findings 1");
    EXPECT_EQ(both.status, 1);
    EXPECT_TRUE(Holds(both.out, "2 findings not shown; use --max-findings to show more\n")) << both.out;
    EXPECT_TRUE(Holds(both.out, "clean.data: 2 keywords in 1 section, 1 file: no findings\n")) << both.out;
    EXPECT_EQ(RunSmall("check " + clean + " /none.data").status, 2);
}

TEST(Check, ExitsWithTheWorstThatItFinds)
{
    const TemporaryDirectory folder;
    const auto check = [&folder](const std::string& text, const std::string& options = {}) {
        return RunSmall("check " + folder.Write("d.data", text) + options).status;
    };
    EXPECT_EQ(check("RUNSPEC\nOIL\n"), 0);
    EXPECT_EQ(check("RUNSPEC\nOLI\n"), 1);
    EXPECT_EQ(check("RUNSPEC\nOLI\n", " --max-findings 0"), 1);
    EXPECT_EQ(check("GRID\nPORO\n 9000*1 /\n"), 0);
    EXPECT_EQ(check("GRID\nPORO\n 9000*1 /\n", " --max-repeated-values 0"), 1);
    EXPECT_EQ(check("RUNSPEC\nENDINC\n"), 3) << "a warning";
    EXPECT_EQ(check("RUNSPEC\nENDINC\n", " --fail-on error"), 0);
    EXPECT_EQ(check("RUNSPEC\nOLI\n", " --fail-on never"), 0);
    EXPECT_EQ(check("RUNSPEC\nOLI -- quor: off\n"), 0);
    EXPECT_EQ(check("RUNSPEC\nOLI\n", " /none.data"), 2);
}

TEST(Check, WritesValidJsonOfAnyBytes)
{
    const TemporaryDirectory folder;
    const std::string deck = folder.Write("d.data", "RUNSPEC\nINCLUDE '\xff\xfe\x01' /\n");
    const json report = json::parse(RunSmall("check --format json " + deck).out);
    EXPECT_EQ(report["findings"][0]["code"], "include-missing");
}

TEST(Output, ThatCannotBeWrittenIsAFailure)
{
    const Outcome full = RunQuor("list > /dev/full");
    EXPECT_EQ(full.status, 2);
    EXPECT_TRUE(Holds(full.err, "can't write to standard output")) << full.err;
    const TemporaryDirectory folder;
    const std::string deck =
        Quote(folder.Write("d.data", "RUNSPEC\nTITLE\n" + std::string(9999, 'x') + "\nOIL /\n"));
    const std::string listing = "; ls -A " + Quote(folder.Path());
    const Outcome large = RunShell("ulimit -f 1; \"$QUOR\" format --normalize --in-place " + deck + listing);
    EXPECT_TRUE(Holds(large.err, "File too large")) << large.err;
    EXPECT_EQ(large.out, "d.data\n");
    EXPECT_EQ(RunShell("chmod 640 " + deck + "; \"$QUOR\" format --normalize --in-place " + deck
                  + "; stat -c %a " + deck)
                  .out,
        "640\n");
    const std::string pipe = Quote(folder.Path() / "pipe");
    const std::string withoutReader = "mkfifo " + pipe + "; true <" + pipe + " & exec 3>" + pipe + "; wait; ";
    EXPECT_EQ(RunShell(withoutReader + "\"$QUOR\" list >&3; echo status $? >&2").err, "status 2\n");
}

} // namespace
