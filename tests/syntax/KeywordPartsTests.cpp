#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

std::string CellList(const std::string& name, const std::string& item)
{
    return KeywordElement(name, "<cell/><data><list>" + item + "</list></data>");
}

std::string Dump(const ICellPropertyInfo* info)
{
    if (!info)
        return "no cell";
    return "cell " + info->GetPropertyName() + (info->HasComponents() ? " components" : "")
        + (info->CopyLayerAboveByDefault() ? " layer-above" : "")
        + (info->DualPorosityMatrixOnly() ? " matrix-only" : "");
}

template <class Category>
std::string Text(const char* category, const Service::Optional<Category>& value)
{
    return value ? std::string(category) + std::to_string(*value) : "";
}

std::string Dump(const ISummaryMnemonicInfo* info)
{
    if (!info)
        return "no summary";
    return "summary" + Text(" entity=", info->GetEntity()) + Text(" flow=", info->GetFlow())
        + Text(" function=", info->GetFunction()) + Text(" option=", info->GetOption())
        + Text(" phase=", info->GetPhase());
}

std::string Names(const std::vector<const IKeywordSyntax*>& keywords)
{
    std::string text;
    for (const IKeywordSyntax* const syntax : keywords)
        text += syntax->GetName() + " ";
    return text;
}

/// Sorted by name: the set itself is ordered by address.
std::string Names(const std::set<const IKeywordSyntax*>& keywords)
{
    std::vector<const IKeywordSyntax*> sorted(keywords.begin(), keywords.end());
    std::sort(sorted.begin(), sorted.end(), [](auto* a, auto* b) { return a->GetName() < b->GetName(); });
    return Names(sorted);
}

class KeywordParts : public testing::TestWithParam<Row> { };
/// By category its texts, as a document says them, in the order of the values, and their number.
class SummaryCategory : public testing::TestWithParam<Row> { };
/// What it ends with; after the bar the keyword that does so explicitly.
class Scope : public testing::TestWithParam<Row> { };

const std::string others = "<keyword name='A'><aliases><alias name='AA'/></aliases></keyword><keyword "
                           "name='B'/><keyword name='W*'/>";

} // namespace

TEST_P(KeywordParts, AreWhatTheirElementsSay)
{
    const LoadedTable table(KeywordElement("X", GetParam().text));
    const IKeywordSyntax& x = table.Get("X");
    EXPECT_EQ(Dump(x.GetCellPropertyInfo()) + "|" + Dump(x.GetSummaryMnemonicInfo()), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Documents, KeywordParts, testing::ValuesIn(Rows(R"(
CellNoElement:  => no cell|no summary
CellNoAttribute: <cell/> => cell X|no summary
CellEmptyName: <cell property=''/> => cell |no summary
CellLayerAbove: <cell components='true' copyLayerAboveByDefault='true'/> => cell X components layer-above|no summary
CellMatrixOnly: <cell dualPorosityMatrixOnly='true'/> => cell X matrix-only|no summary
CellNotTrue: <cell components='TRUE' copyLayerAboveByDefault='1' dualPorosityMatrixOnly=''/> => cell X|no summary
CellLastElementCounts: <cell components='true'/><cell property='P q'><x/></cell> => cell P q|no summary
SummaryWithoutCategory: <summaryMnemonic></summaryMnemonic> => no cell|summary
SummaryCategories: <summaryMnemonic><!-- -->text<category name='phase' val='Oil'/><category name='entity' val='Well'/></summaryMnemonic> => no cell|summary entity=18 phase=2
SummaryLastCategoryCounts: <summaryMnemonic><category name='phase' val='Oil'/><category name='phase' val='Gas'/></summaryMnemonic> => no cell|summary phase=0
SummaryLastElementCounts: <summaryMnemonic><category name='phase' val='Oil'/></summaryMnemonic><summaryMnemonic><category name='flow' val='Injection'/></summaryMnemonic> => no cell|summary flow=0
)")),
    CaseName<Row>);

TEST_P(SummaryCategory, NumbersItsTextsAndTakesNoOther)
{
    const std::string start =
        "<keyword name='X'><summaryMnemonic><category name='" + GetParam().name + "' val='";
    const std::string end = "'/></summaryMnemonic></keyword>";
    std::istringstream texts(GetParam().text);
    int value = 0;
    for (std::string text; std::getline(texts, text, ',');) {
        EXPECT_EQ(Dump(LoadedTable(start + text + end).Get("X").GetSummaryMnemonicInfo()),
            "summary " + GetParam().name + "=" + std::to_string(value++));
        for (const std::string& other : {" " + text, text + " ", text.substr(0, text.size() - 1)})
            EXPECT_EQ(LoadFailureOf(start + other + end),
                "X: SummaryMnemonicInfo::ExtractEnumValue(): unknown category value")
                << other;
    }
    EXPECT_EQ(std::to_string(value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Tables, SummaryCategory, testing::ValuesIn(Rows(R"(
entity: Aquifer,Aquifer Gradient,Block,Block Gradient,Completion,Conductive Fault,Field,General,Group,Group Gradient,LGR Block,LGR Block Gradient,LGR Completion,LGR Well,LGR Well Gradient,Region,Region Flow,Segment,Well,Well Gradient => 20
flow: Injection,Production => 2
function: Historical,Rate,Total => 3
option: API,Aqui,Conductive Fault,Flow => 4
phase: Gas,Liquid,Oil,Volume,Water => 5
)")),
    CaseName<Row>);

TEST(Summary, OnlyTheAquiferOptionHasAnotherText)
{
    EXPECT_EQ(SummaryOption::ToString(SummaryOption::Aquifer), "Aquifer");
    EXPECT_EQ(SummaryEntity::ToString(SummaryEntity::Aquifer), "Aquifer");
    EXPECT_EQ(SummaryOption::FromString("Aqui"), SummaryOption::Aquifer);
    bool found = true;
    SummaryOption::FromString("Aquifer", &found);
    EXPECT_FALSE(found);
}

TEST(CellPropertyQueries, SeparateIntegersFromReals)
{
    const LoadedTable table(CellList("INT", "<integer/>") + CellList("REAL", "<real/>")
            + CellList("STRING", "<string/>") + CellList("NOITEM", "")
            + CellList("LASTTYPE", "<integer/><real/>") + CellList("LISTS", "<list><real/></list>")
            + KeywordElement("RECORD", "<cell/><data><record><item name='A'><real/></item></record></data>")
            + KeywordElement("NODATA", "<cell/>")
            + KeywordElement("NOCELL", "<data><list><real/></list></data>")
            + KeywordElement(
                "ALIASED", "<aliases><alias name='AL'/></aliases><cell/><data><list><real/></list></data>"),
        CellList("TRUSTED", "<integer/>"));
    using Queries = KeywordSyntaxTableQueries;
    EXPECT_EQ(Names(Queries::GetCellProperties()), "ALIASED INT LASTTYPE LISTS NOITEM REAL STRING TRUSTED ");
    EXPECT_EQ(Names(Queries::GetIntCellProperties()), "INT TRUSTED ");
    EXPECT_EQ(Names(Queries::GetRealCellProperties()), "ALIASED LASTTYPE REAL ");
    EXPECT_EQ(Queries::GetIntCellProperties(), (Queries::Keywords{&table.Get("INT"), &table.Get("TRUSTED")}));
}

TEST(CellPropertyQueries, LeaveOutWhatIsHiddenUnderAllNames)
{
    const std::string list = "<data><list><real/></list></data><aliases><alias name='A'>";
    const LoadedTable table(KeywordElement("HIDDEN", "<cell/><isHidden/><data><list><real/></list></data>")
        + KeywordElement("H1", "<cell/><isHidden/>" + list + "<isHiddenAlias/></alias></aliases>")
        + KeywordElement("H2", "<cell/><isHidden/>" + list + "</alias></aliases>"));
    EXPECT_EQ(Names(KeywordSyntaxTableQueries::GetRealCellProperties()), "H2 ");
}

TEST(CellPropertyQueries, FindRealsByMeasurement)
{
    const LoadedTable table(CellList("L1", "<real><quantity name='cell-length'/></real>")
        + CellList("L2", "<real><quantity name='cell-time'/><quantity name='cell-length'/></real>")
        + CellList("T", "<real><quantity name='cell-time'/></real>") + CellList("PLAIN", "<real/>")
        + CellList("EMPTY", "<real><quantity name=''/></real>")
        + CellList("INT", "<integer><quantity name='cell-length'/></integer>"));
    const auto names = [](const std::string& measurement) {
        return Names(KeywordSyntaxTableQueries::GetRealCellPropertiesByMeasurement(measurement));
    };
    EXPECT_EQ(names("cell-length"), "L1 L2 ");
    EXPECT_EQ(names("cell-time"), "T ");
    EXPECT_EQ(names("Cell-length"), "");
    EXPECT_EQ(names(""), "");
}

TEST(CellPropertyQueries, PassALoadFailureOn)
{
    const LoadedTable table("");
    const TemporaryDirectory directory;
    const ScopedVariable main(
        mainVariable, directory.Write("x.xml", Document("<keyword name='X'><data><x/></data></keyword>")));
    KeywordSyntaxTable::Instance(true, false);
    using Queries = KeywordSyntaxTableQueries;
    Queries::Keywords (*const queries[])() = {
        &Queries::GetCellProperties, &Queries::GetIntCellProperties, &Queries::GetRealCellProperties};
    for (const auto query : queries)
        EXPECT_EQ(
            FailureOf([&] { query(); }), "X: KeywordSyntax::CreateDataMD: unhandled keyword data type: x");
}

TEST_P(Scope, EndsWithItsKeywords)
{
    const LoadedTable table("<keyword name='X'><scope>" + GetParam().text + "</scope></keyword>" + others);
    const IKeywordSyntax& syntax = table.Get("X");
    EXPECT_TRUE(syntax.HasScope());
    for (int round = 0; round < 2; ++round) {
        const IKeywordSyntax* const ending = syntax.GetScopeSyntax();
        EXPECT_EQ(Names(syntax.GetScopeKeywords()) + "| " + (ending ? ending->GetName() : "none"),
            GetParam().expected);
    }
    EXPECT_EQ(&syntax.GetScopeKeywords(), &syntax.GetScopeKeywords());
}

INSTANTIATE_TEST_SUITE_P(Documents, Scope, testing::ValuesIn(Rows(R"(
Empty:  => | none
InOrder: <endKeyword name='B'/><!-- --><endKeyword name='A'/> => B A | none
LastExplicit: <endKeyword name='B' explicit='true'/><endKeyword name='A' explicit='true'/><endKeyword name='B'/> => B A B | A
NotTrue: <endKeyword name='B' explicit='TRUE'/> => B | none
UnknownOnesAreLeftOut: <endKeyword name='Q' explicit='true'/><endKeyword name='A'/><endKeyword/> => A | none
ByAlias: <endKeyword name='AA' explicit='true'/> => A | A
ByWildcard: <endKeyword name='WELL' explicit='true'/> => W* | W*
Itself: <endKeyword name='X'/><endKeyword name='X'/> => X X | none
)")),
    CaseName<Row>);

TEST(Scopes, AreOfTheKeywordsThatHaveTheElement)
{
    const LoadedTable table(others
        + "<keyword name='X'><scope><endKeyword name='A'/></scope><scope><endKeyword "
          "name='B'/></scope></keyword>");
    EXPECT_FALSE(table.Get("A").HasScope());
    EXPECT_TRUE(table.Get("A").GetScopeKeywords().empty());
    EXPECT_EQ(&table.Get("A").GetScopeKeywords(), &table.Get("B").GetScopeKeywords());
    EXPECT_EQ(Names(table.Get("X").GetScopeKeywords()), "B ");
}
