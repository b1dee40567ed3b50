#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

using namespace Veld::Quor::Tests;

namespace {

using Words = std::set<std::string>;

Words FindAll(const std::string& text, const char* pattern)
{
    const std::regex expression(pattern, std::regex::ECMAScript | std::regex::multiline);
    Words words;
    for (std::sregex_iterator at(text.begin(), text.end(), expression); at != std::sregex_iterator(); ++at)
        words.insert((*at)[1]);
    return words;
}

/// The subcommands that the help of the program lists.
Words Subcommands()
{
    const std::string help = RunQuor("--help").out;
    return FindAll(help.substr(help.find("Subcommands:")), "^  ([a-z]+) ");
}

struct Form {
    const char* name;
    const char* arguments;
    const char* begin; // before the name of a long option
};

class Documentation : public testing::TestWithParam<Form> { };

TEST_P(Documentation, HasAllSubcommandsAndOptions)
{
    const Outcome outcome = RunQuor(GetParam().arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const std::string text = std::regex_replace(outcome.out, std::regex(R"(\\-)"), "-");
    const Words commands = Subcommands();
    EXPECT_GE(commands.size(), 7U);
    for (const std::string& command : commands) {
        EXPECT_TRUE(std::regex_search(text, std::regex("\\b" + command + "\\b"))) << command;
        for (const std::string& option : FindAll(RunQuor(command + " --help").out, "--([a-z][a-z-]*)[ ,]"))
            EXPECT_TRUE(Holds(text, GetParam().begin + option)) << command << ": " << option;
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, Documentation,
    testing::Values(Form{"ManualPage", "man", "--"}, Form{"Bash", "completion bash", "--"},
        Form{"Zsh", "completion zsh", "--"}, Form{"Fish", "completion fish", "-l "}),
    CaseName<Form>);

/// A command line, the last word unfinished, and what is offered for it.
class BashCompletion : public testing::TestWithParam<Row> { };

TEST_P(BashCompletion, Offers)
{
    const TemporaryDirectory folder;
    const std::string script = folder.Write("try.sh",
        "PATH=${QUOR%/*}:$PATH\nsource <(\"$QUOR\" completion bash)\nCOMP_WORDS=(quor " + GetParam().text
            + ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_quor\nprintf '<%s>' \"${COMPREPLY[@]}\"\n");
    const Outcome outcome = RunShell("bash " + Quote(script));
    EXPECT_EQ(outcome.out, GetParam().expected);
    EXPECT_EQ(outcome.err, "");
}

INSTANTIATE_TEST_SUITE_P(CommandLines, BashCompletion, testing::ValuesIn(Rows(R"(
Subcommand: expl => <explain>
Option: check --max => <--max-repeated-values><--max-findings>
Choice: check --simulator Ca => <Carrow>
ChoiceBehindAnEqualsSign: check --format = s => <sarif>
ChoiceWithABlank: list --entity 'Aquifer\\ ' => <Aquifer\\ Gradient>
Code: explain unclosed-q => <unclosed-quote>
Keyword: show WCONPR => <WCONPROD>
FilesAreLeftToTheShell: check --baseline x => <>
)")),
    CaseName<Row>);

struct Explanation {
    const char* name;
    const char* arguments;
    const char* part; // of what is printed
    int status;
};

class Explain : public testing::TestWithParam<Explanation> { };

TEST_P(Explain, TellsOfCodes)
{
    const Outcome outcome = RunQuor(std::string("explain ") + GetParam().arguments);
    EXPECT_EQ(outcome.status, GetParam().status);
    EXPECT_TRUE(Holds(outcome.out + outcome.err, GetParam().part)) << outcome.out << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Codes, Explain,
    testing::Values(Explanation{"All", "", "boolean-text            lint", 0},
        Explanation{"OfADeck", "date-order", "\n  wrong:\n    SCHEDULE\n    DATES\n     1 JUN 2030 /\n", 0},
        Explanation{"OfBoth", "stray-text", "\n\nstray-text\n  warning of 'quor lint': ", 0},
        Explanation{"ForASimulator", "wrong-simulator", "  right, for Carrow:\n    RUNSPEC\n", 0},
        Explanation{
            "SeeAlso", "unknown-name", "\n  see also: 'quor show KEYWORD', which lists what is valid\n", 0},
        Explanation{"SeeAlsoAnOption", "too-many-values",
            "\n  see also: the option --max-repeated-values N, for a large grid whose arrays are all "
            "repeats\n",
            0},
        Explanation{"Json", "bad-date --format json", R"("right": "SCHEDULE\nDATES\n 28 FEB)", 0},
        Explanation{
            "Unknown", "bad-data bad-date", "unknown finding code 'bad-data'; did you mean bad-date?", 1}),
    CaseName<Explanation>);

} // namespace
