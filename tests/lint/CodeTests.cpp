#include "quor/lint/Codes.h"
#include "tests/lint/Snippets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core;
using Lint::Code;
using Veld::Quor::Core::Decks::Severity;

namespace {

/// A document with one mistake, the finding that lint reports for it, and a similar document without
/// mistakes.
struct Row {
    Code code;
    std::string finding;
    std::string wrong;
    std::string clean;
};

const std::vector<Row>& Rows()
{
    const std::string real = Described("real");
    const std::string string = Described("string");
    const std::string list = "<list>" + real + "</list>";
    static const std::vector<Row> rows = {
        {Code::NotWellFormed,
            "x.xml:5:3: error: cannot read the document: expected end of tag 'isHidden' [not-well-formed]",
            "<keyword name='K'>\n<isHidden>\n</keyword>", K("<isHidden/>")},
        {Code::NoKeyword, "x.xml:2:1: warning: no <keyword> in <keywords> [no-keyword]", "<!-- none -->",
            K("")},
        {Code::NestedKeyword,
            "x.xml:4:1: warning: L: keyword inside another keyword is read as a separate keyword "
            "[nested-keyword] | move it after the other keyword",
            K("" + Keyword("name='L'", "")), K("") + Keyword("name='L'", "")},
        {Code::UnknownElement,
            "x.xml:5:43: error: K: unknown element <itm> in <record>; the load fails [unknown-element] | did "
            "you mean 'item'?",
            Data("<record><item name='I'>" + real + "</item><itm/></record>"), Scalar("real", "")},
        {Code::IgnoredElement,
            "x.xml:4:1: warning: K: unknown element <documentatoin> in <keyword> is ignored "
            "[ignored-element] | did you mean 'documentation'?",
            K("<documentatoin>D</documentatoin>"), K("<documentation>D</documentation>")},
        {Code::IgnoredAttribute,
            "x.xml:4:30: warning: K, item I: unknown attribute 'optoinal' of <item> is ignored "
            "[ignored-attribute] | did you mean 'optional'?",
            Item(real, "optoinal='true'"), Item(real, "optional='true'")},
        {Code::PassedOver,
            "x.xml:7:11: warning: K, item I: <simulator> is ignored because no white space is directly "
            "before it [passed-over] | put it, and each comment, on a separate line",
            Item(real
                + "<validity>\n<option value='Thermal'/>\n<!-- x --><simulator name='Carrow'/>\n</validity>"),
            Item(real + "<validity>\n<simulator name='Carrow'/>\n<option value='Thermal'/>\n</validity>")},
        {Code::StrayText,
            "x.xml:4:1: warning: K: the text in <isHidden> is ignored; the element itself sets the flag "
            "[stray-text] | remove the text, or the element",
            K("<isHidden>false</isHidden>"), K("<isHidden> </isHidden>")},
        {Code::RepeatedElement,
            "x.xml:5:43: warning: K, item I: <max> replaces <max> on line 5 [repeated-element] | keep one of "
            "them",
            Scalar("real", "<max val='1'/><max val='2'/>"), Scalar("real", "<min val='1'/><max val='2'/>")},
        {Code::SecondType,
            "x.xml:5:36: warning: K, item I: <string> is ignored; <real> on line 4 is used [second-type] | "
            "keep one of them",
            Item(real + "<string/>"), Item(real)},
        {Code::MissingType,
            "x.xml:4:15: error: K, item I: the item has no type; the load fails [missing-type] | add <real>, "
            "<integer>, <string>, <choice>, <boolean>, <line>, <list> or <record>",
            Data("<record><item name='I'><description>d</description></item></record>"), Item(real)},
        {Code::EmptyElement, "x.xml:4:7: warning: K: <record> has no item [empty-element]",
            Data("<record><description>d</description></record>"), Scalar("real", "")},
        {Code::MissingAttribute,
            "x.xml:5:29: warning: K, item I: <quantity> has no attribute 'name' [missing-attribute] | write "
            "name=\"...\"",
            Scalar("real", "<quantity/>"), Scalar("real", "<quantity name='length'/>")},
        {Code::ListedTwice,
            "x.xml:4:53: warning: K: duplicate <section> 'GRID' counts once [listed-twice] | remove one of "
            "them",
            K("<validSections><section name='GRID'/><section name='GRID'/></validSections>"),
            K("<validSections><section name='GRID'/><section name='EDIT'/></validSections>")},
        {Code::FlagText,
            "x.xml:4:40: warning: K, item I: unknown flag 'yes' is read as false [flag-text] | expected true "
            "or false",
            Item(real, "optional='yes'"), Item(real, "optional='false'")},
        {Code::UnknownSimulator,
            "x.xml:4:35: warning: K: unknown simulator 'Dunmer' is read as Carrow [unknown-simulator] | did "
            "you mean 'Dunmere'?",
            K(Simulators("name='Dunmer'")), K(Simulators("name='Dunmere'"))},
        {Code::UnknownMode,
            "x.xml:4:30: warning: K: unknown mode 'Blackoil' is read as BlackOil [unknown-mode] | did you "
            "mean 'BlackOil'?",
            K("<validOptions><option value='Blackoil'/></validOptions>"),
            K("<validOptions><option value='BlackOil'/></validOptions>")},
        {Code::UnknownSection,
            "x.xml:4:31: warning: K: unknown section 'Grid' is read as RUNSPEC [unknown-section] | did you "
            "mean 'GRID'?",
            K(Section("Grid")), K(Section("GRID"))},
        {Code::UnknownOverride,
            "x.xml:5:72: error: K, item I: unknown simulator 'X' of an override; the load fails "
            "[unknown-override] | expected Carrow, Dunmere, Sedge, Hallow, Marlpit, Ostrey, Wend, Tolmen, "
            "Wend_GE or Wend_CLASSIC",
            Scalar("real", "<default type='calculated'><override name='X' type='calculated'/></default>"),
            Scalar("real", "<default type='calculated'><override name='Wend' type='calculated'/></default>")},
        {Code::UnknownTermination,
            "x.xml:4:26: error: K: unknown termination 'slash'; the load fails [unknown-termination] | did "
            "you mean 'SLASH'?",
            Data("<list termination='slash'>" + real + "</list>"), Data(list)},
        {Code::UnknownConstraint,
            "x.xml:4:48: error: K, item I: unknown column constraint 'Increasing'; the load fails "
            "[unknown-constraint] | did you mean 'increasing'?",
            Item(real, "columnConstraint='Increasing'"), Item(real, "columnConstraint='increasing'")},
        {Code::UnknownCategory,
            "x.xml:4:47: error: K: unknown value 'well' of category 'entity'; the load fails "
            "[unknown-category] | did you mean 'Well'?",
            K(Category("entity", "well")), K(Category("entity", "Well"))},
        {Code::SupportLevel,
            "x.xml:4:55: warning: K: unknown support level 'Ignored'; the simulator counts as supported "
            "[support-level] | did you mean 'ignored'?",
            K(Simulators("name='Wend' supportLevel='Ignored'")),
            K(Simulators("name='Wend' supportLevel='partly'"))},
        {Code::NoEntity,
            "x.xml:4:1: warning: K: the summary vector has no category 'entity' [no-entity] | add <category "
            "name=\"entity\" val=\"...\"/>",
            K("" + Category("phase", "Oil")), K(Category("entity", "Field"))},
        {Code::LateValidity,
            "x.xml:5:50: warning: K: <validSections> after <data> applies to aliases only [late-validity] | "
            "move it before <data>",
            K("<data>" + list + "</data>" + Section("GRID")),
            K(Section("GRID") + "<data>" + list + "</data>")},
        {Code::ModelessSimulator,
            "x.xml:4:62: warning: K: no listed mode is a mode of Carrow; the keyword is valid in all modes "
            "there [modeless-simulator] | list in <validSimulators> only simulators that have one of the "
            "modes",
            K(Simulators("name='Carrow'") + "<validOptions><option value='Thermal'/></validOptions>"),
            K(Simulators("name='Dunmere'") + "<validOptions><option value='Thermal'/></validOptions>")},
        {Code::ValidNowhere,
            "x.xml:3:1: warning: K: <keyword> is not valid for any simulator [valid-nowhere]",
            "" + K(Simulators("name='Wend' supportLevel='ignored'")), K(Simulators("name='Wend'"))},
        {Code::EntryWithoutEffect,
            "x.xml:4:42: warning: K: attribute 'classicOnly' has no effect on simulator 'Sedge'; only Wend "
            "has variants [entry-without-effect] | remove the attribute",
            K(Simulators("name='Sedge' classicOnly='true'")),
            K(Simulators("name='Wend' classicOnly='true'"))},
        {Code::DefaultType,
            "x.xml:5:44: error: K, item I: type 'no default' is not allowed for a line; the load fails "
            "[default-type] | remove <default>",
            Scalar("line", "<default type='no default'/>"), Scalar("line", "<default type='calculated'/>")},
        {Code::ChoiceDefaultType,
            "x.xml:5:44: warning: K, item I: unknown type 'none' of a default is read as 'no default' "
            "[choice-default-type] | expected specified, calculated or no default",
            Choice("<default type='none'/>"), Choice("<default type='no default'/>")},
        {Code::DefaultValue,
            "x.xml:5:56: error: K, item I: calculated default with attribute 'val'; the load fails "
            "[default-value] | remove attribute 'val'",
            Scalar("real", "<default type='calculated' val='1'/>"),
            Scalar("real", "<default type='calculated'/>")},
        {Code::IgnoredValue,
            "x.xml:5:56: warning: K, item I: attribute 'val' is ignored because the type is 'no default' "
            "[ignored-value] | remove attribute 'val'",
            Scalar("real", "<default type='no default' val='1'/>"),
            Scalar("real", "<default type='no default'/>")},
        {Code::NumberText,
            "x.xml:6:11: warning: K, item I: invalid number '12abc' of <max> is ignored [number-text] | "
            "expected an integer",
            Scalar("integer", "\n<max val='12abc'/>"), Scalar("integer", "\n<max val='+12'/>")},
        {Code::CrossedLimits, "x.xml:5:53: warning: K, item I: max 1 is less than min 2 [crossed-limits]",
            Scalar("real", "<min val='2'/><max val='1e0'/>"), Scalar("real", "<min val='2'/><max val='2'/>")},
        {Code::DefaultOutside,
            "x.xml:5:74: warning: K, item I: default 1.5 is greater than max 1 [default-outside]",
            Scalar("real", "<max val='1'/><default type='specified' val='1.5'/>"),
            Scalar("real", "<max val='1'/><default type='specified' val='1'/>")},
        {Code::BooleanText,
            "x.xml:5:60: warning: K, item I: default 'no' is read as true [boolean-text] | expected YES or "
            "NO",
            Scalar("boolean", "<default type='specified' val='no'/>"),
            Scalar("boolean", "<default type='specified' val='NO'/>")},
        {Code::DefaultNoChoice,
            "x.xml:5:60: warning: K, item I: default 'OILS' matches no choice and gives no value "
            "[default-no-choice] | did you mean 'OIL'?",
            Choice("<default type='specified' val='OILS'/>"),
            Choice("<default type='specified' val='oil'/>")},
        {Code::DefaultNotInFull,
            "x.xml:5:60: warning: K, item I: default 'GA' is an abbreviation of a choice "
            "[default-not-in-full] | write the choice in full",
            Choice("<default type='specified' val='GA'/>"), Choice("<default type='specified' val='GAS'/>")},
        {Code::LostOverride,
            "x.xml:5:65: warning: K, item I: override for 'Wend' has no effect; the specified default of the "
            "choice is used [lost-override] | write a specified default for the simulator, or remove the "
            "override",
            Choice("<default type='specified' val='GAS'><override name='Wend' type='calculated'/></default>"),
            Choice(
                "<default type='specified' val='GAS'><override name='Wend' type='no default'/></default>")},
        {Code::OverrideElsewhere,
            "x.xml:5:72: warning: K: override for 'Wend', for which the keyword is not valid "
            "[override-elsewhere] | remove the override, or make the keyword valid for the simulator",
            K(Simulators("name='Sedge'") + "<data><list>"
                + Described(
                    "real", "<default type='calculated'><override name='Wend' type='no default'/></default>")
                + "</list></data>"),
            K(Simulators("name='Wend'") + "<data><list>"
                + Described("real",
                    "<default type='calculated'><override name='Wend_GE' type='no default'/></default>")
                + "</list></data>")},
        {Code::LowerCase,
            "x.xml:6:14: warning: K, item I: 'oleum' never matches because words of a deck are converted to "
            "upper case [lower-case] | write it in upper case",
            Choice("", "<value string='OIL'><aliases>\n<alias name='oleum'/>\n</aliases></value>"),
            Choice("", "<value string='oil'><aliases>\n<alias name='OLEUM'/>\n</aliases></value>")},
        {Code::UnreachableWord,
            "x.xml:5:73: warning: K, item I: unreachable choice or alias 'OIL'; an earlier one has the same "
            "text [unreachable-word] | remove it",
            Choice("", "<value string='OIL'/><value string='oil'/>"),
            Choice("", "<value string='OIL'/><value string='OILS'/>")},
        {Code::NoKey,
            "x.xml:4:12: warning: K, assignment without a name: the assignment has neither a name nor an "
            "alias [no-key] | add attribute 'name'",
            Assignment("", ""), Assignment("name='STEPS'")},
        {Code::NameLength,
            "x.xml:3:16: warning: NINECHARS: name 'NINECHARS' has 9 characters (expected at most 8) "
            "[name-length]",
            Keyword("name='NINECHARS'", ""), Keyword("name='EIGHTCHR'", "")},
        {Code::NameText,
            "x.xml:3:16: warning: A*B: text after '*' in name 'A*B' is ignored [name-text] | write 'A*'",
            Keyword("name='A*B'", ""), Keyword("name='A*'", "")},
        {Code::DefinedTwice,
            "x.xml:6:16: warning: K: 'K' is already defined for one of its sections by keyword 'K' at "
            "x.xml:3 [defined-twice] | use different sections, or remove one of them",
            Keyword("name='K' id='1'", Section("GRID")) + Keyword("name='K' id='2'", Section("GRID")),
            Keyword("name='K' id='1'", Section("GRID")) + Keyword("name='K' id='2'", Section("EDIT"))},
        {Code::KeyTwice,
            "x.xml:6:16: warning: K: name 'K' is already used by keyword 'K' at x.xml:3; expected an id "
            "[key-twice] | add attribute 'id'",
            Keyword("name='K'", Section("GRID")) + Keyword("name='K'", Section("EDIT")),
            Keyword("name='K'", Section("GRID")) + Keyword("name='K' id='2'", Section("EDIT"))},
        {Code::WildcardOverlap,
            "x.xml:6:16: warning: AB*: wildcard 'AB*' hides part of wildcard 'A*' at x.xml:3 "
            "[wildcard-overlap] | use different sections or different prefixes",
            Keyword("name='A*'", "") + Keyword("name='AB*'", ""),
            Keyword("name='A*'", "") + Keyword("name='AB'", "")},
        {Code::UnknownKeyword,
            "x.xml:4:30: warning: K: unknown precedent 'WELSPEX' [unknown-keyword] | correct the name, or "
            "define the keyword",
            K(Precedent("WELSPEX")), K(Precedent("WELSPECS"))},
        {Code::PrecedentCycle,
            "x.xml:7:30: warning: B: circular precedents: the keyword is a precedent of 'A' "
            "[precedent-cycle] | remove the precedent",
            Keyword("name='A'", Precedent("B")) + Keyword("name='B'", Precedent("A")),
            Keyword("name='A'", Precedent("B")) + Keyword("name='B'", "")},
        {Code::NoDescription,
            "x.xml:4:31: warning: K, item I: <real> has no description [no-description] | add a "
            "<description> to the type element",
            Item("<real/>"), Item(real)},
        {Code::DefaultableContainer,
            "x.xml:4:13: error: K: attribute 'itemsDefaultable' on a list that has no scalar elements; the "
            "load fails [defaultable-container] | remove the attribute",
            Data("<list itemsDefaultable='true'>" + list + "</list>"),
            Data("<list itemsDefaultable='true'>" + real + "</list>")},
        {Code::TerminationOverridden,
            "x.xml:4:26: warning: K: termination 'EOL' has no effect; with <customReadTermination> it is "
            "CUSTOMIZED [termination-overridden] | write CUSTOMIZED, or remove <customReadTermination>",
            Data("<list termination='EOL'>" + real
                + "<customReadTermination><stringTermination>E</stringTermination></customReadTermination></"
                  "list>"),
            Data("<list>" + real
                + "<customReadTermination><stringTermination>E</stringTermination></customReadTermination></"
                  "list>")},
        {Code::NoTerminationWords,
            "x.xml:4:26: warning: K: termination CUSTOMIZED without <customReadTermination>; no word ends "
            "the list [no-termination-words] | add <customReadTermination>",
            Data("<list termination='CUSTOMIZED'>" + real + "</list>"),
            Data("<list termination='EOL'>" + real + "</list>")},
        {Code::SizeConflict,
            "x.xml:4:26: warning: K: the list has neither a size nor a termination [size-conflict] | add "
            "attribute 'size', or a termination other than NONE",
            Data("<list termination='NONE'>" + real + "</list>"),
            Data("<list size='NX' termination='NONE'>" + real + "</list>")},
        {Code::ConstraintOnText,
            "x.xml:4:30: warning: K, item I: column constraint on <string>; expected <real> or <integer> "
            "[constraint-on-text] | remove the attribute",
            Item(string, "columnConstraint='increasing'"), Item(real, "columnConstraint='increasing'")},
        {Code::CellWithoutList,
            "x.xml:4:1: warning: K: <cell> has no effect because <data> is not a list of scalars "
            "[cell-without-list] | remove <cell>, or make <data> a list of scalars",
            K("<cell/><data><record><item name='I'>" + real + "</item></record></data>"),
            K("<cell/><data>" + list + "</data>")},
        {Code::BlankFormat,
            "x.xml:5:29: warning: K, item I: blank format is ignored [blank-format] | remove <format>",
            Scalar("real", "<format> </format>"), Scalar("real", "<format>%g</format>")},
        {Code::UnseenIdentifier,
            "x.xml:4:30: warning: K, item I: attribute 'identifier' has no effect on <list>; expected a "
            "scalar [unseen-identifier] | mark the identifying items inside it",
            Item(list, "identifier='true'"), Item(real, "identifier='true'")},
    };
    return rows;
}

class Mistake : public testing::TestWithParam<Row> { };

TEST_P(Mistake, IsTheOnlyFinding)
{
    EXPECT_EQ(FindingsOf(GetParam().wrong), GetParam().finding);
    EXPECT_EQ(FindingsOf(GetParam().clean), "");
}

TEST_P(Mistake, IsAnErrorExactlyIfTheLoadFails)
{
    testing::internal::CaptureStdout(); // the loader prints failures of a file
    testing::internal::CaptureStderr();
    const std::string failure = LoadFailureOf(GetParam().wrong);
    const std::string cleanFailure = LoadFailureOf(GetParam().clean);
    testing::internal::GetCapturedStdout();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(failure != "loaded", InfoOf(GetParam().code).severity == Severity::Error) << failure;
    EXPECT_EQ(cleanFailure, "loaded");
}

std::string NameOfCode(const testing::TestParamInfo<Row>& row)
{
    std::string name = InfoOf(row.param.code).name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Codes, Mistake, testing::ValuesIn(Rows()), NameOfCode);

TEST(Codes, HaveARowEach)
{
    std::set<Code> seen;
    for (const Row& row : Rows())
        seen.insert(row.code);
    ASSERT_EQ(Lint::Codes().size(), static_cast<std::size_t>(Code::Count));
    for (const Lint::CodeInfo& info : Lint::Codes())
        EXPECT_TRUE(seen.contains(info.code)) << info.name;
}

} // namespace
