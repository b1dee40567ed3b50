#include "quor/lint/Lint.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core;
using nlohmann::json;

namespace {

const std::string cleanKeyword = "<keyword name='GOOD'><description>d</description></keyword>";
const std::string wrongKeyword =
    "<keyword "
    "name='NAME'><descripton>\xC3\xA4</descripton><description>\xC3\xA4</description><isHiden/></keyword>";

/// A folder with two documents, one of them with two mistakes.
class LintProgram : public testing::Test {
protected:
    Outcome Run(const std::string& arguments) const { return RunQuor("lint " + arguments); }
    std::string Path(const std::string& name) const { return Quote((folder_.Path() / name).string()); }

    TemporaryDirectory folder_;
    std::string good_ = folder_.Write("both/good.xml", Document(cleanKeyword));
    std::string bad_ = folder_.Write("both/bad.xml", Document(wrongKeyword));
};

TEST_F(LintProgram, ShowsTheLineAndAHint)
{
    const Outcome outcome = Run(Path("both"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    const std::string expected = bad_
        + ":3:22: warning: NAME: unknown element <descripton> in <keyword> is ignored [ignored-element]\n    "
        + wrongKeyword + "\n    " + std::string(21, ' ')
        + "^~~~~~~~~~~\n  hint: did you mean 'description'?\n";
    EXPECT_TRUE(outcome.out.starts_with(expected)) << outcome.out;
    EXPECT_TRUE(outcome.out.ends_with("\n2 keywords in 2 documents: 2 warnings\n")) << outcome.out;
}

TEST_F(LintProgram, ExitsWithOneForFindingsAndTwoForWrongUsage)
{
    EXPECT_EQ(Run(Path("both/good.xml")).status, 0);
    EXPECT_EQ(Run(Path("both/bad.xml")).status, 1);
    EXPECT_EQ(Run("").status, 2);
    EXPECT_EQ(Run("--builtin " + Path("both")).status, 2);
    EXPECT_EQ(Run(Path("both/good.xml") + " --format xml").status, 2);
}

TEST_F(LintProgram, FindsNothingInWhatIsBuiltIn)
{
    const Outcome outcome = Run("--builtin");
    EXPECT_EQ(outcome.status, 0) << outcome.out;
}

struct Unreadable {
    const char* name;
    const char* path;
    const char* error; // a part of it
};

class UnreadablePath : public LintProgram, public testing::WithParamInterface<Unreadable> { };

TEST_P(UnreadablePath, IsReportedAndTheRestIsChecked)
{
    folder_.Write("empty/notes.txt", "");
    std::filesystem::resize_file(folder_.Write("huge.xml", ""), (std::uintmax_t(1) << 30) + 1);
    std::filesystem::create_symlink("/dev/null", folder_.Path() / "device.xml");
    const Outcome outcome = Run(Path(GetParam().path) + " " + Path("both/good.xml"));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Holds(outcome.err, GetParam().error)) << outcome.err;
    EXPECT_EQ(outcome.out, "1 keyword in 1 document: no findings\n");
}

INSTANTIATE_TEST_SUITE_P(Paths, UnreadablePath,
    testing::Values(Unreadable{"Missing", "none.xml", "No such file or directory"},
        Unreadable{"Huge", "huge.xml", "file too large (expected at most 1073741824 bytes)"},
        Unreadable{"Device", "device.xml", "not a regular file"},
        Unreadable{"FolderWithoutDocuments", "empty", "the folder has no .xml file"}),
    CaseName<Unreadable>);

TEST_F(LintProgram, WritesJson)
{
    const json report = json::parse(Run(Path("both") + " --format json --max-findings 1").out);
    EXPECT_EQ(report["documents"],
        json::parse(
            R"([{"file": ")" + bad_ + R"(", "keywords": 1}, {"file": ")" + good_ + R"(", "keywords": 1}])"));
    EXPECT_EQ(report["clean"], false);
    EXPECT_EQ(report["counts"],
        json::parse(
            R"({"errors": 0, "warnings": 2, "notes": 0, "omitted": 1, "known": 0, "suppressed": 0})"));
    EXPECT_EQ(report["findings"][0]["code"], "ignored-element");
    EXPECT_EQ(report["findings"][0]["column"], 22);
}

TEST_F(LintProgram, WritesSarifWithColumnsInCharacters)
{
    const json log = json::parse(Run(Path("both/bad.xml") + " --format sarif").out);
    EXPECT_EQ(log["version"], "2.1.0");
    const json& run = log["runs"][0];
    EXPECT_EQ(run["tool"]["driver"]["name"], "quor");
    const json& result = run["results"][1];
    EXPECT_EQ(
        run["tool"]["driver"]["rules"][result["ruleIndex"].get<std::size_t>()]["id"], "ignored-element");
    EXPECT_EQ(result["level"], "warning");
    const json& location = result["locations"][0]["physicalLocation"];
    EXPECT_EQ(location["artifactLocation"]["uri"], "file://" + bad_);
    const auto column = wrongKeyword.find("<isHiden") + 1 - 2; // two letters of two bytes come before
    EXPECT_EQ(
        location["region"], json({{"startLine", 3}, {"startColumn", column}, {"endColumn", column + 8}}));
}

TEST_F(LintProgram, WritesALineAFindingForOtherPrograms)
{
    const std::string gcc = Run(Path("both/bad.xml") + " --format gcc").out;
    EXPECT_TRUE(gcc.starts_with(bad_
        + ":3:22: warning: NAME: unknown element <descripton> in <keyword> is ignored; did you mean "
          "'description'?"))
        << gcc;
    const std::string github = Run(Path("both/bad.xml") + " --format github").out;
    EXPECT_TRUE(github.starts_with(
        "::warning file=" + bad_ + ",line=3,col=22,title=ignored-element::NAME: unknown element <desc"))
        << github;
}

TEST_F(LintProgram, WorksOnTheVeryDocumentThatDoesNotLoad)
{
    const std::string broken =
        folder_.Write("broken.xml", Document("<keyword name='K'><data><what/></data></keyword>"));
    const Outcome outcome = RunQuor("lint " + Quote(broken), "QUOR_KEYWORD_SYNTAX_FILE=" + Quote(broken));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Holds(outcome.out, "unknown element <what> in <data>; the load fails [unknown-element]"))
        << outcome.out;
}

struct Whole {
    const char* name;
    std::string text;
    const char* finding; // a part of it
};

class WholeText : public LintProgram, public testing::WithParamInterface<Whole> { };

TEST_P(WholeText, IsReported)
{
    const std::string path = folder_.Write("x.xml", GetParam().text);
    const Outcome outcome = Run(Quote(path));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Holds(outcome.out, path + ":" + GetParam().finding)) << outcome.out;
}

std::string Wide(const std::string& text)
{
    std::string wide = "\xFF\xFE";
    for (const char c : text)
        wide += {c, '\0'};
    return wide;
}

INSTANTIATE_TEST_SUITE_P(Texts, WholeText,
    testing::Values(Whole{"Empty", "", "1:1: error: "}, Whole{"Blank", " \n", "2:1: error: "},
        Whole{"NoXml", std::string("\0\1\2", 3), "1:1: error: "},
        Whole{"NoKeyword", "<keywords/>",
            "1:1: warning: no <keyword> in <keywords> [no-keyword]\n    <keywords/>\n"},
        Whole{"TypeDeclaration", "<!DOCTYPE a [<!ENTITY b 'c'>]>\n<a/>", "1:"},
        Whole{"Deep", Document([] {
                  std::string tags;
                  for (int i = 0; i < 1000; ++i)
                      tags += "<a>";
                  return tags;
              }()),
            "3:"},
        Whole{"SixteenBits", Wide("<k>\n<keyword nmae='K'/>\n</k>"), "2:"},
        Whole{"OtherLineEnds", "<k>\r\n<keyword name='K' nmae=''/>\r\n</k>",
            "2:19: warning: K: unknown attribute 'nmae'"}),
    CaseName<Whole>);

/// As many keywords as asked for, in the ways that cost most: one name, one chain of precedents, many
/// findings.
std::string Many(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "<keyword name='K'><precedents><precedent name='P" + std::to_string(i + 1)
            + "'/></precedents><aliases><alias name='P" + std::to_string(i) + "'/><alias name='W"
            + std::to_string(i) + "*'/></aliases><dta/></keyword>\n";
    return Document(text);
}

TEST(ManyKeywords, AreCheckedAndLimitWhatIsReported) // each with each, it would take hours
{
    std::vector<Lint::Document> documents;
    documents.push_back(Lint::Document::ReadText(Many(20'000), "many.xml"));
    const auto report = LintDocuments(documents, 5);
    EXPECT_EQ(report.keywords[0], 20'000U);
    EXPECT_EQ(report.findings.GetKept().size(), 5U);
    EXPECT_GT(report.findings.GetOmittedCount(), 60'000U);
}

} // namespace
