#include "quor/lint/Codes.h"
#include "tests/lint/Snippets.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core;

namespace {

/// By code a document with one mistake, a similar one without mistakes, and the finding that lint reports.
const std::vector<Row>& CodeRows()
{
    static const std::vector<Row> rows = Rows(R"(
not-well-formed: <keyword name='K'>\n<isHidden>\n</keyword> => <isHidden/> =>
    x.xml:5:3: error: cannot read the document: expected end of tag 'isHidden' [not-well-formed]
no-keyword: <!-- none --> =>  =>
    x.xml:2:1: warning: no <keyword> in <keywords> [no-keyword]
nested-keyword: <keyword name='K'~><keyword name='L'~></keyword></keyword> => <keyword name='K'~></keyword><keyword name='L'~></keyword> =>
    x.xml:4:1: warning: L: keyword inside another keyword is read as a separate keyword [nested-keyword] | move it after the other keyword
unknown-element: <data><record><item name='I'><real~></real></item><itm/></record></data> => <data><record><item name='I' ><real~></real></item></record></data> =>
    x.xml:5:43: error: K: unknown element <itm> in <record>; the load fails [unknown-element] | did you mean 'item'?
ignored-element: <documentatoin>D</documentatoin> => <documentation>D</documentation> =>
    x.xml:4:1: warning: K: unknown element <documentatoin> in <keyword> is ignored [ignored-element] | did you mean 'documentation'?
ignored-attribute: <data><record><item name='I' optoinal='true'><real~></real></item></record></data> => <data><record><item name='I' optional='true'><real~></real></item></record></data> =>
    x.xml:4:30: warning: K, item I: unknown attribute 'optoinal' of <item> is ignored [ignored-attribute] | did you mean 'optional'?
passed-over: <data><record><item name='I' ><real~></real><validity>\n<option value='Thermal'/>\n<!-- x --><simulator name='Carrow'/>\n</validity></item></record></data> => <data><record><item name='I' ><real~></real><validity>\n<simulator name='Carrow'/>\n<option value='Thermal'/>\n</validity></item></record></data> =>
    x.xml:7:11: warning: K, item I: <simulator> is ignored because no white space is directly before it [passed-over] | put it, and each comment, on a separate line
stray-text: <isHidden>false</isHidden> => <isHidden> </isHidden> =>
    x.xml:4:1: warning: K: the text in <isHidden> is ignored; the element itself sets the flag [stray-text] | remove the text, or the element
repeated-element: <data><record><item name='I' ><real~><max val='1'/><max val='2'/></real></item></record></data> => <data><record><item name='I' ><real~><min val='1'/><max val='2'/></real></item></record></data> =>
    x.xml:5:43: warning: K, item I: <max> replaces <max> on line 5 [repeated-element] | keep one of them
second-type: <data><record><item name='I' ><real~></real><string/></item></record></data> => <data><record><item name='I' ><real~></real></item></record></data> =>
    x.xml:5:36: warning: K, item I: <string> is ignored; <real> on line 4 is used [second-type] | keep one of them
missing-type: <data><record><item name='I'><description>d</description></item></record></data> => <data><record><item name='I' ><real~></real></item></record></data> =>
    x.xml:4:15: error: K, item I: the item has no type; the load fails [missing-type] | add <real>, <integer>, <string>, <choice>, <boolean>, <line>, <list> or <record>
empty-element: <data><record><description>d</description></record></data> => <data><record><item name='I' ><real~></real></item></record></data> =>
    x.xml:4:7: warning: K: <record> has no item [empty-element]
missing-attribute: <data><record><item name='I' ><real~><quantity/></real></item></record></data> => <data><record><item name='I' ><real~><quantity name='length'/></real></item></record></data> =>
    x.xml:5:29: warning: K, item I: <quantity> has no attribute 'name' [missing-attribute] | write name="..."
listed-twice: <validSections><section name='GRID'/><section name='GRID'/></validSections> => <validSections><section name='GRID'/><section name='EDIT'/></validSections> =>
    x.xml:4:53: warning: K: duplicate <section> 'GRID' counts once [listed-twice] | remove one of them
flag-text: <data><record><item name='I' optional='yes'><real~></real></item></record></data> => <data><record><item name='I' optional='false'><real~></real></item></record></data> =>
    x.xml:4:40: warning: K, item I: unknown flag 'yes' is read as false [flag-text] | expected true or false
unknown-simulator: <validSimulators><simulator name='Dunmer'/></validSimulators> => <validSimulators><simulator name='Dunmere'/></validSimulators> =>
    x.xml:4:35: warning: K: unknown simulator 'Dunmer' is read as Carrow [unknown-simulator] | did you mean 'Dunmere'?
unknown-mode: <validOptions><option value='Blackoil'/></validOptions> => <validOptions><option value='BlackOil'/></validOptions> =>
    x.xml:4:30: warning: K: unknown mode 'Blackoil' is read as BlackOil [unknown-mode] | did you mean 'BlackOil'?
unknown-section: <validSections><section name='Grid'/></validSections> => <validSections><section name='GRID'/></validSections> =>
    x.xml:4:31: warning: K: unknown section 'Grid' is read as RUNSPEC [unknown-section] | did you mean 'GRID'?
unknown-override: <data><record><item name='I' ><real~><default type='calculated'><override name='X' type='calculated'/></default></real></item></record></data> => <data><record><item name='I' ><real~><default type='calculated'><override name='Wend' type='calculated'/></default></real></item></record></data> =>
    x.xml:5:72: error: K, item I: unknown simulator 'X' of an override; the load fails [unknown-override] | expected Carrow, Dunmere, Sedge, Hallow, Marlpit, Ostrey, Wend, Tolmen, Wend_GE or Wend_CLASSIC
unknown-termination: <data><list termination='slash'><real~></real></list></data> => <data><list><real~></real></list></data> =>
    x.xml:4:26: error: K: unknown termination 'slash'; the load fails [unknown-termination] | did you mean 'SLASH'?
unknown-constraint: <data><record><item name='I' columnConstraint='Increasing'><real~></real></item></record></data> => <data><record><item name='I' columnConstraint='increasing'><real~></real></item></record></data> =>
    x.xml:4:48: error: K, item I: unknown column constraint 'Increasing'; the load fails [unknown-constraint] | did you mean 'increasing'?
unknown-category: <summaryMnemonic><category name='entity' val='well'/></summaryMnemonic> => <summaryMnemonic><category name='entity' val='Well'/></summaryMnemonic> =>
    x.xml:4:47: error: K: unknown value 'well' of category 'entity'; the load fails [unknown-category] | did you mean 'Well'?
support-level: <validSimulators><simulator name='Wend' supportLevel='Ignored'/></validSimulators> => <validSimulators><simulator name='Wend' supportLevel='partly'/></validSimulators> =>
    x.xml:4:55: warning: K: unknown support level 'Ignored'; the simulator counts as supported [support-level] | did you mean 'ignored'?
no-entity: <summaryMnemonic><category name='phase' val='Oil'/></summaryMnemonic> => <summaryMnemonic><category name='entity' val='Field'/></summaryMnemonic> =>
    x.xml:4:1: warning: K: the summary vector has no category 'entity' [no-entity] | add <category name="entity" val="..."/>
late-validity: <data><list><real~></real></list></data><validSections><section name='GRID'/></validSections> => <validSections><section name='GRID'/></validSections><data><list><real~></real></list></data> =>
    x.xml:5:50: warning: K: <validSections> after <data> applies to aliases only [late-validity] | move it before <data>
modeless-simulator: <validSimulators><simulator name='Carrow'/></validSimulators><validOptions><option value='Thermal'/></validOptions> => <validSimulators><simulator name='Dunmere'/></validSimulators><validOptions><option value='Thermal'/></validOptions> =>
    x.xml:4:62: warning: K: no listed mode is a mode of Carrow; the keyword is valid in all modes there [modeless-simulator] | list in <validSimulators> only simulators that have one of the modes
valid-nowhere: <validSimulators><simulator name='Wend' supportLevel='ignored'/></validSimulators> => <validSimulators><simulator name='Wend'/></validSimulators> =>
    x.xml:3:1: warning: K: <keyword> is not valid for any simulator [valid-nowhere]
entry-without-effect: <validSimulators><simulator name='Sedge' classicOnly='true'/></validSimulators> => <validSimulators><simulator name='Wend' classicOnly='true'/></validSimulators> =>
    x.xml:4:42: warning: K: attribute 'classicOnly' has no effect on simulator 'Sedge'; only Wend has variants [entry-without-effect] | remove the attribute
default-type: <data><record><item name='I' ><line~><default type='no default'/></line></item></record></data> => <data><record><item name='I' ><line~><default type='calculated'/></line></item></record></data> =>
    x.xml:5:44: error: K, item I: type 'no default' is not allowed for a line; the load fails [default-type] | remove <default>
choice-default-type: <data><record><item name='I' ><choice~><default type='none'/><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> => <data><record><item name='I' ><choice~><default type='no default'/><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> =>
    x.xml:5:44: warning: K, item I: unknown type 'none' of a default is read as 'no default' [choice-default-type] | expected specified, calculated or no default
default-value: <data><record><item name='I' ><real~><default type='calculated' val='1'/></real></item></record></data> => <data><record><item name='I' ><real~><default type='calculated'/></real></item></record></data> =>
    x.xml:5:56: error: K, item I: calculated default with attribute 'val'; the load fails [default-value] | remove attribute 'val'
ignored-value: <data><record><item name='I' ><real~><default type='no default' val='1'/></real></item></record></data> => <data><record><item name='I' ><real~><default type='no default'/></real></item></record></data> =>
    x.xml:5:56: warning: K, item I: attribute 'val' is ignored because the type is 'no default' [ignored-value] | remove attribute 'val'
number-text: <data><record><item name='I' ><integer~>\n<max val='12abc'/></integer></item></record></data> => <data><record><item name='I' ><integer~>\n<max val='+12'/></integer></item></record></data> =>
    x.xml:6:11: warning: K, item I: invalid number '12abc' of <max> is ignored [number-text] | expected an integer
crossed-limits: <data><record><item name='I' ><real~><min val='2'/><max val='1e0'/></real></item></record></data> => <data><record><item name='I' ><real~><min val='2'/><max val='2'/></real></item></record></data> =>
    x.xml:5:53: warning: K, item I: max 1 is less than min 2 [crossed-limits]
default-outside: <data><record><item name='I' ><real~><max val='1'/><default type='specified' val='1.5'/></real></item></record></data> => <data><record><item name='I' ><real~><max val='1'/><default type='specified' val='1'/></real></item></record></data> =>
    x.xml:5:74: warning: K, item I: default 1.5 is greater than max 1 [default-outside]
boolean-text: <data><record><item name='I' ><boolean~><default type='specified' val='no'/></boolean></item></record></data> => <data><record><item name='I' ><boolean~><default type='specified' val='NO'/></boolean></item></record></data> =>
    x.xml:5:60: warning: K, item I: default 'no' is read as true [boolean-text] | expected YES or NO
default-no-choice: <data><record><item name='I' ><choice~><default type='specified' val='OILS'/><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> => <data><record><item name='I' ><choice~><default type='specified' val='oil'/><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> =>
    x.xml:5:60: warning: K, item I: default 'OILS' matches no choice and gives no value [default-no-choice] | did you mean 'OIL'?
default-not-in-full: <data><record><item name='I' ><choice~><default type='specified' val='GA'/><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> => <data><record><item name='I' ><choice~><default type='specified' val='GAS'/><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> =>
    x.xml:5:60: warning: K, item I: default 'GA' is an abbreviation of a choice [default-not-in-full] | write the choice in full
lost-override: <data><record><item name='I' ><choice~><default type='specified' val='GAS'><override name='Wend' type='calculated'/></default><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> => <data><record><item name='I' ><choice~><default type='specified' val='GAS'><override name='Wend' type='no default'/></default><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> =>
    x.xml:5:65: warning: K, item I: override for 'Wend' has no effect; the specified default of the choice is used [lost-override] | write a specified default for the simulator, or remove the override
override-elsewhere: <validSimulators><simulator name='Sedge'/></validSimulators><data><list><real~><default type='calculated'><override name='Wend' type='no default'/></default></real></list></data> => <validSimulators><simulator name='Wend'/></validSimulators><data><list><real~><default type='calculated'><override name='Wend_GE' type='no default'/></default></real></list></data> =>
    x.xml:5:72: warning: K: override for 'Wend', for which the keyword is not valid [override-elsewhere] | remove the override, or make the keyword valid for the simulator
lower-case: <data><record><item name='I' ><choice~><values><value string='OIL'><aliases>\n<alias name='oleum'/>\n</aliases></value></values></choice></item></record></data> => <data><record><item name='I' ><choice~><values><value string='oil'><aliases>\n<alias name='OLEUM'/>\n</aliases></value></values></choice></item></record></data> =>
    x.xml:6:14: warning: K, item I: 'oleum' never matches because words of a deck are converted to upper case [lower-case] | write it in upper case
unreachable-word: <data><record><item name='I' ><choice~><values><value string='OIL'/><value string='oil'/></values></choice></item></record></data> => <data><record><item name='I' ><choice~><values><value string='OIL'/><value string='OILS'/></values></choice></item></record></data> =>
    x.xml:5:73: warning: K, item I: unreachable choice or alias 'OIL'; an earlier one has the same text [unreachable-word] | remove it
no-key: <data><map><assignment~><validity>\n<simulator name='Carrow'/>\n</validity></assignment></map></data> => <data><map><assignment name='STEPS'~><validity>\n<simulator name='Carrow'/>\n</validity></assignment></map></data> =>
    x.xml:4:12: warning: K, assignment without a name: the assignment has neither a name nor an alias [no-key] | add attribute 'name'
name-length: <keyword name='NINECHARS'~></keyword> => <keyword name='EIGHTCHR'~></keyword> =>
    x.xml:3:16: warning: NINECHARS: name 'NINECHARS' has 9 characters (expected at most 8) [name-length]
name-text: <keyword name='A*B'~></keyword> => <keyword name='A*'~></keyword> =>
    x.xml:3:16: warning: A*B: text after '*' in name 'A*B' is ignored [name-text] | write 'A*'
defined-twice: <keyword name='K' id='1'~><validSections><section name='GRID'/></validSections></keyword><keyword name='K' id='2'~><validSections><section name='GRID'/></validSections></keyword> => <keyword name='K' id='1'~><validSections><section name='GRID'/></validSections></keyword><keyword name='K' id='2'~><validSections><section name='EDIT'/></validSections></keyword> =>
    x.xml:6:16: warning: K: 'K' is already defined for one of its sections by keyword 'K' at x.xml:3 [defined-twice] | use different sections, or remove one of them
key-twice: <keyword name='K'~><validSections><section name='GRID'/></validSections></keyword><keyword name='K'~><validSections><section name='EDIT'/></validSections></keyword> => <keyword name='K'~><validSections><section name='GRID'/></validSections></keyword><keyword name='K' id='2'~><validSections><section name='EDIT'/></validSections></keyword> =>
    x.xml:6:16: warning: K: name 'K' is already used by keyword 'K' at x.xml:3; expected an id [key-twice] | add attribute 'id'
wildcard-overlap: <keyword name='A*'~></keyword><keyword name='AB*'~></keyword> => <keyword name='A*'~></keyword><keyword name='AB'~></keyword> =>
    x.xml:6:16: warning: AB*: wildcard 'AB*' hides part of wildcard 'A*' at x.xml:3 [wildcard-overlap] | use different sections or different prefixes
unknown-keyword: <precedents><precedent name='WELSPEX'/></precedents> => <precedents><precedent name='WELSPECS'/></precedents> =>
    x.xml:4:30: warning: K: unknown precedent 'WELSPEX' [unknown-keyword] | correct the name, or define the keyword
precedent-cycle: <keyword name='A'~><precedents><precedent name='B'/></precedents></keyword><keyword name='B'~><precedents><precedent name='A'/></precedents></keyword> => <keyword name='A'~><precedents><precedent name='B'/></precedents></keyword><keyword name='B'~></keyword> =>
    x.xml:7:30: warning: B: circular precedents: the keyword is a precedent of 'A' [precedent-cycle] | remove the precedent
no-description: <data><record><item name='I' ><real/></item></record></data> => <data><record><item name='I' ><real~></real></item></record></data> =>
    x.xml:4:31: warning: K, item I: <real> has no description [no-description] | add a <description> to the type element
defaultable-container: <data><list itemsDefaultable='true'><list><real~></real></list></list></data> => <data><list itemsDefaultable='true'><real~></real></list></data> =>
    x.xml:4:13: error: K: attribute 'itemsDefaultable' on a list that has no scalar elements; the load fails [defaultable-container] | remove the attribute
termination-overridden: <data><list termination='EOL'><real~></real><customReadTermination><stringTermination>E</stringTermination></customReadTermination></list></data> => <data><list><real~></real><customReadTermination><stringTermination>E</stringTermination></customReadTermination></list></data> =>
    x.xml:4:26: warning: K: termination 'EOL' has no effect; with <customReadTermination> it is CUSTOMIZED [termination-overridden] | write CUSTOMIZED, or remove <customReadTermination>
no-termination-words: <data><list termination='CUSTOMIZED'><real~></real></list></data> => <data><list termination='EOL'><real~></real></list></data> =>
    x.xml:4:26: warning: K: termination CUSTOMIZED without <customReadTermination>; no word ends the list [no-termination-words] | add <customReadTermination>
size-conflict: <data><list termination='NONE'><real~></real></list></data> => <data><list size='NX' termination='NONE'><real~></real></list></data> =>
    x.xml:4:26: warning: K: the list has neither a size nor a termination [size-conflict] | add attribute 'size', or a termination other than NONE
constraint-on-text: <data><record><item name='I' columnConstraint='increasing'><string~></string></item></record></data> => <data><record><item name='I' columnConstraint='increasing'><real~></real></item></record></data> =>
    x.xml:4:30: warning: K, item I: column constraint on <string>; expected <real> or <integer> [constraint-on-text] | remove the attribute
cell-without-list: <cell/><data><record><item name='I'><real~></real></item></record></data> => <cell/><data><list><real~></real></list></data> =>
    x.xml:4:1: warning: K: <cell> has no effect because <data> is not a list of scalars [cell-without-list] | remove <cell>, or make <data> a list of scalars
blank-format: <data><record><item name='I' ><real~><format> </format></real></item></record></data> => <data><record><item name='I' ><real~><format>%g</format></real></item></record></data> =>
    x.xml:5:29: warning: K, item I: blank format is ignored [blank-format] | remove <format>
unseen-identifier: <data><record><item name='I' identifier='true'><list><real~></real></list></item></record></data> => <data><record><item name='I' identifier='true'><real~></real></item></record></data> =>
    x.xml:4:30: warning: K, item I: attribute 'identifier' has no effect on <list>; expected a scalar [unseen-identifier] | mark the identifying items inside it
)");
    return rows;
}

class Mistake : public testing::TestWithParam<Row> { };

TEST_P(Mistake, IsTheOnlyFinding)
{
    EXPECT_EQ(FindingsOf(Expanded(GetParam().text)), GetParam().more);
    EXPECT_EQ(FindingsOf(Expanded(GetParam().expected)), "");
}

TEST_P(Mistake, IsAnErrorExactlyIfTheLoadFails)
{
    testing::internal::CaptureStdout(); // the loader prints failures of a file
    testing::internal::CaptureStderr();
    const std::string failure = LoadFailureOf(Expanded(GetParam().text));
    const std::string cleanFailure = LoadFailureOf(Expanded(GetParam().expected));
    testing::internal::GetCapturedStdout();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(failure != "loaded", GetParam().more.find(": error: ") != std::string::npos) << failure;
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
        EXPECT_NE(row.more.find(" [" + row.name + "]"), std::string::npos) << row.name;
    }
    std::set<std::string> all;
    for (const Lint::CodeInfo& info : Lint::Codes())
        all.insert(info.name);
    EXPECT_EQ(inTable, all);
    EXPECT_EQ(all.size(), static_cast<std::size_t>(Lint::Code::Count));
}

} // namespace
