#include "quor/deck/ValueAddress.h"

#include "tests/deck/EditorLanguage.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Core::Decks;
using Veld::Quor::Core::Keywords::ItemKey;
using namespace Veld::Quor::Tests;

namespace {

struct PrintRow {
    const char* name;
    ValueAddress address;
    const char* text;
};

class Printed : public testing::TestWithParam<PrintRow> { };

TEST_P(Printed, IsParsedAsTheSame)
{
    EXPECT_EQ(GetParam().address.ToString(), GetParam().text);
    EXPECT_TRUE(ValueAddress::Parse(GetParam().text) == GetParam().address);
    ValueAddress other = GetParam().address;
    other.number = 99;
    EXPECT_TRUE(ValueAddress::Parse(GetParam().text) != other);
}

INSTANTIATE_TEST_SUITE_P(Addresses, Printed,
    testing::Values(
        PrintRow{"Whole", {"WCONPROD", {"P1"}, {"ORAT"}, "2024-04-01"}, "WCONPROD[P1].ORAT@2024-04-01"},
        PrintRow{"Keyword", {"PORO"}, "PORO"}, PrintRow{"Number", {"PORO", {"17"}}, "PORO[17]"},
        PrintRow{"Negative", {"A", {"-1", "1*", "P*"}}, "A[-1,1*,P*]"},
        PrintRow{"Several", {"A", {"B", "C D", "0.5"}, {"E", "2", "F"}, "2024-04-01 12:30:00.500", 3},
            "A[B,'C D','0.5'].E.2.F@2024-04-01 12:30:00.500#3"},
        PrintRow{"LateYear", {"A", {"B"}, {}, "32767-12-31 23:59:59"}, "A[B]@32767-12-31 23:59:59"},
        PrintRow{"Quotes", {"A", {"it's", "\"", ""}}, "A['it''s','\"','']"},
        PrintRow{"Special", {"A.B", {"[", "]", ",", "@", "#"}, {"P.Q", "\n"}},
            "'A.B'['[',']',',','@','#'].'P.Q'.'\n'"},
        PrintRow{"Nothing", {"", {}, {""}}, "''.''"}),
    CaseName<PrintRow>);

/// An address, and where something else is expected, with the text.
class Malformed : public testing::TestWithParam<Row> { };

TEST_P(Malformed, SaysWhatIsExpectedWhere)
{
    try {
        ValueAddress::Parse(GetParam().text);
        FAIL() << "no exception";
    } catch (const AddressError& error) {
        EXPECT_EQ(std::to_string(error.GetPosition()) + ' ' + error.what(), GetParam().expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Addresses, Malformed, testing::ValuesIn(Rows(R"(
NoKeyword: [P1] => 0 invalid address '[P1]': expected the name of a keyword at character 1
OpenBracket: A[P1 => 4 invalid address 'A[P1': expected ',' or ']' at the end
EmptyBrackets: A[] => 2 invalid address 'A[]': expected an identifier or a number at character 3
BlankInIdentifier: A[ B C] => 5 invalid address 'A[ B C]': expected ',' or ']' at character 6
NoItem: A[B].@x => 5 invalid address 'A[B].@x': expected the name of an item at character 6
NoDate: A@ => 2 invalid address 'A@': expected a valid date such as 2024-04-01 or 2024-04-01 12:30:00 at the end
MonthOnly: A@2023-01#2 => 2 invalid address 'A@2023-01#2': expected a valid date such as 2024-04-01 or 2024-04-01 12:30:00 at character 3
NoSuchMonth: A@9999-99-99 => 2 invalid address 'A@9999-99-99': expected a valid date such as 2024-04-01 or 2024-04-01 12:30:00 at character 3
NoSuchDay: A@2023-02-30 => 2 invalid address 'A@2023-02-30': expected a valid date such as 2024-04-01 or 2024-04-01 12:30:00 at character 3
NoSuchYear: A@32768-01-01 => 2 invalid address 'A@32768-01-01': expected a valid date such as 2024-04-01 or 2024-04-01 12:30:00 at character 3
ZeroBeforeAYear: A@02024-01-01 => 2 invalid address 'A@02024-01-01': expected a valid date such as 2024-04-01 or 2024-04-01 12:30:00 at character 3
ItemAfterADate: A@2024-04-01.B => 2 invalid address 'A@2024-04-01.B': expected a valid date such as 2024-04-01 or 2024-04-01 12:30:00 at character 3
NoNumber: A#0 => 2 invalid address 'A#0': expected a number, 1 or greater, at character 3
OpenQuote: A['B => 4 invalid address 'A['B': expected a closing quote at the end
TextAfterAKeyword: A] => 1 invalid address 'A]': expected '[', '.', '@', '#' or the end at character 2
TextAfterARecord: A[B]C => 4 invalid address 'A[B]C': expected '.', '@', '#' or the end at character 5
RecordAfterAnItem: A.B[1] => 3 invalid address 'A.B[1]': expected '.', '@', '#' or the end at character 4
TextAfterANumber: A#1.B => 3 invalid address 'A#1.B': expected the end at character 4
)")),
    CaseName<Row>);

const char* const deckText = R"(TITLE
  A title
BOX
  1 2 2* 5 /
WHOLE
  7 3*8 /
NAMES
  'A B' C /
TABLES
  0 1  2 3 /
  4 5 /
NESTED
  1  2 3  4 5 /
  6  7 8 /
/
MAP
  A=2 /
EMPTY
/
START
  1 MAR 2024 /
SCHEDULE
WELLS
  P1 OIL 100 /
  'P*' 1* 50 3 /
/
DATES
  1 APR 2024 /
/
WELLS
  P1 WATER 2* YES /
  P1 OIL /
/
CELLS
  a 1 0.50 2.5 /
  A 1 0.50 3.5 /
  A 2 1* 4.5 /
/
DATES
  1 APR 2024 12:30:00 /
/
WELLS
  P1 OIL 9 /
/
)";

struct PlaceRow {
    const char* name;
    const char* address;
    const char* places; ///< "full address = text in the deck", one to a line
};

class Places : public testing::TestWithParam<PlaceRow> { };

std::string Listed(const Deck& deck, const std::vector<DeckValue>& places)
{
    std::string text;
    for (const DeckValue& place : places) {
        const std::string_view word = place.range ? deck.GetFiles().GetText(*place.range) : "no range";
        text.append(text.empty() ? "" : "\n").append(place.address.ToString()).append(" = ").append(word);
    }
    return text;
}

TEST_P(Places, LeadToTheRecord)
{
    const Deck deck = ReadEditable(deckText);
    ASSERT_TRUE(deck.IsClean());
    const auto places = Resolve(deck, ValueAddress::Parse(GetParam().address));
    EXPECT_EQ(Listed(deck, places), GetParam().places);
    for (const DeckValue& place : places) {
        const DeckValue again = ResolveOne(deck, place.address);
        EXPECT_TRUE(again.address == place.address);
        EXPECT_EQ(again.path, place.path);
        EXPECT_TRUE(ResolvePath(deck, place.keyword, place.path).address == place.address);
    }
}

INSTANTIATE_TEST_SUITE_P(Addresses, Places,
    testing::Values(PlaceRow{"AtADate", "WELLS[P1].RATE@2024-03-01", "WELLS[P1].RATE@2024-03-01 = 100"},
        PlaceRow{"WithATime", "WELLS[P1].RATE@2024-04-01 12:30:00", "WELLS[P1].RATE@2024-04-01 12:30:00 = 9"},
        PlaceRow{"InAnyCase", "wells[p1].rate@2024-03-01", "WELLS[P1].RATE@2024-03-01 = 100"},
        PlaceRow{"AtAllDates", "WELLS[P1].KIND",
            "WELLS[P1].KIND@2024-03-01 = OIL\nWELLS[P1].KIND@2024-04-01#1 = WATER\n"
            "WELLS[P1].KIND@2024-04-01#2 = OIL\nWELLS[P1].KIND@2024-04-01 12:30:00 = OIL"},
        PlaceRow{"OneOfSeveral", "WELLS[P1].KIND@2024-04-01#2", "WELLS[P1].KIND@2024-04-01#2 = OIL"},
        PlaceRow{"NoPatterns", "WELLS['P*'].RATE", "WELLS[P*].RATE@2024-03-01 = 50"},
        PlaceRow{"AWholeRecord", "WELLS[P*]@2024-03-01",
            "WELLS[P*].WELL@2024-03-01 = 'P*'\nWELLS[P*].KIND@2024-03-01 = 1*\n"
            "WELLS[P*].RATE@2024-03-01 = 50\nWELLS[P*].COUNT@2024-03-01 = 3\nWELLS[P*].ON@2024-03-01 = \n"
            "WELLS[P*].NOTE@2024-03-01 = "},
        PlaceRow{"CaseMatters", "CELLS[a].SKIN", "CELLS[a,1,'0.5'].SKIN@2024-04-01 = 2.5"},
        PlaceRow{"NumbersAsNumbers", "CELLS[A,01,'5e-1'].SKIN", "CELLS[A,1,'0.5'].SKIN@2024-04-01 = 3.5"},
        PlaceRow{"IdentifierNotGiven", "CELLS[A,2,1*].SKIN", "CELLS[A,2,1*].SKIN@2024-04-01 = 4.5"},
        PlaceRow{"SomeIdentifiers", "CELLS[A].SKIN",
            "CELLS[A,1,'0.5'].SKIN@2024-04-01 = 3.5\nCELLS[A,2,1*].SKIN@2024-04-01 = 4.5"},
        PlaceRow{"SingleRecord", "BOX.K1", "BOX.K1 = 5"},
        PlaceRow{"SingleRecordByNumber", "BOX[1].I2", "BOX.I2 = 2"},
        PlaceRow{"Line", "TITLE.T", "TITLE.T = A title"},
        PlaceRow{"ValueOfAList", "WHOLE[3]", "WHOLE[3] = 3*8"},
        PlaceRow{"QuotedText", "NAMES[1]", "NAMES[1] = 'A B'"},
        PlaceRow{"ListOfLists", "TABLES[1].2.Y", "TABLES[1].2.Y = 3"},
        PlaceRow{"AList", "TABLES[2]", "TABLES[2].1.X = 4\nTABLES[2].1.Y = 5"},
        PlaceRow{"NestedAndWithoutAName", "NESTED[2].ROWS.1",
            "NESTED[2].ROWS.1.'P.Q' = 7\nNESTED[2].ROWS.1.2 = 8"},
        PlaceRow{"OfAMap", "MAP.A", ""}, PlaceRow{"NoSuchKeyword", "WELL[P1]", ""},
        PlaceRow{"NoSuchRecord", "WELLS[P2].RATE", ""},
        PlaceRow{"TooManyIdentifiers", "WELLS[P1,2].RATE", ""}, PlaceRow{"NoSuchItem", "WELLS[P1].RAT", ""},
        PlaceRow{"NoSuchElement", "WHOLE[5]", ""}, PlaceRow{"TooManyNumbers", "WHOLE[3,1]", ""},
        PlaceRow{"ItemOfAValue", "WHOLE[1].A", ""}, PlaceRow{"NoSuchNumber", "WELLS[P1].KIND#5", ""}),
    CaseName<PlaceRow>);

TEST(Address, WithoutADateCountsValuesThatHaveOne)
{
    const Deck deck =
        ReadEditable("NAMES\n A B /\nSTART\n 1 MAR 2024 /\nNAMES\n C /\nSCHEDULE\nNAMES\n D /\n");
    const auto places = Resolve(deck, {"NAMES"});
    EXPECT_EQ(Listed(deck, places), "NAMES[1]#1 = A\nNAMES[2] = B\nNAMES[1]#2 = C\nNAMES[1]@2024-03-01 = D");
    for (const DeckValue& place : places)
        EXPECT_EQ(ResolveOne(deck, place.address).text, place.text);
}

struct AdviceRow {
    const char* name;
    const char* address;
    const char* message;
};

class Advice : public testing::TestWithParam<AdviceRow> { };

TEST_P(Advice, SaysWhatIsMissing)
{
    const Deck deck = ReadEditable(deckText);
    try {
        ResolveOne(deck, ValueAddress::Parse(GetParam().address));
        FAIL() << "no exception";
    } catch (const AddressError& error) {
        EXPECT_STREQ(error.what(), GetParam().message);
        EXPECT_EQ(error.GetPosition(), AddressError::noPosition);
    }
}

INSTANTIATE_TEST_SUITE_P(Addresses, Advice,
    testing::Values(
        AdviceRow{"Keyword", "WELS[P1].RATE", "the deck has no keyword 'WELS'; did you mean WELLS?"},
        AdviceRow{"ControlCharacters", "'W\n'", "the deck has no keyword 'W?'"},
        AdviceRow{"NoKeyword", "''", "the address has no keyword"},
        AdviceRow{"Date", "WELLS[P1].RATE@2024-03-02",
            "the deck has no report step at 2024-03-02; WELLS[P1].RATE is given at 2024-03-01, 2024-04-01, "
            "2024-04-01 12:30:00"},
        AdviceRow{"OtherDate", "CELLS[a].SKIN@2024-03-01",
            "CELLS[a].SKIN is not given at 2024-03-01; given at 2024-04-01"},
        AdviceRow{"DateWhereNoneIs", "BOX.I1@2024-03-01", "BOX.I1 has no date; remove '@2024-03-01'"},
        AdviceRow{"RecordAtADateWithoutAny", "WELLS[P4].RATE@2023-01-01",
            "WELLS has no record [P4]; did you mean [P1], [P*]?"},
        AdviceRow{"Record", "WELLS[P2].RATE@2024-03-01",
            "WELLS at 2024-03-01 has no record [P2]; did you mean [P1], [P*]?"},
        AdviceRow{"Element", "WHOLE[30]", "WHOLE has no value [30] (it has 4 values)"},
        AdviceRow{"RecordWithANumber", "NESTED[3].HEAD", "NESTED has no record [3] (it has 2 records)"},
        AdviceRow{
            "SingleRecord", "BOX[2].I1", "BOX is a single record; expected an address without brackets"},
        AdviceRow{"Item", "WELLS[P1].RAET@2024-03-01", "WELLS has no item 'RAET'; did you mean RATE?"},
        AdviceRow{"ItemUnlikeAny", "BOX.NOTHING",
            "BOX has no item 'NOTHING'; expected one of I1, I2, J1, J2, K1, K2"},
        AdviceRow{"ItemUnlikeTheOnlyOne", "TITLE.NOTHING", "TITLE has no item 'NOTHING'; expected T"},
        AdviceRow{"NestedItem", "NESTED[1].rows.3",
            "NESTED has no value 'rows.3'; 'rows' has ROWS.1.P.Q, ROWS.1.2, ROWS.2.P.Q, ROWS.2.2"},
        AdviceRow{
            "ItemOfAValue", "BOX.I1.X", "BOX has no value 'I1.X'; 'I1' is a single value without items"},
        AdviceRow{"AddADate", "WELLS[P1].RATE",
            "WELLS[P1].RATE matches 4 values; add a date: 2024-03-01, 2024-04-01, 2024-04-01 12:30:00"},
        AdviceRow{"AddAnItem", "WELLS[P1]@2024-03-01",
            "WELLS[P1]@2024-03-01 matches 6 values; add an item: WELL, KIND, RATE, COUNT, ON, NOTE"},
        AdviceRow{"AddTheRecord", "WELLS.RATE@2024-03-01",
            "WELLS.RATE@2024-03-01 matches 2 values; add the record: [P1], [P*]"},
        AdviceRow{"AddANumber", "WELLS[P1].RATE@2024-04-01",
            "WELLS[P1].RATE@2024-04-01 matches 2 values; add a number: #1 to #2"},
        AdviceRow{"Number", "WELLS[P1].RATE@2024-04-01#3",
            "WELLS[P1].RATE@2024-04-01#3 does not exist: the rest of the address matches 2 values"},
        AdviceRow{"Map", "MAP.A", "the values of MAP have no addresses"},
        AdviceRow{"Data", "schedule.X", "schedule has no data"},
        AdviceRow{"Values", "EMPTY[1]", "EMPTY has no values"}),
    CaseName<AdviceRow>);

TEST(Addresses, GoByTheNearestDates)
{
    std::string text = "START\n 1 JAN 2020 /\nSCHEDULE\n";
    for (int day = 1; day <= 20; ++day)
        text += "DATES\n " + std::to_string(day) + " FEB 2020 /\n/\nWHOLE\n 1 /\n";
    const Deck deck = ReadEditable(text);
    const auto advice = [&](const char* address) {
        return ReasonOf([&] { ResolveOne(deck, ValueAddress::Parse(address)); });
    };
    EXPECT_EQ(advice("WHOLE[1]@2020-02-10 12:00:00"),
        "the deck has no report step at 2020-02-10 12:00:00; WHOLE[1] is given at 2020-02-09, 2020-02-10, "
        "2020-02-11, 2020-02-12 and 16 others");
    EXPECT_EQ(advice("WHOLE[1]@2021-01-01"),
        "the deck has no report step at 2021-01-01; WHOLE[1] is given at 2020-02-17, 2020-02-18, 2020-02-19, "
        "2020-02-20 and 16 others");
    EXPECT_EQ(
        ResolveOne(deck, ValueAddress::Parse("WHOLE[1]@2020-02-10 00:00:00.000")).address.date, "2020-02-10");
    EXPECT_EQ(ReasonOf([] { ValueAddress::Parse(""); }),
        "the address is empty; expected the name of a keyword, as in DIMENS.NX");
}

TEST(Addresses, HaveADateUpToTheYear32767)
{
    const Deck deck = ReadEditable("START\n 1 JAN 12000 /\nSCHEDULE\nWHOLE\n 1 /\nDATES\n 1 JAN 32767 /\n/\n"
                                   "WHOLE\n 2 /\n");
    EXPECT_EQ(Listed(deck, Resolve(deck, {"WHOLE"})), "WHOLE[1]@12000-01-01 = 1\nWHOLE[1]@32767-01-01 = 2");
    EXPECT_EQ(ResolveOne(deck, ValueAddress::Parse("WHOLE[1]@12000-01-01")).text, "1");
    EXPECT_EQ(deck.FindStep("32767-01-01"), 0U);
}

TEST(Addresses, AreMadeOfRecordsAndItems)
{
    const Deck deck = ReadEditable(deckText);
    EXPECT_EQ(AddressOf(deck, deck.Get("WELLS"), 0, "RATE").ToString(), "WELLS[P1].RATE@2024-04-01 12:30:00");
    EXPECT_EQ(AddressOf(deck, deck.Get("BOX"), 0, 2).ToString(), "BOX.J1");
    const auto refused = [&](const char* keyword, std::size_t record, ItemKey item) {
        return ReasonOf([&] { AddressOf(deck, deck.Get(keyword), record, item); });
    };
    EXPECT_EQ(refused("WELLS", 1, "RATE"), "WELLS: record index 1 is out of range (it has 1 record)");
    EXPECT_EQ(refused("WELLS", 0, "RAET"), "WELLS has no item 'RAET'; did you mean RATE?");
    EXPECT_EQ(refused("BOX", 0, "RATE"), "BOX has no item 'RATE'; expected one of I1, I2, J1, J2, K1, K2");
    EXPECT_EQ(refused("BOX", 0, 6), "BOX: item index 6 is out of range (the record has 6 items)");
    EXPECT_EQ(refused("NESTED", 0, "ROWS"), "NESTED: item 'ROWS' is a List, not a single value");
    EXPECT_EQ(refused("WHOLE", 0, "A"), "WHOLE has no records with items");
    EXPECT_EQ(
        ReasonOf([&] { ResolvePath(deck, deck.Get("WHOLE"), {4}); }), "WHOLE has no value at the path {4}");
    EXPECT_EQ(ReasonOf([&] {
        ResolvePath(deck, deck.Get("WELLS"), {0, 9});
    }),
        "WELLS has no value at the path {0, 9}");
}

TEST(Addresses, HaveNoRangesUnlessTheDeckIsEditable)
{
    const Deck deck = Deck::ReadText("RUNSPEC\nWHOLE\n 1 /\n", GetEditorLanguage());
    const DeckValue place = ResolveOne(deck, ValueAddress::Parse("WHOLE[1]"));
    EXPECT_FALSE(place.range);
    EXPECT_EQ(place.text, "1");
}

} // namespace
