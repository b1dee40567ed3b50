#include "tests/metadata/MetadataText.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

template <class Category, class Value>
std::string Text(const Service::Optional<Value>& value)
{
    return value ? Category::ToString(*value) : "-";
}

/// What a list is of; `-` for no data. An item that may be left out is in brackets.
std::string DataText(const IKeywordDataMD* data)
{
    static const std::string type[] = {"none", "assignment", "boolean", "choice", "integer", "line", "list",
        "map", "raw", "real", "record", "string"};
    if (!data)
        return "-";
    const IKeywordDataMD* const item = dynamic_cast<const IKeywordListMD&>(*data).GetItemMD();
    const auto* const record = dynamic_cast<const IKeywordRecordMD*>(item);
    std::string text = record ? "" : type[item->GetType()];
    for (int i = 0; record && i < record->GetSize(); ++i) {
        const std::string name =
            record->GetItemMD(i)->GetName() + " " + type[record->GetItemMD(i)->GetType()];
        text += (i ? ", " : "") + (record->IsOptional(i) ? "[" + name + "]" : name);
    }
    return text;
}

std::string ModesText(const IKeywordSyntax& syntax, SimulatorType::Enum simulator)
{
    std::string modes;
    for (const auto& mode : SimulatorModeType::EnumInfos()) {
        if (KeywordSyntaxUtils::IsValid(
                syntax, syntax.GetName(), SectionType::SUMMARY, simulator, mode.value))
            modes += mode.text.front();
    }
    return modes.empty() ? "-" : modes;
}

/// entity flow function option phase, modes of Carrow, Sedge and Hallow, data.
std::string VectorText(const IKeywordSyntax& syntax)
{
    const ISummaryMnemonicInfo& info = *syntax.GetSummaryMnemonicInfo();
    return Text<SummaryEntity>(info.GetEntity()) + " " + Text<SummaryFlow>(info.GetFlow()) + " "
        + Text<SummaryFunction>(info.GetFunction()) + " " + Text<SummaryOption>(info.GetOption()) + " "
        + Text<SummaryPhase>(info.GetPhase()) + " " + ModesText(syntax, SimulatorType::Carrow) + "/"
        + ModesText(syntax, SimulatorType::Sedge) + "/" + ModesText(syntax, SimulatorType::Hallow) + ": "
        + DataText(syntax.GetDataMD());
}

class Vectors : public testing::TestWithParam<Row> { };

} // namespace

TEST_P(Vectors, HaveTheirCategoriesModesAndData)
{
    const IKeywordSyntax* const syntax =
        KeywordSyntaxTable::Instance().Lookup(GetParam().text, SectionType::SUMMARY, false);
    ASSERT_NE(syntax, nullptr);
    EXPECT_EQ(VectorText(*syntax), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Language, Vectors, testing::ValuesIn(Rows(R"(
General: NEWTON => General - - - - B/BC/BCT: -
SharedName: TIME => General - - - - B/BC/BCT: -
FieldRate: FOPR => Field Production Rate - Oil B/BC/BCT: -
FieldTotal: FGIT => Field Injection Total - Gas B/BC/BCT: -
FieldHistorical: FLPTH => Field Production Historical - Liquid B/BC/BCT: -
FieldAquifers: FAQT => Field - Total Aquifer Water B/BC/BCT: -
GroupRate: GWPR => Group Production Rate - Water B/BC/BCT: string
GroupNode: GPR => Group - - - - B/BC/BCT: string
WellVolume: WVPR => Well Production Rate - Volume B/BC/BCT: string
WellRatio: WGORH => Well Production Historical - Gas B/BC/BCT: string
WellPressure: WBHP => Well - - - - B/BC/BCT: string
Completion: COPR => Completion Production Rate - Oil B/BC/BCT: WELL string, [I integer], [J integer], [K integer]
Segment: SWFR => Segment - Rate - Water B/BC/BCT: WELL string, [SEGMENT integer]
Block: BOSAT => Block - - - Oil B/BC/BCT: I integer, J integer, K integer
BlockFlow: BFLOGK => Block - Rate Flow Gas B/BC/BCT: I integer, J integer, K integer
Region: ROIP => Region - - - Oil B/BC/BCT: integer
RegionOfFamily: RPR__ABC => Region - - - - B/BC/BCT: integer
RegionLongNameOfFamily: RGIPLABC => Region - - - Gas B/BC/BCT: integer
RegionFlow: RGFR => Region Flow - Rate Flow Gas B/BC/BCT: FROM integer, TO integer
RegionFlowBack: ROFT- => Region Flow - Total Flow Oil B/BC/BCT: FROM integer, TO integer
RegionFlowOfFamily: ROFR_ABC => Region Flow - Rate Flow Oil B/BC/BCT: FROM integer, TO integer
Aquifer: AAQP => Aquifer - - Aquifer - B/BC/BCT: integer
LocalWell: LWWIR => LGR Well Injection Rate - Water B/BC/BCT: LGR string, [WELL string]
LocalCompletion: LCGPT => LGR Completion Production Total - Gas B/BC/BCT: LGR string, WELL string, [I integer], [J integer], [K integer]
LocalBlock: LBPR => LGR Block - - - - B/BC/BCT: LGR string, I integer, J integer, K integer
Quantity: AUDEPTH => Aquifer - - - - B/BC/BCT: integer
Tracer: WTPRSEA => Well Production Rate - - B/BC/BCT: string
NameWithinTracers: WTPCHEA => Well Production - - - B/BC/BCT: string
Component: BXMF_12 => Block - - - Oil -/C/CT: I integer, J integer, K integer
Gravity: FAPI => Field Production - API Oil B/B/B: -
Energy: FEPR => Field Production Rate - - B/B/BT: -
)")),
    CaseName<Row>);

TEST(VectorsOfTheLanguage, AreFoundUnderTheirNames)
{
    KeywordSyntaxTable& table = KeywordSyntaxTable::Instance();
    std::set<std::string> entities;
    KeywordSyntaxEnumerator keywords = table.KeywordsEnumerator();
    while (keywords.NextWithHidden()) {
        const auto& [name, syntax] = *keywords.Current();
        if (const ISummaryMnemonicInfo* const info = syntax->GetSummaryMnemonicInfo()) {
            EXPECT_EQ(table.Lookup(*name, SectionType::SUMMARY, false), syntax) << *name;
            EXPECT_EQ(syntax->GetDescription().find_first_of("{}"), std::string::npos) << *name;
            entities.insert(SummaryEntity::ToString(*info->GetEntity()));
        }
    }
    EXPECT_EQ(entities.size(), 13U);
}
