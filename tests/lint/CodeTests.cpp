#include "quor/deck/DeckLanguage.h"
#include "quor/lint/Codes.h"
#include "quor/syntax/KeywordSyntaxTable.h"
#include "tests/lint/Snippets.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core;
using Veld::Quor::Core::Decks::CodeInfo;
using Veld::Quor::Core::Decks::Severity;

namespace {

/// By code the finding that lint reports in the wrong example of the code.
const std::vector<Row>& CodeRows()
{
    static const std::vector<Row> rows = Rows(R"(
not-well-formed: x.xml:5:3: error: cannot read the document: expected end of tag 'isHidden' [not-well-formed]
short-form: x.xml:4:7: error: <records> is a short form, which the loader doesn't know; nothing else is checked in the document [short-form] | check the document in which the short forms are expanded
no-keyword: x.xml:2:1: warning: no <keyword> in <keywords> [no-keyword]
nested-keyword: x.xml:3:19: warning: L: keyword inside another keyword is read as a separate keyword [nested-keyword] | move it after the other keyword
unknown-element: x.xml:5:1: error: K: unknown element <itm> in <record>; the load fails [unknown-element] | did you mean 'item'?
ignored-element: x.xml:4:1: warning: K: unknown element <documentatoin> in <keyword> is ignored [ignored-element] | did you mean 'documentation'?
ignored-attribute: x.xml:4:30: warning: K, item I: unknown attribute 'optoinal' of <item> is ignored [ignored-attribute] | did you mean 'optional'?
passed-over: x.xml:6:12: warning: K, item I: <simulator> is ignored because no white space is directly before it [passed-over] | put it, and each comment, on a separate line
stray-text: x.xml:4:1: warning: K: the text in <isHidden> is ignored; the element itself sets the flag [stray-text] | remove the text, or the element
repeated-element: x.xml:4:50: warning: K, item I: <max> replaces <max> on line 4 [repeated-element] | keep one of them
second-type: x.xml:4:37: warning: K, item I: <string> is ignored; <real> on line 4 is used [second-type] | keep one of them
missing-type: x.xml:4:15: error: K, item I: the item has no type; the load fails [missing-type] | add <real>, <integer>, <string>, <choice>, <boolean>, <line>, <list> or <record>
empty-element: x.xml:4:7: warning: K: <record> has no item [empty-element]
missing-attribute: x.xml:4:36: warning: K, item I: <quantity> has no attribute 'name' [missing-attribute] | write name="..."
listed-twice: x.xml:4:53: warning: K: duplicate <section> 'GRID' counts once [listed-twice] | remove one of them
flag-text: x.xml:4:40: warning: K, item I: unknown flag 'yes' is read as false [flag-text] | expected true or false
unknown-simulator: x.xml:4:35: warning: K: unknown simulator 'Dunmer' is read as Carrow [unknown-simulator] | did you mean 'Dunmere'?
unknown-mode: x.xml:4:30: warning: K: unknown mode 'Blackoil' is read as BlackOil [unknown-mode] | did you mean 'BlackOil'?
unknown-section: x.xml:4:31: warning: K: unknown section 'Grid' is read as RUNSPEC [unknown-section] | did you mean 'GRID'?
unknown-override: x.xml:5:51: error: K, item I: unknown simulator 'X' of an override; the load fails [unknown-override] | expected Carrow, Dunmere, Sedge, Hallow, Marlpit, Ostrey, Wend, Tolmen, Wend_GE or Wend_CLASSIC
unknown-termination: x.xml:4:26: error: K: unknown termination 'slash'; the load fails [unknown-termination] | did you mean 'SLASH'?
unknown-constraint: x.xml:4:48: error: K, item I: unknown column constraint 'Increasing'; the load fails [unknown-constraint] | did you mean 'increasing'?
unknown-category: x.xml:4:47: error: K: unknown value 'well' of category 'entity'; the load fails [unknown-category] | did you mean 'Well'?
support-level: x.xml:4:55: warning: K: unknown support level 'Ignored'; the simulator counts as supported [support-level] | did you mean 'ignored'?
no-entity: x.xml:4:1: warning: K: the summary vector has no category 'entity' [no-entity] | add <category name="entity" val="..."/>
late-validity: x.xml:5:1: warning: K: <validSections> after <data> applies to aliases only [late-validity] | move it before <data>
modeless-simulator: x.xml:5:1: warning: K: no listed mode is a mode of Carrow; the keyword is valid in all modes there [modeless-simulator] | list in <validSimulators> only simulators that have one of the modes
valid-nowhere: x.xml:3:1: warning: K: <keyword> is not valid for any simulator [valid-nowhere]
entry-without-effect: x.xml:4:42: warning: K: attribute 'classicOnly' has no effect on simulator 'Sedge'; only Wend has variants [entry-without-effect] | remove the attribute
default-type: x.xml:4:51: error: K, item I: type 'no default' is not allowed for a line; the load fails [default-type] | remove <default>
choice-default-type: x.xml:5:17: warning: K, item I: unknown type 'none' of a default is read as 'no default' [choice-default-type] | expected specified, calculated or no default
default-value: x.xml:4:63: error: K, item I: calculated default with attribute 'val'; the load fails [default-value] | remove attribute 'val'
ignored-value: x.xml:4:63: warning: K, item I: attribute 'val' is ignored because the type is 'no default' [ignored-value] | remove attribute 'val'
number-text: x.xml:4:49: warning: K, item I: invalid number '12abc' of <max> is ignored [number-text] | expected an integer
crossed-limits: x.xml:4:60: warning: K, item I: max 1 is less than min 2 [crossed-limits]
default-outside: x.xml:4:81: warning: K, item I: default 1.5 is greater than max 1 [default-outside]
boolean-text: x.xml:4:70: warning: K, item I: default 'no' is read as true [boolean-text] | expected YES or NO
default-no-choice: x.xml:5:33: warning: K, item I: default 'OILS' matches no choice; the item has no default [default-no-choice] | did you mean 'OIL'?
default-not-in-full: x.xml:5:33: warning: K, item I: default 'GA' is an abbreviation of a choice [default-not-in-full] | write the choice in full
lost-override: x.xml:5:38: warning: K, item I: override for 'Wend' has no effect; the specified default of the choice is used [lost-override] | write a specified default for the simulator, or remove the override
override-elsewhere: x.xml:8:47: warning: K: override for 'Wend', for which the keyword is not valid [override-elsewhere] | remove the override, or make the keyword valid for the simulator
lower-case: x.xml:3:16: warning: permx: the name never matches because names of keywords are in upper case [lower-case] | write it in upper case
unreachable-word: x.xml:5:54: warning: K, item I: unreachable choice or alias 'OIL'; an earlier one has the same text [unreachable-word] | remove it
no-key: x.xml:4:12: warning: K, assignment without a name: the assignment has neither a name nor an alias [no-key] | add attribute 'name'
name-length: x.xml:3:16: warning: NINECHARS: the name has 9 characters (expected at most 8) [name-length]
name-text: x.xml:3:16: warning: A*B: text after '*' in the name is ignored [name-text] | write 'A*'
defined-twice: x.xml:4:16: warning: K: the name is already defined for one of its sections at x.xml:3 [defined-twice] | use different sections, or remove one of them
key-twice: x.xml:4:16: warning: K: the name is already used at x.xml:3; expected an id [key-twice] | add attribute 'id'
wildcard-overlap: x.xml:4:16: warning: AB*: wildcard 'AB*' hides part of wildcard 'A*' at x.xml:3 [wildcard-overlap] | use different sections or different prefixes
unknown-keyword: x.xml:4:30: warning: K: unknown precedent 'WELSPEX' [unknown-keyword] | correct the name, or define the keyword
precedent-cycle: x.xml:4:48: warning: B: circular precedents: the keyword is a precedent of 'A' [precedent-cycle] | remove the precedent
no-description: x.xml:4:30: warning: K, item I: <real> has no description [no-description] | add a <description> to the type element
defaultable-container: x.xml:4:13: error: K: attribute 'itemsDefaultable' on a list that has no scalar elements; the load fails [defaultable-container] | remove the attribute
termination-overridden: x.xml:5:21: warning: K: termination 'EOL' has no effect; with <customReadTermination> it is CUSTOMIZED [termination-overridden] | write CUSTOMIZED, or remove <customReadTermination>
no-termination-words: x.xml:4:26: warning: K: termination CUSTOMIZED without <customReadTermination>; no word ends the list [no-termination-words] | add <customReadTermination>
size-conflict: x.xml:4:26: warning: K: the list has neither a size nor a termination [size-conflict] | add attribute 'size', or a termination other than NONE
constraint-on-text: x.xml:4:30: warning: K, item I: column constraint on <string>; expected <real> or <integer> [constraint-on-text] | remove the attribute
cell-without-list: x.xml:4:1: warning: K: <cell> has no effect because <data> is not a list of scalars [cell-without-list] | remove <cell>, or make <data> a list of scalars
blank-format: x.xml:4:36: warning: K, item I: blank format is ignored [blank-format] | remove <format>
unseen-identifier: x.xml:4:30: warning: K, item I: attribute 'identifier' has no effect on <list>; expected a scalar [unseen-identifier] | mark the identifying items inside it
wrong-rule: x.xml:1:14: error: unknown keyword 'STRAT' [wrong-rule] | did you mean 'START'?
)");
    return rows;
}

/// An example of a code as a document has it.
std::string InKeyword(const std::string& example)
{
    if (example.starts_with("<item"))
        return InKeyword("<data><record>" + example + "</record></data>");
    return example.starts_with("<keyword") || example.starts_with("<rules") || example.starts_with("<!--")
        ? example
        : "<keyword name='K'><description>d</description>\n" + example + "</keyword>";
}

/// Without those about descriptions, which the examples of other codes leave out.
std::string FindingsOfExample(const std::string& example, const std::string& code)
{
    return FindingsOf(InKeyword(example), code == "no-description" ? "" : "no-description");
}

/// Of the loader, or of who reads rules.
std::string FailureOf(const std::string& example)
{
    if (!example.starts_with("<rules"))
        return LoadFailureOf(InKeyword(example));
    const TemporaryDirectory folder;
    try {
        const Decks::DeckLanguage language(
            Keywords::KeywordSyntaxTable::Instance(), {folder.Write("r.xml", example)});
    } catch (const Decks::RuleError& error) {
        return error.what();
    }
    return "loaded";
}

class Mistake : public testing::TestWithParam<Row> {
protected:
    static const CodeInfo& InfoOfRow() { return *Lint::FindInfo(GetParam().name); }
};

TEST_P(Mistake, IsTheOnlyFinding)
{
    EXPECT_EQ(FindingsOfExample(InfoOfRow().wrong, GetParam().name), GetParam().text);
    EXPECT_EQ(FindingsOfExample(InfoOfRow().right, GetParam().name), "");
}

TEST_P(Mistake, IsAnErrorExactlyIfTheLoadFails)
{
    testing::internal::CaptureStdout(); // the loader prints failures of a file
    testing::internal::CaptureStderr();
    const std::string failure = FailureOf(InfoOfRow().wrong);
    const std::string cleanFailure = FailureOf(InfoOfRow().right);
    testing::internal::GetCapturedStdout();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(failure != "loaded", InfoOfRow().severity == Severity::Error) << failure;
    EXPECT_EQ(cleanFailure, "loaded");
}

std::string NameOfCode(const testing::TestParamInfo<Row>& row)
{
    std::string name = row.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Codes, Mistake, testing::ValuesIn(CodeRows()), NameOfCode);

TEST(Codes, HaveARowEach)
{
    std::set<std::string> inTable;
    for (const Row& row : CodeRows()) {
        inTable.insert(row.name);
        EXPECT_NE(row.text.find(" [" + row.name + "]"), std::string::npos) << row.name;
    }
    std::set<std::string> all;
    for (const CodeInfo& info : Lint::Codes())
        all.insert(info.name);
    EXPECT_EQ(inTable, all);
    EXPECT_EQ(Lint::FindInfo("no-such-code"), nullptr);
}

} // namespace
