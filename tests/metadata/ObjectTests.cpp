#include "tests/metadata/MetadataText.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

TEST(MetadataWalk, EndsOnceAndForAll)
{
    const auto& end = ConstMetaDataIterator::End();
    EXPECT_EQ(&end, &ConstMetaDataIterator::End());
    EXPECT_TRUE(ConstMetaDataIterator() == end);
    const KeywordRealMDImpl real;
    ConstMetaDataIterator it(real);
    EXPECT_EQ(*it, &real);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(++it == end);
        EXPECT_EQ(*it, nullptr);
    }
}

TEST(MetadataWalk, IsComparedByPlaceAndTree)
{
    const std::string xml =
        "<record><item name='A'><list><real/></list></item><item name='B'><real/></item></record>";
    const auto one = Read<KeywordRecordMDImpl>(xml);
    const auto other = Read<KeywordRecordMDImpl>(xml);
    ConstMetaDataIterator a(*one);
    ConstMetaDataIterator b(*one);
    ConstMetaDataIterator ahead(*one);
    ConstMetaDataIterator c(*other);
    ++ahead;
    // The same node, reached from another root.
    EXPECT_TRUE(ConstMetaDataIterator(**ahead) != ahead);
    for (int i = 0; i < 4; ++i, ++a, ++b, ++c, ++ahead)
        EXPECT_TRUE(a == b && a != c && a != ahead) << i;
    EXPECT_TRUE(a == c);
}

TEST(MetadataWalk, CannotEnterRawText)
{
    EXPECT_EQ(FailureOf([] { ConstMetaDataIterator it(KeywordRawMDImpl{}); }),
        "ConstMetaDataIterator: unhandled type");
    KeywordRecordMDImpl record;
    record.AddItem(std::make_unique<KeywordLineMDImpl>(), false, nullptr, nullptr);
    record.AddItem(std::make_unique<KeywordRawMDImpl>(), false, nullptr, nullptr);
    ConstMetaDataIterator it(record);
    EXPECT_EQ((++it)->GetType(), IKeywordDataMD::MDType::Line);
    EXPECT_EQ(FailureOf([&] { ++it; }), "ConstMetaDataIterator: unhandled type");
}

namespace {

/// The formats that the item has while it is given "", A, B, "", "", A and "".
template <class Impl>
std::string FormatsOf(const std::string& xml)
{
    const auto item = Read<Impl>(xml);
    const KeywordRealMDImpl bystander;
    std::string formats;
    for (const char* const format : {"", "A", "B", "", "", "A", ""}) {
        NumericFormatting::SetCustomFormatting(*item, format);
        const std::string* const now = NumericFormatting::GetFormatting(*item);
        EXPECT_EQ(now, item->GetFormatting());
        formats += (now ? *now : "none") + " ";
    }
    EXPECT_EQ(bystander.GetFormatting(), nullptr);
    return formats;
}

} // namespace

TEST(Formatting, OfTheDocumentIsRestored)
{
    EXPECT_EQ(FormatsOf<KeywordRealMDImpl>("<real><format>%g</format></real>"), "%g A B %g %g A %g ");
    EXPECT_EQ(FormatsOf<KeywordRealMDImpl>("<real/>"), "none A B none none A none ");
    EXPECT_EQ(
        FormatsOf<KeywordIntegerMDImpl>("<integer><format>%d</format></integer>"), "%d A B %d %d A %d ");

    KeywordRealMDImpl real;
    real.SetFormatting("X");
    NumericFormatting::SetCustomFormatting(real, "A");
    real.ResetFormatting();
    EXPECT_EQ(real.GetFormatting(), nullptr);
    NumericFormatting::SetCustomFormatting(real, "");
    EXPECT_EQ(*real.GetFormatting(), "X") << "the one before the change, even so";
}

TEST(Formatting, IsRefusedForAHostsOwnClass)
{
    const NumericMD<IKeywordIntegerMD, IKeywordDataMD::MDType::Integer, int> integer;
    struct HostReal : NumericMD<IKeywordRealMD, IKeywordDataMD::MDType::Real, double> {
        const std::string* GetMeasurement() const override { return nullptr; }
    };
    EXPECT_EQ(FailureOf([&] { NumericFormatting::SetCustomFormatting(integer, "A"); }),
        "setCustomFormattingTmpl: unhandled type");
    EXPECT_EQ(FailureOf([] { NumericFormatting::SetCustomFormatting(HostReal{}, ""); }),
        "setCustomFormattingTmpl: unhandled type");
}

TEST(ByCode, ItemsKeepTheirFlags)
{
    KeywordRecordMDImpl record;
    auto real = std::make_unique<KeywordRealMDImpl>();
    const IKeywordDataMD* const realMD = &real->MD();
    const ValidityMDImpl nowhere(false);
    const UnsupportedByMDImpl everywhere(true);
    record.AddItem(std::move(real), true, nullptr, &everywhere);
    record.AddItem(std::make_unique<KeywordLineMDImpl>(), false, &nowhere, nullptr);
    EXPECT_EQ(record.GetItemMD(0), realMD);
    bool onRead = true;
    bool onWrite = false;
    record.AddItem(ParsedElement("<item name='X' optional='true'><integer/><skippableOnWrite/></item>"), 9,
        onRead, onWrite, carrowAndSedge);
    EXPECT_FALSE(onRead);
    EXPECT_TRUE(onWrite);
    EXPECT_EQ(Dump(record),
        "record NONE{real optional unsupported(everywhere); line valid(nowhere); integer#9 X for Carrow "
        "Sedge optional}");
}

TEST(ByCode, MapsSortWildcardsAndAKeyIsTrimmedAndRaised)
{
    KeywordMapMDImpl map;
    for (const char* const key : {" \ta b ", "*w", "b"}) {
        auto assignment = std::make_unique<KeywordAssignmentMDImpl>();
        assignment->SetKey(key);
        assignment->SetWildcard(key[0] == '*');
        map.AddItem(std::move(assignment));
    }
    map.GetItemMD(0)->SetValidity(true); // valid nowhere, even so
    map.GetItemMD(1)->SetKeys({" a", "B "});
    map.GetItemMD(1)->SetValidity(SimulatorType::Tolmen, true);
    EXPECT_EQ(Dump(map),
        "map SLASH{assignment keys(A B); assignment keys( a|B ) valid(Tolmen); assignment keys(*W) "
        "wildcard}");
}

TEST(Copies, OfAnAssignmentsInterfaceHaveNoPlaceAndNoOverrides)
{
    const auto from = Read<KeywordAssignmentMDImpl>(
        "<assignment name='K' wildcard='true'><description>d</description><aliases> <alias "
        "name='L'/></aliases><validity> <simulator name='Wend'/></validity><integer><min val='1'/><max "
        "val='9'/><default type='calculated'><override name='Hallow' type='specified' "
        "val='5'/></default></integer></assignment>");
    from->SetName("N");
    from->SetItemNumber(2);
    const std::string text = "assignment \"d\" keys(K|L) wildcard valid(Wend) [1..9] Any=calculated "
                             "Carrow=calculated Sedge=calculated Hallow=5";
    EXPECT_EQ(Dump(KeywordAssignmentMDImpl(static_cast<const IKeywordAssignmentMD&>(*from))), text);
}

TEST(ItemTypes, AreScalarsAndAssignments)
{
    std::string items;
    for (int type = 0; type <= 12; ++type)
        items +=
            KeywordUtils::IsItemMDType(IKeywordDataMD::MDType::Enum(type)) ? std::to_string(type) + " " : "";
    EXPECT_EQ(items, "1 2 3 4 5 9 11 ");
    const KeywordRawMDImpl raw;
    EXPECT_EQ(KeywordUtils::GetMDType(&raw), IKeywordDataMD::MDType::Raw);
    EXPECT_FALSE(KeywordUtils::IsItemMDType(&raw));
    EXPECT_FALSE(KeywordUtils::IsItemMDType(static_cast<const IKeywordDataMD*>(nullptr)));
    EXPECT_EQ(static_cast<int>(KeywordUtils::GetMDType(nullptr)), 0);
}
