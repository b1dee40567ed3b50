#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;

namespace {

/// A project: settings, two decks and a folder of shared files. A command of the shell runs in its folder.
Outcome RunInProject(const std::string& command)
{
    const TemporaryDirectory folder;
    folder.Write("quor.toml",
        "simulator = \"carrow\"\ndecks = [\"cases/*.data\"]\n[variables]\nNX = 2\nNY = '3'\n"
        "[aliases]\nSHARED = \"shared\"\n[check]\nignore = [\"unclosed-list\"]\nraise = "
        "[\"stray-endinc\"]\n");
    folder.Write("cases/a.data", "RUNSPEC\nDIMENS\n $NX $NY 1 /\nINCLUDE\n '$SHARED/x.inc' /\nENDINC\n");
    folder.Write("cases/b.data", "RUNSPEC\nOLI\n");
    folder.Write("cases/c.inc", "OIL\n");
    folder.Write("other/quor.toml", "[check]\nselect = [\"missing-keyword\"]\n");
    folder.Write("other/d.data", "RUNSPEC\nOLI\nENDINC\n");
    folder.Write("shared/x.inc", "GAS\n");
    return RunShell("cd " + Quote(folder.Path().string()) + "; " + command);
}

/// What a command prints, on standard output and then on standard error.
class ProjectCommands : public testing::TestWithParam<Row> { };

TEST_P(ProjectCommands, Print)
{
    const Outcome outcome = RunInProject(GetParam().text);
    EXPECT_EQ(outcome.out + outcome.err, GetParam().expected + '\n');
}

INSTANTIATE_TEST_SUITE_P(Settings, ProjectCommands, testing::ValuesIn(Rows(R"(
All: $QUOR settings cases/a.data --mode Thermal --ignore bad-date --set NY=5 | sed "s,$PWD/,,g" | tr -s ' ' | grep . =>
    settings of quor.toml
    setting value from
    simulator Carrow quor.toml:1
    mode Thermal command line
    decks cases/*.data quor.toml:2
    rules none default
    syntax none default
    syntax-folder none default
    max-repeated-values 50000000 default
    variables.NX 2 quor.toml:4
    variables.NY 5 command line
    aliases.SHARED shared quor.toml:7
    check.select all default
    check.ignore unclosed-list, bad-date quor.toml:9, command line
    check.raise stray-endinc quor.toml:10
    check.fail-on warning default
    check.strict false default
    check.max-findings 200 default
    check.baseline none default
    format.normalize false default
Project: $QUOR check --format gcc; echo $? =>
    cases/a.data:6:1: error: ENDINC has no effect outside an included file; use END to end the deck [stray-endinc]
    cases/b.data:2:1: error: unknown keyword 'OLI'; did you mean OIL? [unknown-keyword]
    1
CommandLineFirst: $QUOR check --format gcc --select unclosed-list --fail-on error; echo $? => 0
Nearest: $QUOR check other/d.data --quiet; echo $? => 0
NoFile: $QUOR check cases/b.data --no-settings --ignore unknown-keyword --format gcc; echo $? => 0
Pattern: $QUOR check '**/[bd].data' --format gcc --settings quor.toml --ignore stray-endinc =>
    cases/b.data:2:1: error: unknown keyword 'OLI'; did you mean OIL? [unknown-keyword]
    other/d.data:2:1: error: unknown keyword 'OLI'; did you mean OIL? [unknown-keyword]
Folder: $QUOR check other shared --format gcc => quor: error: no deck in the folder 'shared'; expected .data files
Folders: $QUOR check '**' other/../other './cases/*.data' cases/b.data --no-settings --format gcc --select unknown-keyword; $QUOR check 'share[d]' --quiet =>
    cases/b.data:2:1: error: unknown keyword 'OLI'; did you mean OIL? [unknown-keyword]
    other/d.data:2:1: error: unknown keyword 'OLI'; did you mean OIL? [unknown-keyword]
    quor: error: no deck in the folders that 'share[d]' matches; expected .data files
Quiet: $QUOR check cases/b.data --quiet =>
    cases/b.data:2:1: error: unknown keyword 'OLI' [unknown-keyword]
        OLI
        ^~~
      hint: did you mean OIL?
JUnit: $QUOR check cases/b.data none.data --format junit 2>e =>
    <?xml version="1.0" encoding="UTF-8"?>
    <testsuites name="quor">
      <testsuite name="cases/b.data" tests="1" failures="1" errors="0">
        <testcase classname="cases/b.data" name="cases/b.data:2: unknown-keyword"><failure type="error" message="unknown keyword 'OLI'">cases/b.data:2:1: error: unknown keyword 'OLI'; did you mean OIL? [unknown-keyword]</failure></testcase>
      </testsuite>
      <testsuite name="none.data" tests="1" failures="0" errors="1">
        <testcase classname="none.data" name="not checked"><error message="can't read 'none.data': No such file or directory"/></testcase>
      </testsuite>
    </testsuites>
Sarif: $QUOR check $PWD/cases/b.data none.data --format sarif 2>e | grep -A2 -e Successful -e codeFileLine -e physical | tr -s ' ' =>
     "executionSuccessful": false,
     "toolExecutionNotifications": [
     {
    --
     "codeFileLine/v1": "2019ff87e98828b1:1"
     },
     "locations": [
    --
     "physicalLocation": {
     "artifactLocation": {
     "uri": "cases/b.data",
GitHub: $QUOR check none.data --format github 2>e => ::error::can't read 'none.data': No such file or directory
Total: $QUOR check cases/b.data none.data 2>e | tail -n 1 => 2 decks: 1 error, 0 warnings, 1 can't be read
Resumed: mkfifo p; $QUOR check cases --resume p --quiet; echo x >s; $QUOR check cases --resume s --quiet; echo quor 0 >s; $QUOR check cases --resume s --quiet => quor: error: can't use the file 'p' to resume: it is not a regular file\nquor: error: can't use the file 's' to resume: it has something else than results of a check\nquor: error: can't use the file 's' to resume: it is of a check with other options; remove it to start over
OverTheDeck: $QUOR report cases/a.data -o ./cases/a.data 2>&1 | tail -n 1; $QUOR get cases/a.data DIMENS.NY --output cases/a.data 2>&1 | tail -n 1; $QUOR check cases --write-baseline cases/b.data --quiet 2>&1 | tail -n 1 => quor: error: can't write './cases/a.data': it is a file of the deck\nquor: error: can't write 'cases/a.data': it is a file of the deck\nquor: error: can't write the baseline 'cases/b.data': it is a deck
OverAnotherFile: cp cases/a.data c; for i in 1 2; do $QUOR report cases/a.data -o c 2>&1 | tail -n 1; $QUOR report cases/a.data -o r 2>&1 | tail -n 1 | cut -c 1-3; done; cmp c cases/a.data; echo {} >j; for i in c j; do $QUOR check cases --write-baseline $i --quiet 2>&1 | tail -n 1; done; $QUOR report cases/a.data -o c --force 2>&1 | tail -n 1 | cut -c 1-3 =>
    quor: error: can't write 'c': it is a file, and no report that quor wrote; --force replaces it
    r (
    quor: error: can't write 'c': it is a file, and no report that quor wrote; --force replaces it
    r (
    quor: error: can't write the baseline 'c': it is a file, and no baseline
    quor: error: can't write the baseline 'j': it is a file, and no baseline
    c (
OtherCommands: $QUOR get cases/a.data DIMENS.NY --bare 2>e; $QUOR info cases/a.data 2>e | grep -c x.inc => 3\n1
Fixed: printf 'RUNSPEC\noil\nWATR\n' >other/d.data; $QUOR check other/d.data --no-settings --fix --format gcc; cat other/d.data =>
    other/d.data:3:1: error: unknown keyword 'WATR'; did you mean WATER? [unknown-keyword]
    RUNSPEC
    OIL
    WATR
    other/d.data: fixed 1 finding in 1 file
PartAlone: printf 'DATES\n 1 JUN 2020 /\n/\nWCONPROD\n P9 OPPEN ORAT 5 /\n/\nDIMENS\n 1 1 1 /\nINCLUDE\n more.inc /\nENDINC\nx\n' >w; $QUOR check w --section schedule --no-settings --format gcc; $QUOR get - WCONPROD.ORAT --section SCHEDULE --bare <w 2>&1; cp w 'w $'; $QUOR get 'w $' WCONPROD.ORAT --section SCHEDULE --bare 2>&1 | head -n 1 =>
    w:5:5: error: WCONPROD, STATUS: unknown value 'OPPEN'; did you mean OPEN? [not-a-choice]
    w:7:1: error: DIMENS is not valid in section SCHEDULE (valid in RUNSPEC) [wrong-section]
    quor: - has 2 errors; run 'quor check - --section SCHEDULE --simulator Carrow' to list them; the result may be incomplete
    5
    quor: w $ has 2 errors; run 'quor check "w \\$" --section SCHEDULE --simulator Carrow' to list them; the result may be incomplete
PartOfDeck: printf 'PATHS\n A . /\n/\nRUNSPEC\nGAS\nSCHEDULE\nINCLUDE\n ./w.inc /\nOLI\n' >r.data; printf 'OIL\n' >w.inc; $QUOR check w.inc --root r.data 2>e; $QUOR check r.data --root r.data 2>e | tail -n 1; $QUOR check - --root ./r.data --stdin-filename ../$(basename $PWD)/w.inc --quiet <cases/b.data | head -n 1; for a in cases/c.inc none '' -; do $QUOR check $a --root r.data --quiet; done =>
    ./w.inc:1:1: error: OIL is not valid in section SCHEDULE (valid in RUNSPEC) [wrong-section]
        OIL
        ^~~
      included from r.data:7
    w.inc: 1 keyword in 1 section, 1 file: 1 error
    r.data: 4 keywords in 2 sections, 1 file: 1 error
    ././w.inc:1:1: error: section RUNSPEC is repeated [section-order]
    quor: error: the deck 'r.data' doesn't include 'cases/c.inc'
    quor: error: can't read 'none': No such file or directory
    quor: error: no file of the deck to check; expected files with --root
    quor: error: --root needs --stdin-filename: which file of the deck standard input is
FixedInput: $QUOR check - --fix <other/d.data => quor: error: the deck from standard input can't be fixed; leave out --fix
)")),
    CaseName<Row>);

/// A settings file, and why it is refused.
class BadSettings : public testing::TestWithParam<Row> { };

TEST_P(BadSettings, AreRefused)
{
    const TemporaryDirectory folder;
    folder.Write("quor.toml", GetParam().text);
    folder.Write("a.data", "RUNSPEC\n");
    const Outcome outcome = RunShell("cd " + Quote(folder.Path().string()) + "; $QUOR check a.data --quiet");
    EXPECT_EQ(outcome.err, "quor: error: " + GetParam().expected + '\n');
    EXPECT_EQ(outcome.status, 2);
}

INSTANTIATE_TEST_SUITE_P(Files, BadSettings, testing::ValuesIn(Rows(R"(
Unknown: simulater = "x" => quor.toml:1: unknown setting 'simulater'; did you mean simulator?
OtherTable: ignore = [] => quor.toml:1: unknown setting 'ignore'; did you mean check.ignore?
InTable: [check]\nignor = [] => quor.toml:2: unknown setting 'check.ignor'; did you mean check.ignore?
Word: [check]\nfail-on = "warn" => quor.toml:2: check.fail-on: unknown name 'warn'; expected one of error, warning, never
Text: mode = 3 => quor.toml:1: mode: invalid value; expected a text in quotes
Flag: [check]\nstrict = 1 => quor.toml:2: check.strict: invalid value; expected true or false
Number: max-repeated-values = -1 => quor.toml:1: max-repeated-values: invalid value; expected a whole number of 0 or more
List: rules = "a.xml" => quor.toml:1: rules: invalid value; expected a list of texts, as in ["a", "b"]
Table: variables = 3 => quor.toml:1: variables: invalid value; expected a table, as in [variables]
Variable: [variables]\n"a b" = "x" => quor.toml:2: variables: invalid variable name 'a b'
VariableValue: [variables]\nA = true => quor.toml:2: variables: invalid value; expected a text in quotes or a whole number
Alias: [aliases]\nA = "/$B" => quor.toml:2: aliases: the path '/$B' has a '$'
Syntax: x = = 2 => quor.toml:1: invalid TOML: Error while parsing value: could not determine value type
Code: [check]\nignore = ["bad-dat"] => quor.toml:2: check.ignore: unknown finding code 'bad-dat'; did you mean bad-date?
Rules: rules = ["none.xml"] => can't read the rules in 'none.xml': No such file or directory
)")),
    CaseName<Row>);

} // namespace
