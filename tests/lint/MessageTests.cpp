#include "tests/lint/Snippets.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Veld::Quor::Tests;

namespace {

struct Case {
    const char* name;
    std::string wrong;
    std::string findings;
};

std::vector<Case> Cases()
{
    const std::string real = Described("real");
    const std::string assignment =
        Described("assignment", "<validity>\n<simulator name='Carrow'/>\n</validity>", "name='A'");
    return {Case{"AliasAsDefault",
                Choice("<default type='specified' val='OLEUM'/>",
                    "<value string='OIL'><aliases>\n<alias name='OLEUM'/>\n</aliases></value>"),
                "x.xml:5:60: warning: K, item I: default 'OLEUM' is an alias of a choice "
                "[default-not-in-full] | write the choice in full"},
        Case{"BeginningOfAnAlias",
            Choice("<default type='specified' val='OLE'/>",
                "<value string='OIL'><aliases>\n<alias name='OLEUM'/>\n</aliases></value>"),
            "x.xml:5:60: warning: K, item I: default 'OLE' is an abbreviation of a choice "
            "[default-not-in-full] | write the choice in full"},
        Case{"DefaultFarFromAllChoices", Choice("<default type='specified' val='WATER'/>"),
            "x.xml:5:60: warning: K, item I: default 'WATER' matches no choice and gives no value "
            "[default-no-choice]"},
        Case{"ValueWithoutString", Choice("", "<value/>"),
            "x.xml:5:37: warning: K, item I: <value> without attribute 'string' is read as a blank choice "
            "[missing-attribute] | write string=\"...\""},
        Case{"EmptySize", Data("<list maxSize=''>" + real + "</list>"),
            "x.xml:4:13: warning: K: attribute 'maxSize' is empty [missing-attribute] | remove the "
            "attribute"},
        Case{"SizeAndMinSize", Data("<list size='2' minSize='1'>" + real + "</list>"),
            "x.xml:4:22: warning: K: attribute 'minSize' has no effect because the list has attribute 'size' "
            "[size-conflict] | remove attribute 'minSize'"},
        Case{"CrossedSizes", Data("<list minSize='3' maxSize='2'>" + real + "</list>"),
            "x.xml:4:34: warning: K: maxSize 2 is less than minSize 3 [crossed-limits]"},
        Case{"AssignmentElsewhere",
            K(Simulators("name='Wend'") + "<data><map>"
                + Described("assignment", "<validity>\n<simulator name='Carrow'/>\n</validity>", "name='A'")
                + "</map></data>"),
            "x.xml:5:29: warning: K, assignment A: the assignment is not valid for any simulator of the "
            "keyword [valid-nowhere] | list its simulators in <validity>"},
        Case{"AssignmentWithoutValidity", Data("<map>" + Described("assignment", "", "name='A'") + "</map>"),
            "x.xml:4:12: warning: K, assignment A: the assignment is not valid for any simulator because it "
            "has no <validity> [valid-nowhere] | list its simulators in <validity>"},
        Case{"AssignmentWithoutDescription",
            Data("<map><assignment name='A'><validity>\n<simulator "
                 "name='Carrow'/>\n</validity></assignment></map>"),
            "x.xml:4:12: warning: K, assignment A: the assignment has no description [no-description] | add "
            "a <description>"},
        Case{"KeyTwiceInAMap", Data("<map>" + assignment + assignment + "</map>"),
            "x.xml:7:43: warning: K, assignment A: unreachable key 'A'; an earlier assignment has the same "
            "key [unreachable-word] | remove it"},
        Case{"ChoiceElsewhere",
            K(Simulators("name='Wend'") + "<data><list>"
                + Described("choice",
                    "<values><value string='A'><validity>\n<simulator "
                    "name='Carrow'/>\n</validity></value></values>")
                + "</list></data>"),
            "x.xml:5:55: warning: K, choice A: the choice is not valid anywhere: <validity> lists no "
            "simulator or mode of the keyword [valid-nowhere] | list simulators or modes of the keyword, or "
            "remove <validity>"},
        Case{"ItemElsewhere",
            K(Simulators("name='Wend'") + "<data><record><item name='I'>" + real
                + "<validity>\n<simulator name='Carrow'/>\n</validity></item></record></data>"),
            "x.xml:5:36: warning: K, item I: the item is not valid anywhere: <validity> lists no simulator "
            "or mode of the keyword [valid-nowhere] | list simulators or modes of the keyword, or remove "
            "<validity>"},
        Case{"AttributeOfOthers", Item(real, "explicit='true'"),
            "x.xml:4:30: warning: K, item I: unknown attribute 'explicit' of <item> is ignored "
            "[ignored-attribute] | it is an attribute of <endKeyword>"},
        Case{"AttributeOfNone", Item(real, "zzzzzzzz='true'"),
            "x.xml:4:30: warning: K, item I: unknown attribute 'zzzzzzzz' of <item> is ignored "
            "[ignored-attribute] | expected name, optional, identifier or columnConstraint"},
        Case{"AttributeWhereThereAreNone", K("<isHidden zzzzzzzz='1'/>"),
            "x.xml:4:11: warning: K: unknown attribute 'zzzzzzzz' of <isHidden> is ignored "
            "[ignored-attribute] | remove it"},
        Case{"ElementOfOthers", K("<values/>"),
            "x.xml:4:1: warning: K: unknown element <values> in <keyword> is ignored [ignored-element] | it "
            "is an element of <choice>"},
        Case{"ElementOfNone", K("<zzzzzzzz/>"),
            "x.xml:4:1: warning: K: unknown element <zzzzzzzz> in <keyword> is ignored [ignored-element] | "
            "expected description, documentation, isHidden, isGeneric, aliases, precedents, scope, "
            "summaryMnemonic, cell, data, validSimulators, validOptions or validSections"},
        Case{"ElementWhereThereAreNone", K("<isHidden><zzzzzzzz/></isHidden>"),
            "x.xml:4:11: warning: K: unknown element <zzzzzzzz> in <isHidden> is ignored [ignored-element] | "
            "remove it"},
        Case{"UnknownCategoryName",
            K("<summaryMnemonic><category name='entity' val='Well'/><category name='zzzz' "
              "val='Well'/></summaryMnemonic>"),
            "x.xml:4:70: error: K: unknown category 'zzzz'; the load fails [unknown-category] | expected "
            "entity, flow, function, option or phase"},
        Case{"UnknownCategoryValue", K(Category("entity", "Zzzzzzzz")),
            "x.xml:4:47: error: K: unknown value 'Zzzzzzzz' of category 'entity'; the load fails "
            "[unknown-category] | expected Aquifer, Aquifer Gradient, Block, Block Gradient, Completion, "
            "Conductive Fault, Field, General, Group, Group Gradient, LGR Block, LGR Block Gradient, LGR "
            "Completion, LGR Well, LGR Well Gradient, Region, Region Flow, Segment, Well or Well Gradient"},
        Case{"SimulatorFarFromAll", K(Simulators("name='Zzzzzzzz'")),
            "x.xml:4:35: warning: K: unknown simulator 'Zzzzzzzz' is read as Carrow [unknown-simulator] | "
            "expected Carrow, Dunmere, Sedge, Hallow, Marlpit, Ostrey, Wend, Tolmen, Wend_GE or "
            "Wend_CLASSIC"},
        Case{"EmptyName", Scalar("real", "<quantity name=''/>"),
            "x.xml:5:39: warning: K, item I: attribute 'name' of <quantity> is empty [missing-attribute] | "
            "write name=\"...\""},
        Case{"MissingSimulator", K("<validSimulators><simulator/></validSimulators>"),
            "x.xml:4:18: warning: K: unknown simulator '' is read as Carrow [unknown-simulator] | expected "
            "Carrow, Dunmere, Sedge, Hallow, Marlpit, Ostrey, Wend, Tolmen, Wend_GE or Wend_CLASSIC"},
        Case{"EmptyKeywordAliases", K("<aliases/>"),
            "x.xml:4:1: warning: K: <aliases> is empty; expected <alias> [empty-element]"},
        Case{"EmptyValidSimulators", K("<validSimulators/>"),
            "x.xml:4:1: warning: K: <validSimulators> is empty; the keyword is valid for all simulators "
            "[empty-element]"},
        Case{"EmptyValidOptions", K("<validOptions/>"),
            "x.xml:4:1: warning: K: <validOptions> is empty; the keyword is valid in all modes "
            "[empty-element]"},
        Case{"EmptyValidSections", K("<validSections/>"),
            "x.xml:4:1: warning: K: <validSections> is empty; the keyword is valid in all sections "
            "[empty-element]"},
        Case{"EmptyPrecedents", K("<precedents/>"),
            "x.xml:4:1: warning: K: <precedents> is empty; expected <precedent> [empty-element]"},
        Case{"EmptyScope", K("<scope/>"),
            "x.xml:4:1: warning: K: <scope> is empty; nothing ends the scope [empty-element]"},
        Case{"EmptySummaryMnemonic", K("<summaryMnemonic/>"),
            "x.xml:4:1: warning: K: <summaryMnemonic> is empty; the summary vector has no category "
            "[empty-element]"},
        Case{"EmptyData", K("<data/>"),
            "x.xml:4:1: warning: K: <data> is empty; the keyword has no data [empty-element]"},
        Case{"EmptyList", Data("<list/>"),
            "x.xml:4:7: warning: K: <list> has no element type [empty-element]"},
        Case{"EmptyReadTermination", Data("<list>" + real + "<customReadTermination/></list>"),
            "x.xml:5:36: warning: K: <customReadTermination> is empty; no word ends the list "
            "[empty-element]"},
        Case{"EmptyMap", Data("<map/>"), "x.xml:4:7: warning: K: <map> has no assignment [empty-element]"},
        Case{"EmptyChoice", Scalar("choice", ""),
            "x.xml:4:31: warning: K, item I: <choice> has no <values>; nothing can be chosen "
            "[empty-element]"},
        Case{"EmptyValues", Choice("", ""),
            "x.xml:5:29: warning: K, item I: <values> is empty; nothing can be chosen [empty-element]"},
        Case{"EmptyAssignmentAliases",
            Data("<map>"
                + Described(
                    "assignment", "<aliases/><validity>\n<simulator name='Carrow'/>\n</validity>", "name='A'")
                + "</map>"),
            "x.xml:5:29: warning: K, assignment A: <aliases> is empty; expected <alias> [empty-element]"},
        Case{"EmptyValidity", Item(real + "<validity/>"),
            "x.xml:5:36: warning: K, item I: the item is not valid anywhere: <validity> lists no simulator "
            "or mode of the keyword [valid-nowhere] | list simulators or modes of the keyword, or remove "
            "<validity>"},
        Case{"EmptyUnsupportedBy", Item(real + "<unsupportedBy/>"),
            "x.xml:5:36: warning: K, item I: <unsupportedBy> is empty; all simulators support it "
            "[empty-element]"},
        Case{"SecondTypeOfData", Data("<list>" + real + "</list><record/>"),
            "x.xml:5:43: warning: K: <record> is ignored; <list> on line 4 is used [second-type] | keep one "
            "of them"},
        Case{"SecondTypeUnknownToData", Data("<list>" + real + "</list><real/>"),
            "x.xml:5:43: warning: K: <real> is ignored; the first element of <data> is used [second-type] | "
            "remove it"},
        Case{"SecondTypeOfAList", Data("<list>" + real + Described("string") + "</list>"),
            "x.xml:5:36: warning: K: <string> replaces <real> on line 4 [second-type] | keep one of them"},
        Case{"FlagTwice", K("<isHidden/>\n<isHidden/>"),
            "x.xml:5:1: warning: K: duplicate <isHidden> has no effect; the one on line 4 is enough "
            "[repeated-element] | keep one of them"},
        Case{"DefaultTwice", Scalar("real", "<default type='calculated'/>\n<default type='calculated'/>"),
            "x.xml:6:1: warning: K, item I: duplicate <default> is merged into the one on line 5 "
            "[repeated-element] | keep one of them"},
        Case{"CategoryTwice",
            K("<summaryMnemonic><category name='entity' val='Well'/><category name='entity' "
              "val='Field'/></summaryMnemonic>"),
            "x.xml:4:70: warning: K: duplicate <category> 'entity'; the last one is used [listed-twice] | "
            "remove one of them"},
        Case{"ItemTwice",
            Data("<record><item name='I'>" + real + "</item><item name='I'>" + real + "</item></record>"),
            "x.xml:5:55: warning: K: duplicate <item> 'I'; only the position distinguishes them "
            "[listed-twice] | remove one of them"},
        Case{"TextInData", K("<data>text<list>" + real + "</list></data>"),
            "x.xml:4:1: warning: K: the text in <data> is ignored [stray-text] | remove the text, or the "
            "element"},
        Case{"AliasValidNowhere",
            K("<aliases><alias name='L'>" + Simulators("name='Wend' supportLevel='ignored'")
                + "</alias></aliases>"),
            "x.xml:4:10: warning: K, alias L: <alias> is not valid for any simulator [valid-nowhere]"},
        Case{"TwoModelessSimulators",
            K("<validSimulators><simulator name='Carrow'/><simulator "
              "name='Sedge'/></validSimulators><validOptions><option value='Thermal'/></validOptions>"),
            "x.xml:4:87: warning: K: no listed mode is a mode of Carrow and Sedge; the keyword is valid in "
            "all modes there [modeless-simulator] | list in <validSimulators> only simulators that have one "
            "of the modes"},
        Case{"SimulatorOfASection",
            K(Simulators("name='Wend'")
                + "<validSections><section name='GRID'><simulator name='Wend'/><simulator "
                  "name='Carrow'/></section></validSections>"),
            "x.xml:4:120: warning: K: simulator 'Carrow' has no effect because the keyword is not valid for "
            "it [entry-without-effect] | add it to <validSimulators>, or remove it here"},
        Case{"KeywordWithoutDescription", "<keyword name='K'/>",
            "x.xml:3:1: warning: K: the keyword has no description [no-description] | add a <description>"},
        Case{"KeywordWithoutName", "<keyword/>",
            "x.xml:3:1: warning: keyword without a name: <keyword> has no attribute 'name' "
            "[missing-attribute] | write name=\"...\"\n"
            "x.xml:3:1: warning: keyword without a name: the keyword has no description [no-description] | "
            "add a <description>"},
        Case{"TwoExplicitEnds",
            Keyword("name='A'", "") + Keyword("name='B'", "")
                + K("<scope><endKeyword name='A' explicit='true'/><endKeyword name='B' "
                    "explicit='true'/></scope>"),
            "x.xml:10:46: warning: K: explicit end keyword 'B' replaces 'A'; expected one explicit end "
            "keyword [repeated-element] | remove attribute 'explicit' from one of them"},
        Case{"NameInLowerCase", Keyword("name='k'", ""),
            "x.xml:3:16: warning: k: name 'k' does not match a name in upper case [lower-case] | write it in "
            "upper case"},
        Case{"BlankInName", Keyword("name='A B'", ""),
            "x.xml:3:16: warning: A B: name 'A B' contains a blank; a keyword in a deck has none [name-text] "
            "| remove the blank"},
        Case{"IdTwice", Keyword("name='A' id='1'", "") + Keyword("name='B' id='1'", ""),
            "x.xml:6:23: warning: B: id '1' is already used by keyword 'A' at x.xml:3 [key-twice] | use a "
            "different id"},
        Case{"UnknownEndKeyword", K("<scope><endKeyword name='NOSUCH'/></scope>"),
            "x.xml:4:26: warning: K: unknown end keyword 'NOSUCH' [unknown-keyword] | correct the name, or "
            "define the keyword"},
        Case{"OwnPrecedent", K(Precedent("K")),
            "x.xml:4:30: warning: K: the keyword is its own precedent [precedent-cycle] | remove the "
            "precedent"},
        Case{"ReservedNumber", Scalar("integer", "<default type='specified' val='-2147483648'/>"),
            "x.xml:5:60: warning: K, item I: number '-2147483648' of <default> is read as no value "
            "[number-text] | write another number"},
        Case{"ReservedLimit", Scalar("real", "<min val='2.2250738585072014e-308'/>"),
            "x.xml:5:39: warning: K, item I: number '2.2250738585072014e-308' of <min> is read as no value "
            "[number-text] | write another number"},
        Case{"NoInteger", Scalar("integer", "<default type='specified' val='1.5'/>"),
            "x.xml:5:60: warning: K, item I: invalid number '1.5' of <default> is read as 1 [number-text] | "
            "expected an integer"},
        Case{"NoReal", Scalar("real", "<max val='1,5'/>"),
            "x.xml:5:39: warning: K, item I: invalid number '1,5' of <max> is read as 1 [number-text] | "
            "expected a number"},
        Case{"NoLengthLimit", Scalar("string", "<lengthLimit>none</lengthLimit>"),
            "x.xml:5:29: warning: K, item I: invalid length limit 'none' is read as 0 [number-text] | "
            "expected an integer greater than 0"},
        Case{"SpecifiedWithoutValue", Scalar("real", "<default type='specified'/>"),
            "x.xml:5:29: error: K, item I: specified default without attribute 'val'; the load fails "
            "[default-value] | add attribute 'val'"},
        Case{"UnknownDefaultType", Scalar("real", "<default type='calculate'/>"),
            "x.xml:5:44: error: K, item I: unknown type 'calculate' of a default; the load fails "
            "[default-type] | did you mean 'calculated'?"},
        Case{"DefaultTypeFarFromAll", Scalar("real", "<default type='zzzzzzzz'/>"),
            "x.xml:5:44: error: K, item I: unknown type 'zzzzzzzz' of a default; the load fails "
            "[default-type] | expected specified, calculated or no default"},
        Case{"LongDefault", Scalar("string", "<default type='specified' val='NINECHARS'/>"),
            "x.xml:5:60: warning: K, item I: default 'NINECHARS' is longer than its length limit 8 "
            "[default-outside] | increase <lengthLimit>"},
        Case{"DefaultBelowMin", Scalar("real", "<min val='1'/><default type='specified' val='0.5'/>"),
            "x.xml:5:74: warning: K, item I: default 0.5 is less than min 1 [default-outside]"},
        Case{"LostOverrideOfCalculated",
            Choice("<default type='calculated'><override name='Wend' type='no default'/></default>"),
            "x.xml:5:56: warning: K, item I: override for 'Wend' has no effect; the calculated default of "
            "the choice is used [lost-override] | write a specified default for the simulator, or remove the "
            "override"},
        Case{"OverrideTwice",
            Scalar("real",
                "<default type='calculated'><override name='Wend' type='no default'/><override name='Wend' "
                "type='no default'/></default>"),
            "x.xml:5:113: warning: K, item I: duplicate <override> 'Wend'; the last one is used "
            "[listed-twice] | remove one of them"}};
}

class Message : public testing::TestWithParam<Case> { };

TEST_P(Message, IsReportedInFull)
{
    EXPECT_EQ(FindingsOf(GetParam().wrong), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(Variants, Message, testing::ValuesIn(Cases()), CaseName<Case>);

} // namespace
