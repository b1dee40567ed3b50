#include "tests/support/Cases.h"
#include "tests/support/Documents.h"
#include "tools/lint/Codes.h"
#include "tools/lint/Lint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Tools;
namespace Decks = Veld::Quor::Core::Decks;
using Decks::Severity;
using Lint::Code;

namespace {

std::string Keyword(const std::string& attributes, const std::string& content)
{
    return "<keyword " + attributes + "><description>d</description>\n" + content + "\n</keyword>\n";
}

std::string K(const std::string& content)
{
    return Keyword("name='K'", content);
}

std::string Data(const std::string& content)
{
    return K("<data>" + content + "</data>");
}

std::string Item(const std::string& content, const std::string& attributes = {})
{
    return Data("<record><item name='I' " + attributes + ">" + content + "</item></record>");
}

std::string Described(
    const std::string& tag, const std::string& content = {}, const std::string& attributes = {})
{
    return "<" + tag + " " + attributes + ">\n<description>d</description>" + content + "</" + tag + ">";
}

std::string ScalarValue(const std::string& tag, const std::string& content)
{
    return Item(Described(tag, content));
}

std::string Choice(
    const std::string& defaultText, const std::string& values = "<value string='OIL'/><value string='GAS'/>")
{
    return ScalarValue("choice", defaultText + "<values>" + values + "</values>");
}

std::string Simulators(const std::string& attributes)
{
    return "<validSimulators><simulator " + attributes + "/></validSimulators>";
}

std::string Section(const std::string& name)
{
    return "<validSections><section name='" + name + "'/></validSections>";
}

std::string Assignment(const std::string& attributes, const std::string& mark = {})
{
    return Data("<map>" + mark
        + Described("assignment", "<validity>\n<simulator name='Carrow'/>\n</validity>", attributes)
        + "</map>");
}

std::string Category(const std::string& name, const std::string& value)
{
    return "<summaryMnemonic><category name='" + name + "' val='" + value + "'/></summaryMnemonic>";
}

std::string Precedent(const std::string& name)
{
    return "<precedents><precedent name='" + name + "'/></precedents>";
}

/// A document that a code is told of, at the place of the mark "^", or of the root if there is none, and one
/// like it that nothing is told of.
struct Row {
    Code code;
    std::string slip;
    std::string clean;
};

const std::vector<Row>& Rows()
{
    const std::string real = Described("real");
    const std::string string = Described("string");
    const std::string list = "<list>" + real + "</list>";
    static const std::vector<Row> rows = {
        {Code::NotWellFormed, "<keyword name='K'>\n<isHidden>\n</^keyword>", K("<isHidden/>")},
        {Code::NoKeyword, "<!-- none -->", K("")},
        {Code::NestedKeyword, K("^" + Keyword("name='L'", "")), K("") + Keyword("name='L'", "")},
        {Code::UnknownElement, Data("<record><item name='I'>" + real + "</item>^<itm/></record>"),
            ScalarValue("real", "")},
        {Code::IgnoredElement, K("^<documentatoin>D</documentatoin>"), K("<documentation>D</documentation>")},
        {Code::IgnoredAttribute, Item(real, "^optoinal='true'"), Item(real, "optional='true'")},
        {Code::PassedOver,
            Item(real
                + "<validity>\n<option value='Thermal'/>\n<!-- x -->^<simulator "
                  "name='Carrow'/>\n</validity>"),
            Item(real + "<validity>\n<simulator name='Carrow'/>\n<option value='Thermal'/>\n</validity>")},
        {Code::StrayText, K("^<isHidden>false</isHidden>"), K("<isHidden> </isHidden>")},
        {Code::RepeatedElement, ScalarValue("real", "<max val='1'/>^<max val='2'/>"),
            ScalarValue("real", "<min val='1'/><max val='2'/>")},
        {Code::SecondType, Item(real + "^<string/>"), Item(real)},
        {Code::MissingType, Data("<record>^<item name='I'><description>d</description></item></record>"),
            Item(real)},
        {Code::EmptyElement, Data("^<record><description>d</description></record>"), ScalarValue("real", "")},
        {Code::MissingAttribute, ScalarValue("real", "^<quantity/>"),
            ScalarValue("real", "<quantity name='length'/>")},
        {Code::ListedTwice, K("<validSections><section name='GRID'/><section name='^GRID'/></validSections>"),
            K("<validSections><section name='GRID'/><section name='EDIT'/></validSections>")},
        {Code::FlagText, Item(real, "optional='^yes'"), Item(real, "optional='false'")},
        {Code::UnknownSimulator, K(Simulators("name='^Dunmer'")), K(Simulators("name='Dunmere'"))},
        {Code::UnknownMode, K("<validOptions><option value='^Blackoil'/></validOptions>"),
            K("<validOptions><option value='BlackOil'/></validOptions>")},
        {Code::UnknownSection, K(Section("^Grid")), K(Section("GRID"))},
        {Code::UnknownOverride,
            ScalarValue(
                "real", "<default type='calculated'><override name='^X' type='calculated'/></default>"),
            ScalarValue(
                "real", "<default type='calculated'><override name='Wend' type='calculated'/></default>")},
        {Code::UnknownTermination, Data("<list termination='^slash'>" + real + "</list>"), Data(list)},
        {Code::UnknownConstraint, Item(real, "columnConstraint='^Increasing'"),
            Item(real, "columnConstraint='increasing'")},
        {Code::UnknownCategory, K(Category("entity", "^well")), K(Category("entity", "Well"))},
        {Code::SupportLevel, K(Simulators("name='Wend' supportLevel='^Ignored'")),
            K(Simulators("name='Wend' supportLevel='partly'"))},
        {Code::NoEntity, K("^" + Category("phase", "Oil")), K(Category("entity", "Field"))},
        {Code::LateValidity, K("<data>" + list + "</data>^" + Section("GRID")),
            K(Section("GRID") + "<data>" + list + "</data>")},
        {Code::ModelessSimulator,
            K(Simulators("name='Carrow'") + "^<validOptions><option value='Thermal'/></validOptions>"),
            K(Simulators("name='Dunmere'") + "<validOptions><option value='Thermal'/></validOptions>")},
        {Code::ValidNowhere, "^" + K(Simulators("name='Wend' supportLevel='ignored'")),
            K(Simulators("name='Wend'"))},
        {Code::EntryWithoutEffect, K(Simulators("name='Sedge' ^classicOnly='true'")),
            K(Simulators("name='Wend' classicOnly='true'"))},
        {Code::DefaultType, ScalarValue("line", "<default type='^no default'/>"),
            ScalarValue("line", "<default type='calculated'/>")},
        {Code::ChoiceDefaultType, Choice("<default type='^none'/>"), Choice("<default type='no default'/>")},
        {Code::DefaultValue, ScalarValue("real", "<default type='calculated' ^val='1'/>"),
            ScalarValue("real", "<default type='calculated'/>")},
        {Code::IgnoredValue, ScalarValue("real", "<default type='no default' ^val='1'/>"),
            ScalarValue("real", "<default type='no default'/>")},
        {Code::NumberText, ScalarValue("integer", "\n<max val='^12abc'/>"),
            ScalarValue("integer", "\n<max val='+12'/>")},
        {Code::CrossedLimits, ScalarValue("real", "<min val='2'/><max val='^1e0'/>"),
            ScalarValue("real", "<min val='2'/><max val='2'/>")},
        {Code::DefaultOutside, ScalarValue("real", "<max val='1'/><default type='specified' val='^1.5'/>"),
            ScalarValue("real", "<max val='1'/><default type='specified' val='1'/>")},
        {Code::BooleanText, ScalarValue("boolean", "<default type='specified' val='^no'/>"),
            ScalarValue("boolean", "<default type='specified' val='NO'/>")},
        {Code::DefaultNoChoice, Choice("<default type='specified' val='^OILS'/>"),
            Choice("<default type='specified' val='oil'/>")},
        {Code::DefaultNotInFull, Choice("<default type='specified' val='^GA'/>"),
            Choice("<default type='specified' val='GAS'/>")},
        {Code::LostOverride,
            Choice(
                "<default type='specified' val='GAS'>^<override name='Wend' type='calculated'/></default>"),
            Choice(
                "<default type='specified' val='GAS'><override name='Wend' type='no default'/></default>")},
        {Code::OverrideElsewhere,
            K(Simulators("name='Sedge'") + "<data><list>"
                + Described(
                    "real", "<default type='calculated'><override name='^Wend' type='no default'/></default>")
                + "</list></data>"),
            K(Simulators("name='Wend'") + "<data><list>"
                + Described("real",
                    "<default type='calculated'><override name='Wend_GE' type='no default'/></default>")
                + "</list></data>")},
        {Code::LowerCase,
            Choice("", "<value string='OIL'><aliases>\n<alias name='^oleum'/>\n</aliases></value>"),
            Choice("", "<value string='oil'><aliases>\n<alias name='OLEUM'/>\n</aliases></value>")},
        {Code::UnreachableWord, Choice("", "<value string='OIL'/><value string='^oil'/>"),
            Choice("", "<value string='OIL'/><value string='OILS'/>")},
        {Code::NoKey, Assignment("", "^"), Assignment("name='STEPS'")},
        {Code::NameLength, Keyword("name='^NINECHARS'", ""), Keyword("name='EIGHTCHR'", "")},
        {Code::NameText, Keyword("name='^A*B'", ""), Keyword("name='A*'", "")},
        {Code::DefinedTwice,
            Keyword("name='K' id='1'", Section("GRID")) + Keyword("name='^K' id='2'", Section("GRID")),
            Keyword("name='K' id='1'", Section("GRID")) + Keyword("name='K' id='2'", Section("EDIT"))},
        {Code::KeyTwice, Keyword("name='K'", Section("GRID")) + Keyword("name='^K'", Section("EDIT")),
            Keyword("name='K'", Section("GRID")) + Keyword("name='K' id='2'", Section("EDIT"))},
        {Code::WildcardOverlap, Keyword("name='A*'", "") + Keyword("name='^AB*'", ""),
            Keyword("name='A*'", "") + Keyword("name='AB'", "")},
        {Code::UnknownKeyword, K(Precedent("^WELSPEX")), K(Precedent("WELSPECS"))},
        {Code::PrecedentCycle, Keyword("name='A'", Precedent("B")) + Keyword("name='B'", Precedent("^A")),
            Keyword("name='A'", Precedent("B")) + Keyword("name='B'", "")},
        {Code::NoDescription, Item("^<real/>"), Item(real)},
        {Code::DefaultableContainer, Data("<list ^itemsDefaultable='true'>" + list + "</list>"),
            Data("<list itemsDefaultable='true'>" + real + "</list>")},
        {Code::TerminationOverridden,
            Data("<list termination='^EOL'>" + real
                + "<customReadTermination><stringTermination>E</stringTermination></customReadTermination></"
                  "list>"),
            Data("<list>" + real
                + "<customReadTermination><stringTermination>E</stringTermination></customReadTermination></"
                  "list>")},
        {Code::NoTerminationWords, Data("<list termination='^CUSTOMIZED'>" + real + "</list>"),
            Data("<list termination='EOL'>" + real + "</list>")},
        {Code::SizeConflict, Data("<list termination='^NONE'>" + real + "</list>"),
            Data("<list size='NX' termination='NONE'>" + real + "</list>")},
        {Code::ConstraintOnText, Item(string, "^columnConstraint='increasing'"),
            Item(real, "columnConstraint='increasing'")},
        {Code::CellWithoutList, K("^<cell/><data><record><item name='I'>" + real + "</item></record></data>"),
            K("<cell/><data>" + list + "</data>")},
        {Code::BlankFormat, ScalarValue("real", "^<format> </format>"),
            ScalarValue("real", "<format>%g</format>")},
        {Code::UnseenIdentifier, Item(list, "^identifier='true'"), Item(real, "identifier='true'")},
    };
    return rows;
}

/// "code line:column" of each finding.
std::string Reported(const std::string& text)
{
    std::vector<Lint::Document> documents;
    documents.push_back(Lint::Document::ReadText(text, "x.xml"));
    const Lint::LintReport report = LintDocuments(documents, 100);
    std::string told;
    for (const Decks::Finding& finding : report.findings.GetKept())
        told += finding.code + " " + std::to_string(finding.location.line) + ":"
            + std::to_string(finding.location.column) + "\n";
    return told;
}

struct Marked {
    std::string text;
    std::string location;
};

Marked TakeMark(std::string body)
{
    const std::size_t mark = body.find('^');
    if (mark == std::string::npos)
        return {Document(body), "2:1"};
    const std::string before = Document(body.substr(0, mark));
    body.erase(mark, 1);
    const std::size_t end = before.rfind("\n</keywords>");
    const auto line = std::count(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(end), '\n') + 1;
    return {Document(body), std::to_string(line) + ":" + std::to_string(end - before.rfind('\n', end - 1))};
}

class Slip : public testing::TestWithParam<Row> { };

TEST_P(Slip, IsReportedAtItsPlaceAndNothingElseIs)
{
    const Marked marked = TakeMark(GetParam().slip);
    EXPECT_EQ(
        Reported(marked.text), std::string(InfoOf(GetParam().code).name) + " " + marked.location + "\n");
    EXPECT_EQ(Reported(Document(GetParam().clean)), "");
}

TEST_P(Slip, IsAnErrorExactlyIfTheLoadFails)
{
    std::string body = GetParam().slip;
    body.erase(std::remove(body.begin(), body.end(), '^'), body.end());
    testing::internal::CaptureStdout(); // the loader prints failures of a file
    testing::internal::CaptureStderr();
    const std::string failure = LoadFailureOf(body);
    const std::string cleanFailure = LoadFailureOf(GetParam().clean);
    testing::internal::GetCapturedStdout();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(failure != "loaded", InfoOf(GetParam().code).severity == Severity::Error) << failure;
    EXPECT_EQ(cleanFailure, "loaded");
}

std::string SlipName(const testing::TestParamInfo<Row>& row)
{
    std::string name = InfoOf(row.param.code).name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Codes, Slip, testing::ValuesIn(Rows()), SlipName);

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
