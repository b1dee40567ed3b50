#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Terminal.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Tools;

namespace {

/// A script in a folder with the deck `m/d.data`, which contains the options of the row; what is printed, and
/// the status if it isn't 0.
class Strangers : public testing::TestWithParam<Row> { };

TEST_P(Strangers, GetNothingThatTheUserDidNotGive)
{
    const TemporaryDirectory folder;
    const Outcome outcome = RunShell("cd " + Quote(folder.Path())
        + "; mkdir -p m inc; deck() { printf \"RUNSPEC\\n$1\" " + ">m/d.data; }; no() { grep -v loaded; }; { "
        + GetParam().text + "; } 2>&1 | sed \"s|$PWD|PWD|g; /^language:/d\"");
    EXPECT_EQ(outcome.out, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Aliases, Strangers, testing::ValuesIn(Rows(R"(
LoopOfOneAlias: deck "PATHS\n A 'x\\$A' /\n/\nINCLUDE '\\$A/f' /\n"; "$QUOR" check m/d.data => m/d.data:3:4: error: variable '$A' has no value [unknown-variable]\n     A 'x$A' /\n       ^~~~~\n  hint: set the variable $A with --set NAME=VALUE\nm/d.data:5:9: error: path alias '$A' refers to itself: 'x$A' [unknown-alias]\n    INCLUDE '$A/f' /\n            ^~~~~~\n  hint: correct the folder of the alias in PATHS\nd.data: 2 keywords in 1 section, 1 file: 2 errors\n
LoopOfTwoAliases: deck "PATHS\n A '\\$B/x' /\n B 'y/\\$A' /\n/\nINCLUDE '\\$A/f' /\n"; "$QUOR" check m/d.data --format gcc => m/d.data:3:4: error: variable '$B' has no value; set the variable $B [unknown-variable]\nm/d.data:4:4: error: variable '$A' has no value; set the variable $A [unknown-variable]\nm/d.data:6:9: error: path alias '$B' refers to itself: 'y/$B/x'; correct the folder of the alias in PATHS [unknown-alias]\n
LongAlias: x=$(printf '%099d/' 0); deck "PATHS\n A '$x' /\n/\nPATHS\n B '$(printf '$A/%.0s' $(seq 20))' /\n/\nPATHS\n C '$(printf '$B/%.0s' $(seq 40))' /\n/\nINCLUDE '\\$C/f' /\n"; "$QUOR" check m/d.data --format gcc => m/d.data:11:9: error: too long file name with the path alias '$A' (expected at most 4096 bytes); correct the folders of the aliases in PATHS [unknown-alias]\n
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(FilesOutside, Strangers, testing::ValuesIn(Rows(R"(
AreNotQuoted: echo root:x:0 >secret; deck "INCLUDE '../secret' /\n"; "$QUOR" check m/d.data => quor: the text of files outside the folder of the deck is not shown; use --show-outside to show it\nm/../secret:1:1: error: unexpected '...' after RUNSPEC; expected a keyword [stray-text]\n  included from m/d.data:2\nd.data: 1 keyword in 1 section, 2 files: 1 error\n
AreQuotedIfAskedFor: echo root:x:0 >secret; deck "INCLUDE '../secret' /\n"; "$QUOR" check m/d.data --show-outside => m/../secret:1:1: error: unexpected 'root' after RUNSPEC; expected a keyword [stray-text]\n    root:x:0\n    ^~~~\n  included from m/d.data:2\nd.data: 1 keyword in 1 section, 2 files: 1 error\n
AreNotFixed: echo water >x; deck "INCLUDE '../x' /\noil\n"; "$QUOR" check m/d.data --fix --show-outside --format gcc 2>/dev/null; cat x; tail -n 1 m/d.data => m/../x:1:1: error: keyword 'water' is not in upper case; write WATER [lower-case]\nwater\nOIL\n
AreNotQuotedByALink: echo root:x:0 >secret; ln -s ../secret m/x; deck "INCLUDE 'x' /\n"; "$QUOR" check m/d.data --format gcc => quor: the text of files outside the folder of the deck is not shown; use --show-outside to show it\nm/x:1:1: error: unexpected '...' after RUNSPEC; expected a keyword [stray-text]\n
HaveNoFix: echo OLI >inc/x; deck "INCLUDE '../inc/x' /\n"; "$QUOR" check m/d.data --format json 2>/dev/null | grep -A1 -e '"fix"' -e '"message"' => \x20     "message": "unknown keyword '...'",\n      "hint": "did you mean OIL?",\n--\n      "fix": [],\n      "more": 0\n
InsideAreQuoted: mkdir m/s; echo WATR >m/s/x; deck "INCLUDE 's/../s/x' /\n"; "$QUOR" check m/d.data --format gcc --confined => m/s/../s/x:1:1: error: unknown keyword 'WATR'; did you mean WATER? [unknown-keyword]\n
AreNotReadByAConfinedDeck: deck "INCLUDE '/etc/hostname' /\nINCLUDE '/no/such/file' /\nINCLUDE '../m/../x' /\n"; "$QUOR" check m/d.data --confined --format gcc => m/d.data:2:9: error: can't read '/etc/hostname': it is outside the folder of the deck [include-missing]\nm/d.data:3:9: error: can't read '/no/such/file': it is outside the folder of the deck [include-missing]\nm/d.data:4:9: error: can't read 'm/../m/../x': it is outside the folder of the deck; a relative name starts from the folder of the deck [include-missing]\n
AreNotReadByALink: echo OIL >secret; ln -s ../secret m/x; deck "INCLUDE 'x' /\n"; "$QUOR" check m/d.data --confined --format gcc => m/d.data:2:9: error: can't read 'm/x': it is outside the folder of the deck; a relative name starts from the folder of the deck [include-missing]\n
AreNotChanged: deck "INCLUDE '../inc/x' /\n"; printf 'DIMENS\n 1   2 3 /\n' >inc/x; "$QUOR" format m/d.data --in-place --normalize; echo $?; cat inc/x => quor: error: files outside the folder of the deck would change; nothing was written; use --outside to change them too:\n  m/../inc/x\n2\nDIMENS\n 1   2 3 /\n
AreChangedIfAskedFor: deck "INCLUDE '../inc/x' /\n"; printf 'DIMENS\n 1   2 3 /\n' >inc/x; "$QUOR" format m/d.data --in-place --normalize --outside; cat inc/x => 1 of 2 files changed\nDIMENS\n  1 2 3 /\n
AreNotSet: deck "INCLUDE '../inc/x' /\n"; printf 'DIMENS\n 1 2 3 /\n' >inc/x; "$QUOR" set m/d.data DIMENS.NX 7; "$QUOR" set m/d.data DIMENS.NX 7 --outside; cat inc/x => quor: error: files outside the folder of the deck would change; nothing was written; use --outside to change them too:\n  m/../inc/x\nm/../inc/x:2: DIMENS.NX: 1 -> 7\nDIMENS\n 7 2 3 /\n
)")),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(ReplacedFiles, Strangers, testing::ValuesIn(Rows(R"(
KeepModeAndOwner: deck 'DIMENS\n 1   2 3 /\n'; chmod 640 m/d.data; if [ $(id -u) = 0 ]; then chown 12:34 m/d.data; fi; stat -c '%a %u %g' m/d.data >a; "$QUOR" format m/d.data --in-place --normalize; stat -c '%a %u %g' m/d.data | cmp - a => 1 of 1 file changed\n
StayBehindALink: deck 'DIMENS\n 1   2 3 /\n'; mv m/d.data x; ln -s ../x m/d.data; "$QUOR" format m/d.data --in-place --normalize; readlink m/d.data; cat x => 1 of 1 file changed\n../x\nRUNSPEC\nDIMENS\n  1 2 3 /\n
LeaveAHardLink: deck 'DIMENS\n 1   2 3 /\n'; ln m/d.data e; "$QUOR" format m/d.data --in-place --normalize; cat e => quor: 'm/d.data' had other names (hard links); they keep the old text\n1 of 1 file changed\nRUNSPEC\nDIMENS\n 1   2 3 /\n
TellWhyTheyAreNot: deck ''; "$QUOR" format m/d.data >/dev/full; echo $? => quor: error: can't write to standard output: No space left on device\n2\n
)")),
    CaseName<Row>);

/// No text of a deck, a document or a file's name controls the terminal, whatever is asked.
class Controls : public testing::TestWithParam<Row> { };

TEST_P(Controls, AreNotPrinted)
{
    const TemporaryDirectory folder;
    const std::string bad = "a\xC2\x9B"
                            "31m\x9B\x1B[m\xE2\x80\xAE";
    const std::string deck = "RUNSPEC\nTITLE\n" + bad + "\nDIMENS\n 2 2 1 /\nOLI" + bad
        + "\nSCHEDULE\nWELSPECS\n '" + bad + "' 'G" + bad + "' 1 1 1* OIL /\n/\nWCONPROD\n '" + bad
        + "' OPEN '" + bad + "' $" + bad + " 7 /\n/\nINCLUDE '" + bad + ".inc' /\n";
    folder.Write("a" + bad + ".data", deck);
    folder.Write("b.data", deck + "WELSPECS\n 'X" + bad + "' G 1 1 1* OIL /\n/\n");
    folder.Write("main.xml",
        Document("<keyword name='A'><description>"
            + std::string("a\xC2\x9B"
                          "31m\xE2\x80\xAE")
            + "</description><data><record><item name='X\xC2\x9B"
              "31m'><string/></item></record></data></keyword>"));
    const Outcome outcome =
        RunShell("cd " + Quote(folder.Path()) + "; A=$(echo a*.data); " + GetParam().text);
    std::istringstream printed(outcome.out + outcome.err);
    EXPECT_GT(outcome.out.size() + outcome.err.size(), 20U);
    for (std::string line; std::getline(printed, line);)
        EXPECT_EQ(line, MakePrintable(line));
}

INSTANTIATE_TEST_SUITE_P(Commands, Controls, testing::ValuesIn(Rows(R"(
Check: "$QUOR" check "$A" b.data
CheckAsACompiler: "$QUOR" check "$A" --format gcc
CheckOfAWorkflow: "$QUOR" check "$A" --format github
Statistics: "$QUOR" check "$A" --statistics
Baseline: "$QUOR" check "$A" --write-baseline "$A.json"; "$QUOR" check "$A" --baseline "$A"
Info: "$QUOR" info "$A" --all
Diff: "$QUOR" diff "$A" b.data
Port: "$QUOR" port "$A" --to Carrow
Get: "$QUOR" get "$A" WELSPECS; "$QUOR" get "$A" WELSPECS --bare; "$QUOR" get "$A" "$A"
Set: "$QUOR" set b.data 'WELSPECS#2.GROUP' "$A"; "$QUOR" set "$A" "$A" "$A"
FormatInPlace: "$QUOR" format "$A" --in-place --normalize; "$QUOR" format "$A" --check; "$QUOR" format "$A" --output "$A"
Show: QUOR_KEYWORD_SYNTAX_FILE=main.xml QUOR_KEYWORD_TRUSTED_SYNTAX_DIR=$PWD "$QUOR" show A
List: QUOR_KEYWORD_SYNTAX_FILE=main.xml QUOR_KEYWORD_TRUSTED_SYNTAX_DIR=$PWD "$QUOR" list
Lint: "$QUOR" lint main.xml "$A"
OddDocument: QUOR_KEYWORD_SYNTAX_FILE="$A" "$QUOR" list
Words: "$QUOR" "$A"; "$QUOR" show "$A"; "$QUOR" explain "$A"; "$QUOR" check "--$A"
)")),
    CaseName<Row>);

TEST(AFile, IsNotReplacedIfItWasChanged)
{
    const TemporaryDirectory folder;
    const std::string path = folder.Write("a", "read");
    const std::set<FileStamp> known = {StampOf(path)};
    folder.Write("a", "edit");
    EXPECT_EQ(ReasonOf([&] { WriteFile(path, "new", &known); }), "it was changed since it was read");
    WriteFile(path, "new");
    EXPECT_EQ(ReasonOf([&] { WriteFile(path, "newer", &known); }), "it was changed since it was read")
        << "another file";
    const std::set<FileStamp> now = {StampOf(path)};
    WriteFile(path, "newer", &now);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(ATextOfADeck, IsPrintedWithoutControls)
{
    const std::pair<const char*, const char*> rows[] = {{"a\tb", "a\tb"}, {"\x1B[31m\r\n\x7F", "?[31m???"},
        {"", ""}, {"\xC2\x80\xC2\x9B\xC2\x9F\xC2\xA0", "???\xC2\xA0"},
        {"\x9B"
         "31m\x85",
            "?31m?"},
        {"\xC3\xA9\xE9", "\xC3\xA9\xE9"},
        {"\xE2\x82\xAC\xF0\x9F\x98\x80",
            "\xE2\x82\xAC\xF0\x9F\x98\x80"}, // whose bytes would be controls alone
        {"\xE2\x80\xAE\xE2\x81\xA6\xE2\x80\xA8\xE2\x80\x93", "???\xE2\x80\x93"},
        {"\xC1\x9B\xE0\x82\x9B", "\xC1?\xE0??"}, {"\xE2\x80", "\xE2?"},
        {"\xF0\x9F\x98"
         "a",
            "\xF0??a"}};
    for (const auto& [text, printed] : rows)
        EXPECT_EQ(MakePrintable(text), printed);
}

} // namespace
