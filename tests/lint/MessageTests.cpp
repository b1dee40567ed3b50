#include "tests/lint/Snippets.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Veld::Quor::Tests;

namespace {

class Message : public testing::TestWithParam<Row> { };

TEST_P(Message, IsReportedInFull)
{
    EXPECT_EQ(FindingsOf(Expanded(GetParam().text)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Variants, Message, testing::ValuesIn(Rows(R"(
UseOfAPiece: <zzzzzzzz/><validity>\n<use piece='wells'/>\n</validity> => x.xml:5:1: error: <use> is a short form, which the loader doesn't know; nothing else is checked in the document [short-form] | check the document in which the short forms are expanded
ScalarAsItem: <data><record><real name='I'>d</real></record></data> => x.xml:4:15: error: <real> is a short form, which the loader doesn't know; nothing else is checked in the document [short-form] | check the document in which the short forms are expanded
AliasInLowerCase: <data><record><item name='I' ><choice~><values><value string='OIL'><aliases>\n<alias name='oleum'/>\n</aliases></value></values></choice></item></record></data> =>
    x.xml:6:14: warning: K, item I: 'oleum' never matches because words of a deck are converted to upper case [lower-case] | write it in upper case
AliasAsDefault: <data><record><item name='I' ><choice~><default type='specified' val='OLEUM'/><values><value string='OIL'><aliases>\n<alias name='OLEUM'/>\n</aliases></value></values></choice></item></record></data> =>
    x.xml:5:60: warning: K, item I: default 'OLEUM' is an alias of a choice [default-not-in-full] | write the choice in full
BeginningOfAnAlias: <data><record><item name='I' ><choice~><default type='specified' val='OLE'/><values><value string='OIL'><aliases>\n<alias name='OLEUM'/>\n</aliases></value></values></choice></item></record></data> =>
    x.xml:5:60: warning: K, item I: default 'OLE' is an abbreviation of a choice [default-not-in-full] | write the choice in full
DefaultFarFromAllChoices: <data><record><item name='I' ><choice~><default type='specified' val='WATER'/><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> =>
    x.xml:5:60: warning: K, item I: default 'WATER' matches no choice; the item has no default [default-no-choice]
ValueWithoutString: <data><record><item name='I' ><choice~><values><value/></values></choice></item></record></data> =>
    x.xml:5:37: warning: K, item I: <value> without attribute 'string' is read as a blank choice [missing-attribute] | write string="..."
EmptySize: <data><list maxSize=''><real~></real></list></data> => x.xml:4:13: warning: K: attribute 'maxSize' is empty [missing-attribute] | remove the attribute
SizeAndMinSize: <data><list size='2' minSize='1'><real~></real></list></data> =>
    x.xml:4:22: warning: K: attribute 'minSize' has no effect because the list has attribute 'size' [size-conflict] | remove attribute 'minSize'
CrossedSizes: <data><list minSize='3' maxSize='2'><real~></real></list></data> => x.xml:4:34: warning: K: maxSize 2 is less than minSize 3 [crossed-limits]
AssignmentElsewhere: <validSimulators><simulator name='Wend'/></validSimulators><data><map><assignment name='A'~><validity>\n<simulator name='Carrow'/>\n</validity></assignment></map></data> =>
    x.xml:5:29: warning: K, assignment A: the assignment is not valid for any simulator of the keyword [valid-nowhere] | list its simulators in <validity>
AssignmentWithoutValidity: <data><map><assignment name='A'~></assignment></map></data> =>
    x.xml:4:12: warning: K, assignment A: the assignment is not valid for any simulator because it has no <validity> [valid-nowhere] | list its simulators in <validity>
AssignmentWithoutDescription: <data><map><assignment name='A'><validity>\n<simulator name='Carrow'/>\n</validity></assignment></map></data> =>
    x.xml:4:12: warning: K, assignment A: the assignment has no description [no-description] | add a <description>
KeyTwiceInAMap: <data><map><assignment name='A'~><validity>\n<simulator name='Carrow'/>\n</validity></assignment><assignment name='A'~><validity>\n<simulator name='Carrow'/>\n</validity></assignment></map></data> =>
    x.xml:7:43: warning: K, assignment A: unreachable key 'A'; an earlier assignment has the same key [unreachable-word] | remove it
ChoiceElsewhere: <validSimulators><simulator name='Wend'/></validSimulators><data><list><choice~><values><value string='A'><validity>\n<simulator name='Carrow'/>\n</validity></value></values></choice></list></data> =>
    x.xml:5:55: warning: K, choice A: the choice is not valid anywhere: <validity> lists no simulator or mode of the keyword [valid-nowhere] | list simulators or modes of the keyword, or remove <validity>
ItemElsewhere: <validSimulators><simulator name='Carrow'/></validSimulators><data><record><item name='I'><real~></real><validity>\n<simulator name='Wend'/>\n</validity></item><item name='J'><real~></real><validity>\n<option value='BlackOil'/>\n</validity></item></record></data> =>
    x.xml:5:36: warning: K, item I: the item is not valid anywhere: <validity> lists no simulator or mode of the keyword [valid-nowhere] | list simulators or modes of the keyword, or remove <validity>
AttributeOfOthers: <data><record><item name='I' explicit='true'><real~></real></item></record></data> =>
    x.xml:4:30: warning: K, item I: unknown attribute 'explicit' of <item> is ignored [ignored-attribute] | it is an attribute of <endKeyword>
AttributeOfNone: <data><record><item name='I' zzzzzzzz='true'><real~></real></item></record></data> =>
    x.xml:4:30: warning: K, item I: unknown attribute 'zzzzzzzz' of <item> is ignored [ignored-attribute] | expected name, optional, identifier or columnConstraint
AttributeWhereThereAreNone: <isHidden zzzzzzzz='1'/> => x.xml:4:11: warning: K: unknown attribute 'zzzzzzzz' of <isHidden> is ignored [ignored-attribute] | remove it
ElementOfOthers: <values/> => x.xml:4:1: warning: K: unknown element <values> in <keyword> is ignored [ignored-element] | it is an element of <choice>
ElementOfNone: <zzzzzzzz/> =>
    x.xml:4:1: warning: K: unknown element <zzzzzzzz> in <keyword> is ignored [ignored-element] | expected description, documentation, isHidden, isGeneric, aliases, precedents, scope, summaryMnemonic, cell, data, validSimulators, validOptions or validSections
ElementWhereThereAreNone: <isHidden><zzzzzzzz/></isHidden> => x.xml:4:11: warning: K: unknown element <zzzzzzzz> in <isHidden> is ignored [ignored-element] | remove it
UnknownCategoryName: <summaryMnemonic><category name='entity' val='Well'/><category name='zzzz' val='Well'/></summaryMnemonic> =>
    x.xml:4:70: error: K: unknown category 'zzzz'; the load fails [unknown-category] | expected entity, flow, function, option or phase
UnknownCategoryValue: <summaryMnemonic><category name='entity' val='Zzzzzzzz'/></summaryMnemonic> =>
    x.xml:4:47: error: K: unknown value 'Zzzzzzzz' of category 'entity'; the load fails [unknown-category] | expected Aquifer, Aquifer Gradient, Block, Block Gradient, Completion, Conductive Fault, Field, General, Group, Group Gradient, LGR Block, LGR Block Gradient, LGR Completion, LGR Well, LGR Well Gradient, Region, Region Flow, Segment, Well or Well Gradient
SimulatorFarFromAll: <validSimulators><simulator name='Zzzzzzzz'/></validSimulators> =>
    x.xml:4:35: warning: K: unknown simulator 'Zzzzzzzz' is read as Carrow [unknown-simulator] | expected Carrow, Dunmere, Sedge, Hallow, Marlpit, Ostrey, Wend, Tolmen, Wend_GE or Wend_CLASSIC
EmptyName: <data><record><item name='I' ><real~><quantity name=''/></real></item></record></data> =>
    x.xml:5:39: warning: K, item I: attribute 'name' of <quantity> is empty [missing-attribute] | write name="..."
MissingSimulator: <validSimulators><simulator/></validSimulators> =>
    x.xml:4:18: warning: K: unknown simulator '' is read as Carrow [unknown-simulator] | expected Carrow, Dunmere, Sedge, Hallow, Marlpit, Ostrey, Wend, Tolmen, Wend_GE or Wend_CLASSIC
EmptyKeywordAliases: <aliases/> => x.xml:4:1: warning: K: <aliases> is empty; expected <alias> [empty-element]
EmptyValidSimulators: <validSimulators/> => x.xml:4:1: warning: K: <validSimulators> is empty; the keyword is valid for all simulators [empty-element]
EmptyValidOptions: <validOptions/> => x.xml:4:1: warning: K: <validOptions> is empty; the keyword is valid in all modes [empty-element]
EmptyValidSections: <validSections/> => x.xml:4:1: warning: K: <validSections> is empty; the keyword is valid in all sections [empty-element]
EmptyPrecedents: <precedents/> => x.xml:4:1: warning: K: <precedents> is empty; expected <precedent> [empty-element]
EmptyScope: <scope/> => x.xml:4:1: warning: K: <scope> is empty; nothing ends the scope [empty-element]
EmptySummaryMnemonic: <summaryMnemonic/> => x.xml:4:1: warning: K: <summaryMnemonic> is empty; the summary vector has no category [empty-element]
EmptyData: <data/> => x.xml:4:1: warning: K: <data> is empty; the keyword has no data [empty-element]
EmptyList: <data><list/></data> => x.xml:4:7: warning: K: <list> has no element type [empty-element]
EmptyReadTermination: <data><list><real~></real><customReadTermination/></list></data> => x.xml:5:36: warning: K: <customReadTermination> is empty; no word ends the list [empty-element]
EmptyMap: <data><map/></data> => x.xml:4:7: warning: K: <map> has no assignment [empty-element]
EmptyChoice: <data><record><item name='I' ><choice~></choice></item></record></data> => x.xml:4:31: warning: K, item I: <choice> has no <values>; nothing can be chosen [empty-element]
EmptyValues: <data><record><item name='I' ><choice~><values></values></choice></item></record></data> => x.xml:5:29: warning: K, item I: <values> is empty; nothing can be chosen [empty-element]
EmptyAssignmentAliases: <data><map><assignment name='A'~><aliases/><validity>\n<simulator name='Carrow'/>\n</validity></assignment></map></data> =>
    x.xml:5:29: warning: K, assignment A: <aliases> is empty; expected <alias> [empty-element]
EmptyValidity: <data><record><item name='I' ><real~></real><validity/></item></record></data> =>
    x.xml:5:36: warning: K, item I: the item is not valid anywhere: <validity> lists no simulator or mode of the keyword [valid-nowhere] | list simulators or modes of the keyword, or remove <validity>
EmptyUnsupportedBy: <data><record><item name='I' ><real~></real><unsupportedBy/></item></record></data> =>
    x.xml:5:36: warning: K, item I: <unsupportedBy> is empty; all simulators support it [empty-element]
SecondTypeOfData: <data><list><real~></real></list><record/></data> => x.xml:5:43: warning: K: <record> is ignored; <list> on line 4 is used [second-type] | keep one of them
SecondTypeUnknownToData: <data><list><real~></real></list><real/></data> => x.xml:5:43: warning: K: <real> is ignored; the first element of <data> is used [second-type] | remove it
SecondTypeOfAList: <data><list><real~></real><string~></string></list></data> => x.xml:5:36: warning: K: <string> replaces <real> on line 4 [second-type] | keep one of them
FlagTwice: <isHidden/>\n<isHidden/> => x.xml:5:1: warning: K: duplicate <isHidden> has no effect; the one on line 4 is enough [repeated-element] | keep one of them
DefaultTwice: <data><record><item name='I' ><real~><default type='calculated'/>\n<default type='calculated'/></real></item></record></data> =>
    x.xml:6:1: warning: K, item I: duplicate <default> is merged into the one on line 5 [repeated-element] | keep one of them
CategoryTwice: <summaryMnemonic><category name='entity' val='Well'/><category name='entity' val='Field'/></summaryMnemonic> =>
    x.xml:4:70: warning: K: duplicate <category> 'entity'; the last one is used [listed-twice] | remove one of them
ItemTwice: <data><record><item name='I'><real~></real></item><item name='I'><real~></real></item></record></data> =>
    x.xml:5:55: warning: K: duplicate <item> 'I'; only the position distinguishes them [listed-twice] | remove one of them
TextInData: <data>text<list><real~></real></list></data> => x.xml:4:1: warning: K: the text in <data> is ignored [stray-text] | remove the text, or the element
AliasValidNowhere: <aliases><alias name='L'><validSimulators><simulator name='Wend' supportLevel='ignored'/></validSimulators></alias></aliases> =>
    x.xml:4:10: warning: K, alias L: <alias> is not valid for any simulator [valid-nowhere]
TwoModelessSimulators: <validSimulators><simulator name='Carrow'/><simulator name='Sedge'/></validSimulators><validOptions><option value='Thermal'/></validOptions> =>
    x.xml:4:87: warning: K: no listed mode is a mode of Carrow and Sedge; the keyword is valid in all modes there [modeless-simulator] | list in <validSimulators> only simulators that have one of the modes
SimulatorOfASection: <validSimulators><simulator name='Wend'/></validSimulators><validSections><section name='GRID'><simulator name='Wend'/><simulator name='Carrow'/></section></validSections> =>
    x.xml:4:120: warning: K: simulator 'Carrow' has no effect because the keyword is not valid for it [entry-without-effect] | add it to <validSimulators>, or remove it here
KeywordWithoutDescription: <keyword name='K'/> => x.xml:3:1: warning: K: the keyword has no description [no-description] | add a <description>
KeywordWithoutName: <keyword/> =>
    x.xml:3:1: warning: keyword without a name: <keyword> has no attribute 'name' [missing-attribute] | write name="..."
    x.xml:3:1: warning: keyword without a name: the keyword has no description [no-description] | add a <description>
TwoExplicitEnds: <keyword name='A'~></keyword><keyword name='B'~></keyword><keyword name='K'~><scope><endKeyword name='A' explicit='true'/><endKeyword name='B' explicit='true'/></scope></keyword> =>
    x.xml:10:46: warning: K: explicit end keyword 'B' replaces 'A'; expected one explicit end keyword [repeated-element] | remove attribute 'explicit' from one of them
BlankInName: <keyword name='A B'~></keyword> => x.xml:3:16: warning: A B: the name contains a blank; a keyword in a deck has none [name-text] | remove the blank
IdTwice: <keyword name='A' id='1'~></keyword><keyword name='B' id='1'~></keyword> => x.xml:6:23: warning: B: id '1' is already used by keyword 'A' at x.xml:3 [key-twice] | use a different id
UnknownEndKeyword: <scope><endKeyword name='NOSUCH'/></scope> => x.xml:4:26: warning: K: unknown end keyword 'NOSUCH' [unknown-keyword] | correct the name, or define the keyword
OwnPrecedent: <precedents><precedent name='K'/></precedents> => x.xml:4:30: warning: K: the keyword is its own precedent [precedent-cycle] | remove the precedent
ReservedNumber: <data><record><item name='I' ><integer~><default type='specified' val='-2147483648'/></integer></item></record></data> =>
    x.xml:5:60: warning: K, item I: number '-2147483648' of <default> is read as no value [number-text] | write another number
ReservedLimit: <data><record><item name='I' ><real~><min val='2.2250738585072014e-308'/></real></item></record></data> =>
    x.xml:5:39: warning: K, item I: number '2.2250738585072014e-308' of <min> is read as no value [number-text] | write another number
NoInteger: <data><record><item name='I' ><integer~><default type='specified' val='1.5'/></integer></item></record></data> =>
    x.xml:5:60: warning: K, item I: invalid number '1.5' of <default> is read as 1 [number-text] | expected an integer
NoReal: <data><record><item name='I' ><real~><max val='1,5'/></real></item></record></data> =>
    x.xml:5:39: warning: K, item I: invalid number '1,5' of <max> is read as 1 [number-text] | expected a number
NoLengthLimit: <data><record><item name='I' ><string~><lengthLimit>none</lengthLimit></string></item></record></data> =>
    x.xml:5:29: warning: K, item I: invalid length limit 'none' is read as 0 [number-text] | expected an integer greater than 0
SpecifiedWithoutValue: <data><record><item name='I' ><real~><default type='specified'/></real></item></record></data> =>
    x.xml:5:29: error: K, item I: specified default without attribute 'val'; the load fails [default-value] | add attribute 'val'
UnknownDefaultType: <data><record><item name='I' ><real~><default type='calculate'/></real></item></record></data> =>
    x.xml:5:44: error: K, item I: unknown type 'calculate' of a default; the load fails [default-type] | did you mean 'calculated'?
DefaultTypeFarFromAll: <data><record><item name='I' ><real~><default type='zzzzzzzz'/></real></item></record></data> =>
    x.xml:5:44: error: K, item I: unknown type 'zzzzzzzz' of a default; the load fails [default-type] | expected specified, calculated or no default
LongDefault: <data><record><item name='I' ><string~><default type='specified' val='NINECHARS'/></string></item></record></data> =>
    x.xml:5:60: warning: K, item I: default 'NINECHARS' is longer than its length limit 8 [default-outside] | increase <lengthLimit>
DefaultBelowMin: <data><record><item name='I' ><real~><min val='1'/><default type='specified' val='0.5'/></real></item></record></data> =>
    x.xml:5:74: warning: K, item I: default 0.5 is less than min 1 [default-outside]
LostOverrideOfCalculated: <data><record><item name='I' ><choice~><default type='calculated'><override name='Wend' type='no default'/></default><values><value string='OIL'/><value string='GAS'/></values></choice></item></record></data> =>
    x.xml:5:56: warning: K, item I: override for 'Wend' has no effect; the calculated default of the choice is used [lost-override] | write a specified default for the simulator, or remove the override
OverrideTwice: <data><record><item name='I' ><real~><default type='calculated'><override name='Wend' type='no default'/><override name='Wend' type='no default'/></default></real></item></record></data> =>
    x.xml:5:113: warning: K, item I: duplicate <override> 'Wend'; the last one is used [listed-twice] | remove one of them
)")),
    CaseName<Row>);

} // namespace
