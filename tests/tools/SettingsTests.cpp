#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
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
All: cd cases; $QUOR settings a.data --mode Thermal --ignore bad-date --set NY=5 | sed "s|$(dirname $PWD)/||" =>
    settings of quor.toml

    setting              value                        from
    simulator            Carrow                       quor.toml:1
    mode                 Thermal                      command line
    decks                PROJECT/cases/*.data         quor.toml:2
Project: $QUOR check --quiet; echo $? =>
    cases/a.data:6:1: error: ENDINC has no effect outside an included file [stray-endinc]
Nearest: $QUOR check other/d.data --quiet; echo $? => 0
)")),
    CaseName<Row>);

} // namespace
