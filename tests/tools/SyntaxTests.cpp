#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tests/tools/RunProgram.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Tests;

namespace {

constexpr const char* ownDocument = R"(<keywords>
<keyword name="WCHECK">
 <description>Well checks.</description>
 <validSections> <section name="SCHEDULE"/> <section name="SOLUTION"/> </validSections>
 <aliases>
  <alias name="WCHK"/>
 </aliases>
 <data><list termination="SLASH"><record termination="SLASH">
  <item name="WELL" identifier="true"><string/></item>
  <item name="RESULT"><choice><values><value string="GOOD"/><value string="BAD"/></values>
   <default type="specified" val="GOOD"/></choice></item>
  <item name="DAYS" optional="true"><real>
   <min val="1"/>
   <default type="specified" val="5"/>
  </real></item>
 </record></list></data>
</keyword>
<keyword name="OIL">
 <validSections> <section name="RUNSPEC"/> </validSections>
</keyword>
</keywords>
)";

/// Runs a command of the shell beside a document, own.xml, and a deck of it.
Outcome RunBeside(const std::string& command)
{
    const TemporaryDirectory folder;
    folder.Write("own.xml", ownDocument);
    folder.Write("a.data", "RUNSPEC\nOIL\nSCHEDULE\nWCHECK\n P1 GOOD 0.5 /\n/\n");
    return RunShell("cd " + Quote(folder.Path().string()) + "; " + command);
}

/// How a document is changed, and what that means for decks.
class ChangesOfDocuments : public testing::TestWithParam<Row> { };

TEST_P(ChangesOfDocuments, AreReported)
{
    const Outcome outcome =
        RunBeside("sed '" + GetParam().text + "' own.xml >b.xml; $QUOR syntax diff own.xml b.xml; echo $?");
    EXPECT_EQ(outcome.out + outcome.err, GetParam().expected + '\n');
}

INSTANTIATE_TEST_SUITE_P(Documents, ChangesOfDocuments, testing::ValuesIn(Rows(R"(
None: s/x/x/ => no changes\n0
Choice: s/"GOOD".><value string="BAD"/"GOOD"/ => WCHECK\n  ! RESULT: choice 'BAD' removed\n1 change: 1 breaks decks\n1
NarrowerLimit: s/min val="1"/min val="2"/ => WCHECK\n  ! DAYS: minimum 2 instead of 1\n1 change: 1 breaks decks\n1
WiderLimit: s/min val="1"/min val="0"/ => WCHECK\n  ~ DAYS: minimum 0 instead of 1\n1 change: 0 break decks\n0
Default: s/val="5"/val="6"/ => WCHECK\n  ! DAYS: default 6 instead of 5\n1 change: 1 breaks decks\n1
Section: s/ <section name="SOLUTION"..// => WCHECK\n  ! no longer valid in SOLUTION\n1 change: 1 breaks decks\n1
Alias: /WCHK/d => WCHECK\n  ! without alias WCHK\n1 change: 1 breaks decks\n1
Type: s,<string.>,<integer/>, => WCHECK\n  ! WELL: type 'integer' instead of 'string'\n1 change: 1 breaks decks\n1
Renamed: s/name="DAYS"/name="TIME"/ => WCHECK\n  ~ DAYS: item renamed to TIME\n1 change: 0 break decks\n0
Removed: /DAYS/,/item>/d => WCHECK\n  ! DAYS: item removed\n1 change: 1 breaks decks\n1
NewBefore: /DAYS/i <item name="NEW"><string/></item> => WCHECK\n  ! NEW: new item 3, not at the end\n1 change: 1 breaks decks\n1
NewAtTheEnd: s,</record>,<item name="NEW" optional="true"><string/></item>&, => WCHECK\n  ~ NEW: new item 4\n1 change: 0 break decks\n0
NewAndRequired: s,</record>,<item name="NEW"><string/></item>&, => WCHECK\n  ! NEW: new item 4, without a default\n1 change: 1 breaks decks\n1
Description: s/Well checks/Checks/ => WCHECK\n  ~ other description\n1 change: 0 break decks\n0
Keyword: /"OIL"/,/keyword>/d => OIL\n  ! keyword removed\n1 change: 1 breaks decks\n1
Termination: s/<list termination="SLASH"/<list termination="NONE"/ => WCHECK\n  ! termination 'NONE' instead of 'SLASH'\n1 change: 1 breaks decks\n1
Flag: s/ optional="true"// => WCHECK\n  ! DAYS: no longer optional\n1 change: 1 breaks decks\n1
)")),
    CaseName<Row>);

/// What a command prints of own documents.
class OwnDocuments : public testing::TestWithParam<Row> { };

TEST_P(OwnDocuments, AreInForce)
{
    const Outcome outcome = RunBeside(GetParam().text);
    EXPECT_EQ(outcome.out + outcome.err, GetParam().expected + '\n');
}

INSTANTIATE_TEST_SUITE_P(Commands, OwnDocuments, testing::ValuesIn(Rows(R"(
Check: $QUOR check a.data --syntax own.xml --format gcc => a.data:5:10: error: WCHECK, DAYS: value 0.5 is too small (expected at least 1) [out-of-range]
OfAProject: mkdir d; mv own.xml d; echo 'syntax-folder = "d"' >quor.toml; $QUOR get a.data 'WCHECK[P1].RESULT' --bare 2>e; $QUOR list --text 'well checks' =>
    GOOD
    WCHECK  SOLUTION,SCHEDULE  Well checks.
    own documents d/own.xml: 2 keywords, in place of the built-in OIL
OfSeveralProjects: mkdir p; cp a.data p; echo 'syntax = ["../own.xml"]' >p/quor.toml; $QUOR check a.data p/a.data a.data --jobs 1 --format gcc =>
    a.data:4:1: error: unknown keyword 'WCHECK' [unknown-keyword]
    p/a.data:5:10: error: WCHECK, DAYS: value 0.5 is too small (expected at least 1) [out-of-range]
InPlaceOfTheMain: QUOR_KEYWORD_SYNTAX_FILE=own.xml $QUOR list --text x 2>&1 | sed 's/its .* and/its ... and/;s/[0-9]* more/1 more/' =>
    no keyword matches all options
    QUOR_KEYWORD_SYNTAX_FILE: own.xml replaces the built-in main document; without its ... and 1 more
Lint: $QUOR lint own.xml | tail -n 1 => added to the language, they take precedence over the built-in OIL
Addition: $QUOR syntax diff builtin own.xml --addition => OIL\n  ~ other description\nWCHECK\n  ~ new keyword\n2 changes: 0 break decks
Missing: $QUOR list --syntax none; $QUOR list --syntax-folder none; mkdir d; $QUOR list --syntax-folder d; echo '<a/>' >e; $QUOR syntax diff e e; $QUOR list --syntax d; $QUOR list --syntax-folder e =>
    quor: error: can't read the document 'none': No such file or directory
    quor: error: can't read the folder 'none': No such file or directory
    quor: error: no document in the folder 'd'; expected .xml files
    quor: error: can't load the language: 'e' has no keyword
    quor: error: can't read the document 'd': Is a directory
    quor: error: can't read the folder 'e': Not a directory
Twice: $QUOR list --syntax own.xml --syntax ./own.xml --text 'well checks'; $QUOR lint own.xml ./own.xml | grep document: =>
    WCHECK  SOLUTION,SCHEDULE  Well checks.
    2 keywords in 1 document: 4 warnings
    own documents ./own.xml: 2 keywords, in place of the built-in OIL
OfRules: mkdir d; mv own.xml d; echo '<rules/>' >d/r.xml; $QUOR list --syntax-folder d => quor: error: can't load the language: 'd/r.xml' is a document of rules, not of keywords; name it with --rules ('rules' in quor.toml), and keep it out of the folder of --syntax-folder
NotWellFormed: echo '<keywords>' >n; $QUOR list --syntax n => quor: error: can't load the language: n:2:1: error: cannot read the document: input ended before all started tags were ended; last tag started is 'keywords' [not-well-formed]
Manual: sed -i '/"OIL"/,/keyword>/d' own.xml; $QUOR manual m --syntax own.xml 2>e; echo mine >m/own.html; $QUOR report a.data -o m/a.html 2>e; ls m/keyword/WCHECK.html; $QUOR manual m 2>e; ls m/keyword/WCHECK.html 2>&1; cat m/own.html; ls m/a.html; echo x >m/search-data.js; $QUOR manual m =>
    m/keyword/WCHECK.html
    ls: cannot access 'm/keyword/WCHECK.html': No such file or directory
    mine
    m/a.html
    quor: error: 'm' is not empty and has no manual; expected a new or empty folder
Device: $QUOR list --syntax /dev/null => quor: error: can't load the language: can't read '/dev/null': not a regular file
Wrong: sed -i 's/="SLASH"/="SLOSH"/' own.xml; $QUOR check a.data --syntax own.xml => quor: error: can't load the language: own.xml:8:27: error: WCHECK: unknown termination 'SLOSH'; the load fails; did you mean 'SLASH'? [unknown-termination]
)")),
    CaseName<Row>);

} // namespace
