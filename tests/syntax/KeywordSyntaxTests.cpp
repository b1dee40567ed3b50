#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

std::string SimulatorsIn(const IKeywordSyntax& syntax, const std::string& spelling, SectionType::Enum section)
{
    const std::string text = SimulatorsAndModes([&](auto simulator, auto mode) {
        const bool valid = KeywordSyntaxUtils::IsValid(syntax, spelling, section, simulator, mode);
        if (mode == SimulatorModeType::Any) {
            EXPECT_EQ(syntax.IsValid(section, simulator, spelling), valid);
        }
        return valid;
    });
    EXPECT_EQ(syntax.IsValid(section, SimulatorType::Any, spelling), text != "nowhere");
    return text == "nowhere" ? "" : text;
}

/// Where the keyword is valid under that spelling: for each section the simulators with their modes' first
/// letters.
std::string ValidityOf(const IKeywordSyntax& syntax, const std::string& spelling)
{
    const std::string first = SimulatorsIn(syntax, spelling, SectionType::RUNSPEC);
    std::string text;
    bool everywhere = true;
    for (int section = 0; section < SectionType::Count; ++section) {
        const std::string simulators = SimulatorsIn(syntax, spelling, SectionType::Enum(section));
        everywhere = everywhere && simulators == first;
        if (!simulators.empty())
            text += (text.empty() ? "" : "; ") + SectionType::ToString(SectionType::Enum(section)) + ": "
                + simulators;
    }
    return everywhere ? "everywhere: " + first : text;
}

std::string Sections(const std::string& first, const std::string& second = "")
{
    return "<validSections><section name='" + first + "'/>"
        + (second.empty() ? "" : "<section name='" + second + "'/>") + "</validSections>";
}

class KeywordValidity : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(KeywordValidity, FollowsItsElements)
{
    const LoadedTable table(KeywordElement("X", GetParam().text));
    EXPECT_EQ(ValidityOf(table.Get("X"), "X"), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Documents, KeywordValidity, testing::ValuesIn(Rows(R"(
SimulatorNoElements:  => everywhere: Carrow/B Dunmere/BCT Sedge/BC Hallow/BCT Marlpit/BCT Ostrey/BCT Wend/BCT Tolmen/BCT Wend_GE/BCT Wend_CLASSIC/BCT
SimulatorEmptyElements: <validSimulators></validSimulators><validOptions></validOptions><validSections></validSections> => everywhere: Carrow/B Dunmere/BCT Sedge/BC Hallow/BCT Marlpit/BCT Ostrey/BCT Wend/BCT Tolmen/BCT Wend_GE/BCT Wend_CLASSIC/BCT
SimulatorUnknown: <validSimulators><simulator name='carrow'/></validSimulators> => everywhere: Carrow/B
SimulatorNotADirectChild: <validSimulators><x><simulator name='Sedge'/></x></validSimulators> => everywhere: Carrow/B Dunmere/BCT Sedge/BC Hallow/BCT Marlpit/BCT Ostrey/BCT Wend/BCT Tolmen/BCT Wend_GE/BCT Wend_CLASSIC/BCT
SimulatorIgnored: <validSimulators><simulator name='Sedge'/><simulator name='Carrow' supportLevel='ignored'/></validSimulators> => everywhere: Sedge/BC
SimulatorWend: <validSimulators><simulator name='Wend'/></validSimulators> => everywhere: Wend/BCT Wend_GE/BCT Wend_CLASSIC/BCT
SimulatorWendGridEdits: <validSimulators><simulator name='Wend' gridEditsOnly='true'/></validSimulators> => everywhere: Wend/BCT Wend_GE/BCT
SimulatorWendClassic: <validSimulators><simulator name='Wend' classicOnly='true'/></validSimulators> => everywhere: Wend/BCT Wend_CLASSIC/BCT
SimulatorWendBoth: <validSimulators><simulator name='Wend' gridEditsOnly='true' classicOnly='true'/></validSimulators> => everywhere: Wend/BCT
SimulatorVariantAlone: <validSimulators><simulator name='Wend_GE'/></validSimulators> => everywhere: Wend_GE/BCT
SimulatorVariantThenWend: <validSimulators><simulator name='Wend_GE'/><simulator name='Wend' classicOnly='true'/></validSimulators> => everywhere: Wend/BCT Wend_CLASSIC/BCT
SimulatorWendThenVariant: <validSimulators><simulator name='Wend' classicOnly='true'/><simulator name='Wend_GE'/></validSimulators> => everywhere: Wend/BCT Wend_GE/BCT Wend_CLASSIC/BCT
SimulatorLastElementCounts: <validSimulators><simulator name='Carrow'/></validSimulators><validSimulators><simulator name='Sedge'/></validSimulators> => everywhere: Sedge/BC
OptionTwo: <validSimulators><simulator name='Wend' classicOnly='true'/></validSimulators><validOptions><option value='Thermal'/><option value='BlackOil'/></validOptions> => everywhere: Wend/BT Wend_CLASSIC/BT
OptionUnknown: <validSimulators><simulator name='Sedge'/></validSimulators><validOptions><option value='thermal'/></validOptions> => everywhere: Sedge/B
OptionNoneThatTheSimulatorHas: <validSimulators><simulator name='Carrow'/><simulator name='Sedge'/><simulator name='Hallow'/></validSimulators><validOptions><option value='Thermal'/></validOptions> => everywhere: Carrow/B Sedge/BC Hallow/T
OptionNotADirectChild: <validSimulators><simulator name='Sedge'/></validSimulators><validOptions><x><option value='Thermal'/></x></validOptions> => everywhere: Sedge/BC
SectionUnknown: <validSimulators><simulator name='Sedge'/></validSimulators><validSections><section name='grid'/></validSections> => RUNSPEC: Sedge/BC
SectionAtAnyDepth: <validSimulators><simulator name='Sedge'/></validSimulators><validSections><x><section name='GRID'/></x></validSections> => GRID: Sedge/BC
SectionWithSimulator: <validSections><section name='SUMMARY'/><section name='GRID'><simulator name='Sedge'/></section></validSections> => GRID: Sedge/BC; SUMMARY: Carrow/B Dunmere/BCT Sedge/BC Hallow/BCT Marlpit/BCT Ostrey/BCT Wend/BCT Tolmen/BCT Wend_GE/BCT Wend_CLASSIC/BCT
SectionWithSimulatorBelowSimulator: <validSections><section name='GRID'><simulator name='Sedge'><simulator name='Carrow'/></simulator></section></validSections> => GRID: Carrow/B Sedge/BC
SectionWithSimulatorNotADirectChild: <validSimulators><simulator name='Sedge'/></validSimulators><validSections><section name='GRID'><x><simulator name='Carrow'/></x></section></validSections> => GRID: Sedge/BC
SectionWithSimulatorNotListed: <validSimulators><simulator name='Sedge'/></validSimulators><validSections><section name='SUMMARY'/><section name='GRID'><simulator name='Carrow'/></section></validSections> => SUMMARY: Sedge/BC
SectionWithWend: <validOptions><option value='Thermal'/></validOptions><validSections><section name='EDIT'><simulator name='Wend'/></section></validSections> => EDIT: Wend/T Wend_GE/T Wend_CLASSIC/T
SectionWithWendClassic: <validSections><section name='EDIT'><simulator name='Wend_GE'/><simulator name='Wend' classicOnly='true'/></section></validSections> => EDIT: Wend/BCT Wend_CLASSIC/BCT
SectionTwiceWithSimulators: <validSections><section name='GRID'><simulator name='Sedge'/></section><section name='GRID'><simulator name='Carrow'/></section></validSections> => GRID: Carrow/B Sedge/BC
SectionBehindData: <validSimulators><simulator name='Sedge'/></validSimulators><data/><validSections><section name='GRID'/></validSections><validOptions><option value='Compositional'/></validOptions> => everywhere: Sedge/BC
)")),
    CaseName<Row>);

TEST(KeywordSyntax, ListsWhereItIsValid)
{
    const LoadedTable table(
        "<keyword name='X'><validSimulators><simulator name='Carrow'/><simulator "
        "name='Sedge'/></validSimulators><validSections><section name='SCHEDULE'><simulator "
        "name='Sedge'/></section><section name='SUMMARY'><simulator "
        "name='Carrow'/></section></validSections></keyword><keyword "
        "name='NOWHERE'><validSimulators><simulator name='Sedge' "
        "supportLevel='ignored'/></validSimulators></keyword>");
    const IKeywordSyntax& syntax = table.Get("X");
    EXPECT_EQ(syntax.GetValidSections(), (std::vector{SectionType::SUMMARY, SectionType::SCHEDULE}));
    EXPECT_EQ(syntax.GetFirstValidSection(), SectionType::SUMMARY);
    EXPECT_EQ(syntax.GetValidSimulators(), (std::vector{SimulatorType::Carrow, SimulatorType::Sedge}));
    EXPECT_FALSE(syntax.IsValidSimulator(SimulatorType::Wend));
    for (const auto simulator : {SimulatorType::Any, SimulatorType::Sedge})
        EXPECT_FALSE(syntax.IsValid(SectionType::None, simulator));
    const IKeywordSyntax& nowhere = table.Get("NOWHERE");
    EXPECT_TRUE(nowhere.GetValidSimulators().empty() && nowhere.GetValidSections().empty());
    EXPECT_EQ(nowhere.GetFirstValidSection(), SectionType::None);
}

TEST(KeywordSyntax, AnswersForTheSpelling)
{
    const LoadedTable table(
        KeywordElement("X", R"(<validSimulators><simulator name="Sedge"/></validSimulators>
<aliases><alias name="PLAIN"/><x><alias name="DEEP"/></x>
  <alias name="HIDDEN"><isHiddenAlias>no</isHiddenAlias></alias>
  <alias name="OWN"><validSimulators><simulator name="Carrow"/><simulator name="Sedge"/></validSimulators></alias>
</aliases><data/><validSections><section name="GRID"/></validSections><aliases><alias name="NONE">
  <validSections/><validOptions><option value="Thermal"/></validOptions></alias></aliases>)"));
    const IKeywordSyntax& syntax = table.Get("OWN");
    EXPECT_EQ(syntax.GetName(), "X");
    EXPECT_EQ(syntax.GetAliases(), (std::vector<std::string>{"PLAIN", "HIDDEN", "OWN", "NONE"}));
    for (const char* spelling : {"X", "PLAIN", "HIDDEN", "DEEP", "UNKNOWN", ""})
        EXPECT_EQ(ValidityOf(syntax, spelling), "everywhere: Sedge/BC") << spelling;
    EXPECT_EQ(ValidityOf(syntax, "OWN"), "GRID: Carrow/B Sedge/BC") << "behind the data counts for an alias";
    EXPECT_EQ(ValidityOf(syntax, "NONE"), "everywhere: Sedge/BC") << "its own empty list";
    EXPECT_EQ(syntax.GetValidSimulators("OWN"), (std::vector{SimulatorType::Carrow, SimulatorType::Sedge}));
    EXPECT_EQ(syntax.GetValidSimulators("PLAIN"), (std::vector{SimulatorType::Sedge}));
    for (const std::string spelling : {"OWN", "X"})
        EXPECT_EQ(syntax.IsValidSimulator(SimulatorType::Carrow, spelling), spelling == "OWN");
    EXPECT_TRUE(syntax.IsHidden("HIDDEN"));
    EXPECT_FALSE(syntax.IsHidden("X") || syntax.IsHidden("OWN") || syntax.IsHidden("UNKNOWN"));
}

TEST(KeywordSyntax, HidesItsOwnNameAlone)
{
    const LoadedTable table(
        KeywordElement("X", "<isHidden/><isGeneric>false</isGeneric><aliases><alias name='A'/></aliases>")
        + KeywordElement("Y", "<isHidden>false</isHidden><data/>"));
    const IKeywordSyntax& x = table.Get("X");
    EXPECT_TRUE(x.IsHidden() && x.IsHidden("X") && x.IsGeneric());
    EXPECT_FALSE(x.IsHidden("A") || x.IsHidden("UNKNOWN"));
    EXPECT_TRUE(table.Get("Y").IsHidden("UNKNOWN")) << "without aliases every text is the keyword's own name";
    EXPECT_FALSE(table.Get("Y").IsGeneric() || table.Get("Y").GetDataMD() || table.Get("Y").HasPrecedents());
}

TEST(KeywordSyntax, HasItsRoleInADeckByName)
{
    using Role = KeywordDeckRole;
    const std::pair<const char*, Role::Enum> rows[] = {{"END", Role::End}, {"ENDINC", Role::EndInclude},
        {"INCLUDE", Role::Include}, {"SKIP", Role::Skip}, {"ENDSKIP", Role::EndSkip},
        {"RUNSPEC", Role::Section}, {"SUMMARY", Role::Section}, {"OPTIMIZE", Role::Section},
        {"SKIPCAR", Role::Ordinary}, {"Grid", Role::Ordinary}, {"ENDI", Role::Ordinary}};
    for (const auto& [name, role] : rows) {
        const LoadedTable table(KeywordElement(name, ""));
        EXPECT_EQ(table.Get(name).GetDeckRole(), role) << name;
    }
}

TEST(KeywordSyntax, IsDocumentedUnderSummaryIfValidThereAlone)
{
    const LoadedTable table(
        KeywordElement("OWN", "<description>a <format>b</format></description>" + Sections("GRID"))
        + KeywordElement("VECTOR", Sections("SUMMARY")) + KeywordElement("BOTH", Sections("SUMMARY", "GRID"))
        + KeywordElement("PAGE", "<documentation>WELLS</documentation>" + Sections("SUMMARY"))
        + KeywordElement("EMPTY", "<documentation/>"));
    const std::pair<const char*, const char*> rows[] = {
        {"OWN", "OWN"}, {"VECTOR", "SUMMARY"}, {"BOTH", "BOTH"}, {"PAGE", "WELLS"}, {"EMPTY", ""}};
    for (const auto& [name, page] : rows)
        EXPECT_EQ(table.Get(name).GetDocumentationName(), page) << name;
    EXPECT_EQ(table.Get("OWN").GetDescription(), "a b");
}

TEST(Precedents, AreAllThatMustComeFirst)
{
    using Names = std::set<std::string>;
    const LoadedTable table(R"(
<keyword name="A"><precedents><x><precedent name="B"/></x><precedent name="C"/></precedents></keyword>
<keyword name="B"><precedents><precedent name="D"/></precedents></keyword>
<keyword name="C"><precedents><precedent name="B"/></precedents><precedents><precedent name="E"/></precedents></keyword>
<keyword name="D"/><keyword name="E"/>
<keyword name="TWICE"><precedents><precedent name="PART"/></precedents></keyword>
<keyword name="PART"><validSections><section name="GRID"/></validSections><precedents><precedent name="D"/></precedents></keyword>
<keyword name="PART"><validSections><section name="SUMMARY"/></validSections><precedents><precedent name="E"/></precedents></keyword>)");
    EXPECT_TRUE(table.Get("A").HasPrecedents());
    EXPECT_EQ(table.Get("A").GetPrecedents(SectionType::GRID), (Names{"B", "C", "D", "E"}));
    EXPECT_EQ(table.Get("C").GetPrecedents(SectionType::GRID), Names{"E"}) << "a later element replaces";
    EXPECT_EQ(table.Get("TWICE").GetPrecedents(SectionType::GRID), (Names{"D", "PART"}));
    EXPECT_EQ(table.Get("TWICE").GetPrecedents(SectionType::SUMMARY), (Names{"D", "PART"}))
        << "for the section of the first call";
}

// Table after table in one process: the second lacks a keyword, and the third has them in another order.
TEST(SkipKeywords, AreKnownByIdentityInEachTable)
{
    using Utils = KeywordSyntaxUtils;
    const char* const names[] = {"SKIP", "SKIPCAR", "SKIPDUN", "ENDSKIP", "X"};
    bool (*const is[])(const IKeywordSyntax&) = {
        &Utils::IsSKIP, &Utils::IsSKIPCAR, &Utils::IsSKIPDUN, &Utils::IsENDSKIP};
    const IKeywordSyntax& (*const get[])() = {
        &Utils::GetSKIP, &Utils::GetSKIPCAR, &Utils::GetSKIPDUN, &Utils::GetENDSKIP};
    const std::string skip = KeywordElement("SKIP", "<aliases><alias name='SKIPX'/></aliases>");
    for (const std::string& document : {skip + KeywordElement("SKIPCAR") + KeywordElement("SKIPDUN")
                 + KeywordElement("ENDSKIP") + KeywordElement("X"),
             KeywordElement("X") + KeywordElement("ENDSKIP") + KeywordElement("SKIPCAR") + skip,
             KeywordElement("X") + KeywordElement("SKIPDUN") + KeywordElement("ENDSKIP")
                 + KeywordElement("SKIPCAR") + skip}) {
        SCOPED_TRACE(document);
        const LoadedTable table(document);
        EXPECT_TRUE(Utils::IsSKIP(table.Get("SKIPX"))) << "an alias shares the object";
        for (int row = 0; row < 4; ++row) {
            if (const IKeywordSyntax* const syntax = table->Lookup(names[row], true)) {
                EXPECT_EQ(&get[row](), syntax);
            }
            for (const char* const name : names) {
                if (const IKeywordSyntax* const syntax = table->Lookup(name, true)) {
                    EXPECT_EQ(is[row](*syntax), std::string(name) == names[row]) << row << name;
                }
            }
        }
    }
}

TEST(SkipKeywords, AreLookedUpInATableThatIsLoadedForThem)
{
    const LoadedTable table(KeywordElement("SKIP"));
    KeywordSyntaxUtils::GetSKIP();
    KeywordSyntaxTable::Instance(true, false);
    EXPECT_EQ(KeywordSyntaxUtils::GetSKIP().GetName(), "SKIP");
    EXPECT_EQ(&KeywordSyntaxUtils::GetSKIP(), KeywordSyntaxTable::Instance().Lookup("SKIP", true));
}
