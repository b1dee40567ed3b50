#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;

namespace {

const std::string nothingWritten =
    "\nnothing was written; --one-file writes the deck and its included files into one file\n";

std::string Without(std::string text, const std::string& part)
{
    const std::size_t at = text.find(part);
    return at == std::string::npos ? text : text.erase(at, part.size());
}

/// What a folder has before a deck in it is formatted, what is in the folder "out" then, and the error.
class Trees : public testing::TestWithParam<Row> { };

TEST_P(Trees, AreWrittenWholeOrNotAtAll)
{
    const TemporaryDirectory folder;
    const std::string make = "cd " + Quote(folder.Path()) + "; mkdir -p a/b inc; R='RUNSPEC\nINCLUDE\n'; "
        + GetParam().text + "; cd a/b; \"$QUOR\" format d.data --output ../../out " + GetParam().options;
    const Outcome outcome =
        RunShell(make + "; s=$?; cd ../../out 2>/dev/null && find . -type f | sort; exit $s");
    EXPECT_EQ(outcome.out, GetParam().expected) << outcome.err;
    const std::string& refusal = GetParam().more;
    const std::string said = Without(outcome.err, folder.Path().string());
    EXPECT_EQ(Holds(said, "; the deck is '../../out/"), outcome.status == 0) << said;
    EXPECT_EQ(
        outcome.status == 0 ? "" : said, refusal.empty() ? "" : "quor: error: " + refusal + nothingWritten);
}

INSTANTIATE_TEST_SUITE_P(Formatted, Trees, testing::ValuesIn(Rows(R"(
Above: printf "$R '../../inc/x.inc' /" >a/b/d.data; echo OIL >inc/x.inc => ./a/b/d.data\n./inc/x.inc\n
Below: mkdir a/b/c; printf "$R 'c/x.inc' /" >a/b/d.data; echo OIL >a/b/c/x.inc => ./c/x.inc\n./d.data\n
TwoNames: printf "$R x.inc /\nINCLUDE\n y.inc /" >a/b/d.data; echo OIL >a/b/x.inc; ln -s x.inc a/b/y.inc => ./d.data\n./x.inc\n./y.inc\n
OneFile (--one-file): printf "$R '$PWD/inc/x.inc' /" >a/b/d.data; echo OIL >inc/x.inc => ./d.data\n
Absolute: printf "$R '$PWD/inc/x.inc' /" >a/b/d.data; echo OIL >inc/x.inc => => d.data:2: '/inc/x.inc' is included by its absolute path, and would be elsewhere too
BackFromALink: mkdir -p x/y; ln -s ../../x/y a/b/l; printf "$R l/../z.inc /" >a/b/d.data; echo OIL >x/z.inc => => 'l/../z.inc' goes back from a link, and would be another file elsewhere
LinkInTheFolder: printf "$R c/x.inc /" >a/b/d.data; mkdir a/b/c out; echo OIL >a/b/c/x.inc; ln -s ../inc out/c => => '../../out/c/x.inc' is a link, or in a linked folder
ItsOwnFolder: echo RUNSPEC >a/b/d.data; ln -s a/b out => ./d.data\n => '../../out/d.data' is a file of the deck; use --in-place to overwrite it
)")),
    CaseName<Row>);

} // namespace
