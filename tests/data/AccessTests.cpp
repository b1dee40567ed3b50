#include "tests/data/DataText.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <utility>

using namespace Veld::Quor::Tests;

namespace {

constexpr const char* wells = R"(
<keyword name="WELLS">
  <validSections><section name="SCHEDULE"/></validSections>
  <validity><simulator name="Carrow"/><simulator name="Sedge"/></validity>
  <data><list><record termination="SLASH">
    <item name="WELL"><string/></item>
    <item name="OPEN"><boolean><default type="specified" val="YES"/></boolean></item>
    <item name="CONTROL"><choice>
      <values><value string="ORAT"/><value string="WRAT"/><value string="GRAT"/></values>
      <default type="specified" val="GRAT"/>
    </choice></item>
    <item name="COUNT"><integer><default type="specified" val="3">
      <override name="Sedge" type="no default"/>
    </default></integer></item>
    <item name="ORAT"><real><default type="calculated"/></real></item>
    <item name="BHP"><real><default type="specified" val="0.5"/></real></item>
    <item name="NOTE"><line><default type="specified" val="a note"/></line></item>
    <item name="LIMITS"><list><real/></list></item>
    <item name="MODES"><list><choice><values><value string="ON"/><value string="OFF"/></values></choice></list></item>
    <item name="PLACE"><record><item name="I"><integer/></item><item><real/></item></record></item>
    <item name="ROWS"><list><list><integer/></list></list></item>
  </record></list></data>
</keyword>)";

class Access : public testing::Test {
protected:
    LoadedTable table{wells};
    std::unique_ptr<IKeywordData> data = KeywordDataFactory::Instance().Construct(table.Get("WELLS"));
    IKeywordListData& list = AsList(*data);
    IKeywordRecordData& well = AddRecord(list);
    const IKeywordRecordData& constWell = well;
};

struct Failure {
    const char* name;
    void (*act)(IKeywordListData& list, IKeywordRecordData& well);
    const char* text;
};

class AccessFailure : public Access, public testing::WithParamInterface<Failure> { };

} // namespace

TEST_F(Access, AScalarIsWhatWasSetUntilItIsCleared)
{
    for (const char* const item : {"WELL", "OPEN", "COUNT", "ORAT", "NOTE", "CONTROL"})
        EXPECT_FALSE(Has(well, item)) << item;
    EXPECT_FALSE(Get<double>(well, "ORAT"));
    Set(well, "WELL", "P1");
    Set(well, std::string("NOTE"), std::string("some text"));
    Set(well, "OPEN", false);
    Set(well, "COUNT", 7);
    Set(well, 4, 900.0);
    SetChoice(well, "CONTROL", "wrat");
    EXPECT_EQ(Dump(well).substr(0, 38), "('P1' 0 1 7 900 - 'some text' [] [] (-");
    EXPECT_EQ(Get<std::string>(well, "WELL").Value(), "P1");
    EXPECT_EQ(Get<std::string>(well, "NOTE").Value(), "some text");
    EXPECT_EQ(Get<bool>(well, "OPEN").Value(), false);
    EXPECT_EQ(Get<int>(well, 3).Value(), 7);
    EXPECT_EQ(Get<double>(well, "ORAT").Value(), 900);
    EXPECT_EQ(GetChoice(well, "CONTROL").Value(), "WRAT");
    Set(well, "ORAT", 0.1F);
    EXPECT_EQ(Get<double>(well, "ORAT").Value(), 0.1) << "not 0.10000000149011612";
    for (const char* const item : {"WELL", "OPEN", "COUNT", "ORAT", "NOTE", "CONTROL"}) {
        EXPECT_TRUE(Has(well, item)) << item;
        Clear(well, item);
        EXPECT_FALSE(Has(well, item)) << item;
    }
    EXPECT_EQ(Dump(well), "(- - - - - - - [] [] (- -) [])");
}

TEST_F(Access, ADefaultIsThatOfTheSimulatorAlone)
{
    const auto carrow = SimulatorType::Carrow;
    EXPECT_EQ(GetOrDefault<bool>(well, "OPEN", carrow).Value(), true);
    EXPECT_EQ(GetOrDefault<int>(well, "COUNT", carrow).Value(), 3);
    EXPECT_FALSE(GetOrDefault<int>(well, "COUNT", SimulatorType::Sedge)) << "no default";
    EXPECT_FALSE(GetOrDefault<double>(well, "ORAT", carrow)) << "calculated";
    EXPECT_EQ(GetOrDefault<double>(well, "BHP", carrow).Value(), 0.5);
    EXPECT_EQ(GetOrDefault<std::string>(well, "NOTE", carrow).Value(), "a note");
    EXPECT_FALSE(GetOrDefault<std::string>(well, "WELL", carrow)) << "nothing said";
    EXPECT_EQ(GetChoiceOrDefault(well, "CONTROL", carrow).Value(), "GRAT");
    Set(well, "COUNT", 0);
    Set(well, "NOTE", "");
    SetChoice(well, "CONTROL", "ORAT");
    EXPECT_EQ(GetOrDefault<int>(well, "COUNT", carrow).Value(), 0);
    EXPECT_EQ(GetOrDefault<std::string>(well, "NOTE", carrow).Value(), "");
    EXPECT_EQ(GetChoiceOrDefault(well, "CONTROL", carrow).Value(), "ORAT");
}

TEST_F(Access, ContainersInARecordAreItsOwn)
{
    IKeywordListData& limits = ListIn(well, "LIMITS");
    AddValue(limits, 1.5);
    const std::vector<double> more{2, 3};
    AddValues(limits, more.data(), more.size());
    SetValueAt(limits, 1, 4.0);
    EXPECT_EQ(As<double>(ListIn(constWell, "LIMITS"))[2], 3);
    AddChoice(ListIn(well, "MODES"), "OFF");
    AddChoice(ListIn(well, "MODES"), "OFF");
    SetChoiceAt(ListIn(well, "MODES"), 1, "ON");
    EXPECT_EQ(ChoiceAt(ListIn(constWell, "MODES"), 0), "OFF");
    EXPECT_EQ(ChoiceAt(ListIn(constWell, "MODES"), 1), "ON");
    Set(RecordIn(well, "PLACE"), "I", 5);
    EXPECT_EQ(Get<int>(RecordIn(constWell, "PLACE"), 0).Value(), 5);
    AddValue(AddList(ListIn(well, "ROWS")), 6);
    EXPECT_EQ(As<int>(ListAt(ListIn(constWell, "ROWS"), 0))[0], 6);
    EXPECT_EQ(Dump(well), "(- - - - - - - [1.5 4 3] [1 0] (5 -) [[6]])");
}

TEST_F(Access, RecordsOfAListComeInOrderAndMayBeChanged)
{
    AddRecord(list);
    int number = 0;
    for (IKeywordRecordData& record : Records(list))
        Set(record, "COUNT", ++number);
    std::vector<int> numbers;
    for (const IKeywordRecordData& record : Records(std::as_const(list)))
        numbers.push_back(Get<int>(record, "COUNT").Value());
    EXPECT_EQ(numbers, (std::vector<int>{1, 2}));
    EXPECT_EQ(Records(list).size(), 2U);
    EXPECT_EQ(&RecordAt(list, 0), &well);
    EXPECT_EQ(Get<int>(RecordAt(std::as_const(list), 1), "COUNT").Value(), 2);
    list.Clear();
    EXPECT_TRUE(Records(list).empty());
}

TEST_F(Access, AStopOfAWalkIsReadAsItsType)
{
    Set(well, "WELL", "P1");
    SetChoice(well, "CONTROL", "WRAT");
    AddValue(ListIn(well, "LIMITS"), 2.5);
    std::string text;
    for (ConstDataIterator it(*data); it != ConstDataIterator::End(); ++it) {
        if (it->md->GetType() == MDType::String)
            text += Get<std::string>(**it).Value();
        else if (it->md->GetType() == MDType::Choice)
            text += ' ' + GetChoice(**it).Value();
        else if (it->md->GetType() == MDType::Real)
            text += ' ' + std::to_string(Get<double>(**it).ValueOr(-1));
        if (it->md->GetName() == "PLACE") {
            EXPECT_EQ(FailureOf([&] { Get<int>(**it); }), "item 'PLACE' is Record, not Integer");
        }
    }
    EXPECT_EQ(text, "P1 WRAT -1.000000 -1.000000 2.500000 -1.000000");
}

TEST_F(Access, AStoredIndexThatIsNoChoiceIsReported)
{
    *static_cast<Service::Optional<int>*>(well.GetData(2)) = 9;
    EXPECT_EQ(FailureOf([&] { GetChoice(well, "CONTROL"); }),
        "WELLS: item 'CONTROL' holds 9, which is not the index of a choice; expected 0 to 2");
}

TEST_P(AccessFailure, SaysExactlyAndChangesNothing)
{
    const std::string before = Dump(list);
    try {
        GetParam().act(list, well);
        ADD_FAILURE() << "accepted";
    } catch (const DataAccessError& error) {
        EXPECT_STREQ(error.what(), GetParam().text);
    }
    EXPECT_EQ(Dump(list), before);
}

using L = IKeywordListData&;
using R = IKeywordRecordData&;
INSTANTIATE_TEST_SUITE_P(Items, AccessFailure,
    testing::Values(Failure{"Transposed", [](L, R w) { Get<double>(w, "ORTA"); },
                        "WELLS: no item 'ORTA'; did you mean 'ORAT'?"},
        Failure{"LeftOut", [](L, R w) { Get<double>(w, "BP"); }, "WELLS: no item 'BP'; did you mean 'BHP'?"},
        Failure{"Case", [](L, R w) { Has(w, "orat"); }, "WELLS: no item 'orat'; did you mean 'ORAT'?"},
        Failure{"Unknown", [](L, R w) { Clear(w, "PRESSURE"); },
            "WELLS: no item 'PRESSURE'; expected 'WELL', 'OPEN', 'CONTROL', 'COUNT', 'ORAT', 'BHP', 'NOTE', "
            "'LIMITS', "
            "'MODES', 'PLACE' or 'ROWS'"},
        Failure{"NullName", [](L, R w) { Has(w, static_cast<const char*>(nullptr)); },
            "WELLS: item index -1 is out of range; the record has 11 items"},
        Failure{"NullText", [](L, R w) { Set(w, "WELL", static_cast<const char*>(nullptr)); },
            "a text is a null pointer"},
        Failure{"NoName", [](L, R w) { Has(RecordIn(w, "PLACE"), "NAME"); },
            "WELLS: no item 'NAME'; expected 'I'"},
        Failure{"ItemWithoutAName", [](L, R w) { Get<int>(RecordIn(w, "PLACE"), 1); },
            "WELLS: item at index 1 is Real, not Integer"},
        Failure{"Index", [](L, R w) { Get<int>(w, 11); },
            "WELLS: item index 11 is out of range; the record has 11 items"},
        Failure{"NegativeIndex", [](L, R w) { Get<int>(w, -1); },
            "WELLS: item index -1 is out of range; the record has 11 items"}),
    CaseName<Failure>);

INSTANTIATE_TEST_SUITE_P(Types, AccessFailure,
    testing::Values(Failure{"TextOfReal", [](L, R w) { Get<std::string>(w, "ORAT"); },
                        "WELLS: item 'ORAT' is Real, not String"},
        Failure{"RealOfInteger", [](L, R w) { GetOrDefault<double>(w, "COUNT", SimulatorType::Carrow); },
            "WELLS: item 'COUNT' is Integer, not Real"},
        Failure{"IntegerIntoReal", [](L, R w) { Set(w, "ORAT", 900); },
            "WELLS: item 'ORAT' is Real, not Integer"},
        Failure{"LiteralIntoBoolean", [](L, R w) { Set(w, "OPEN", "YES"); },
            "WELLS: item 'OPEN' is Boolean, not String"},
        Failure{"IndexOfChoice", [](L, R w) { Get<int>(w, "CONTROL"); },
            "WELLS: item 'CONTROL' is Choice, not Integer"},
        Failure{
            "WordOfText", [](L, R w) { GetChoice(w, "WELL"); }, "WELLS: item 'WELL' is String, not Choice"},
        Failure{"HasList", [](L, R w) { Has(w, "LIMITS"); }, "WELLS: item 'LIMITS' is List, not a scalar"},
        Failure{
            "ClearRecord", [](L, R w) { Clear(w, "PLACE"); }, "WELLS: item 'PLACE' is Record, not a scalar"},
        Failure{"ListOfScalar", [](L, R w) { ListIn(w, "WELL"); }, "WELLS: item 'WELL' is String, not List"},
        Failure{"RecordOfList", [](L, R w) { RecordIn(w, "LIMITS"); },
            "WELLS: item 'LIMITS' is List, not Record"},
        Failure{"MapOfList", [](L, R w) { MapIn(w, 7); }, "WELLS: item 'LIMITS' is List, not Map"},
        Failure{"RawOfList", [](L, R w) { RawIn(w, 7); }, "WELLS: item 'LIMITS' is List, not Raw"},
        Failure{"DataAsRecord", [](L l, R) { AsRecord(l); }, "WELLS: the data is List, not Record"},
        Failure{"DataAsMap", [](L l, R) { AsMap(l); }, "WELLS: the data is List, not Map"},
        Failure{"DataAsList", [](L, R w) { AsList(w); }, "WELLS: the data is Record, not List"},
        Failure{"DataAsRaw", [](L, R w) { AsRaw(w); }, "WELLS: the data is Record, not Raw"},
        Failure{
            "MetadataAsRecord", [](L l, R) { AsRecord(*l.GetMD()); }, "the metadata is List, not Record"}),
    CaseName<Failure>);

INSTANTIATE_TEST_SUITE_P(ValuesToSet, AccessFailure,
    testing::Values(Failure{"UnknownWord", [](L, R w) { SetChoice(w, "CONTROL", "OIL"); },
                        "WELLS: item 'CONTROL' has no choice 'OIL'; expected 'ORAT', 'WRAT' or 'GRAT'"},
        Failure{"Abbreviation", [](L, R w) { AddChoice(ListIn(w, "MODES"), "O"); },
            "WELLS: list element has no choice 'O'; expected 'ON' or 'OFF'"},
        Failure{"IntegerThatMeansNone", [](L, R w) { Set(w, "COUNT", INT_MIN); },
            "WELLS: item 'COUNT' cannot hold the value that stands for 'not given'"},
        Failure{"RealThatMeansNone", [](L, R w) { Set(w, "ORAT", DBL_MIN); },
            "WELLS: item 'ORAT' cannot hold the value that stands for 'not given'"}),
    CaseName<Failure>);

INSTANTIATE_TEST_SUITE_P(Lists, AccessFailure,
    testing::Values(Failure{"ValuesOfOtherType", [](L, R w) { As<int>(ListIn(w, "LIMITS")); },
                        "WELLS: list element is Real, not Integer"},
        Failure{"ValuesOfRecords", [](L l, R) { As<double>(l); }, "WELLS: list element is Record, not Real"},
        Failure{"AddOtherType", [](L, R w) { AddValue(ListIn(w, "LIMITS"), 3); },
            "WELLS: list element is Real, not Integer"},
        Failure{"AddArrayToRecords",
            [](L l, R) {
                const int number = 1;
                AddValues(l, &number, 1);
            },
            "WELLS: list element is Record, not Integer"},
        Failure{"ValueIndex", [](L, R w) { ValueAt<double>(ListIn(w, "LIMITS"), 0); },
            "WELLS: element index 0 is out of range; the list has 0 elements"},
        Failure{"UnknownIndex", [](L, R w) { IsUnknown(ListIn(w, "LIMITS"), 0); },
            "WELLS: element index 0 is out of range; the list has 0 elements"},
        Failure{"UnknownRecord", [](L l, R) { AddUnknown(l); },
            "WELLS: list element is Record, not Integer, Real or Boolean"},
        Failure{"SetIndex", [](L, R w) { SetValueAt(ListIn(w, "LIMITS"), 0, 1.0); },
            "WELLS: element index 0 is out of range; the list has 0 elements"},
        Failure{"ChoiceIndex", [](L, R w) { SetChoiceAt(ListIn(w, "MODES"), 2, "ON"); },
            "WELLS: element index 2 is out of range; the list has 0 elements"},
        Failure{"RecordIndex", [](L l, R) { RecordAt(l, 1); },
            "WELLS: element index 1 is out of range; the list has 1 element"},
        Failure{"RecordsOfValues", [](L, R w) { Records(ListIn(w, "LIMITS")); },
            "WELLS: list element is Real, not Record"},
        Failure{"AddRecordToLists", [](L, R w) { AddRecord(ListIn(w, "ROWS")); },
            "WELLS: list element is List, not Record"},
        Failure{"AddListToValues", [](L, R w) { AddList(ListIn(w, "LIMITS")); },
            "WELLS: list element is Real, not List"}),
    CaseName<Failure>);
