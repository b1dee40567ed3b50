#include "quor/deck/DeckEditor.h"

#include "quor/data/Access.h"
#include "quor/data/KeywordDataFactory.h"
#include "tests/deck/EditorChanges.h"
#include "tests/deck/EditorLanguage.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

struct RefusalRow {
    const char* name;
    const char* deck;
    EditStep change;
    const char* message;
    EditStep before = {};
};

class Refusals : public testing::TestWithParam<RefusalRow> { };

TEST_P(Refusals, ChangeNothing)
{
    const RefusalRow& row = GetParam();
    const Deck deck = ReadEditable(row.deck);
    DeckEditor editor(deck);
    if (row.before)
        row.before(editor, deck);
    const std::string text = editor.GetText(0);
    try {
        row.change(editor, deck);
        FAIL() << "no exception: " << editor.GetText(0);
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), row.message);
    }
    EXPECT_EQ(editor.GetText(0), text);
}

const char* const rowsText = "ROWS\n 1 2 /\n 3 4 /\n/\n";

const RefusalRow valueRows[] = {
    {"Address", rowsText, Set("ROWS[1", 1), "invalid address 'ROWS[1': expected ',' or ']' at the end"},
    {"SeveralValues", rowsText, Set("ROWS.A", 1), "ROWS.A matches 2 values; add the record: [1], [2]"},
    {"RealForInteger", rowsText, Set("ROWS[1].A", 1.0), "ROWS: item 'A' is Integer, not Real"},
    {"TextForInteger", rowsText, Set("ROWS[1].A", "1"), "ROWS: item 'A' is Integer, not String"},
    {"IntegerForReal", "ARRAY\n 1 /\n", Set("ARRAY[1]", 1), "ARRAY: the value is Real, not Integer"},
    {"UnknownWord", "WELLS\n P1 OIL /\n/\n", Set("WELLS[P1].KIND", "GAS"),
        "WELLS: item 'KIND' has no choice 'GAS'; expected one of OIL, WATER"},
    {"Infinity", "ARRAY\n 1 /\n", Set("ARRAY[1]", std::numeric_limits<double>::infinity()),
        "ARRAY: the value: a deck can't hold the number inf"},
    {"BothQuotes", "NAMES\n A /\n", Set("NAMES[1]", "'\""),
        "NAMES: the value: can't write the text ''\"': it contains both kinds of quotes"},
    {"Variable", "NAMES\n A /\n", Set("NAMES[1]", "A$X"),
        "NAMES: the value: can't write the text 'A$X': it is read as a variable"},
    {"Blank", "WELLS\n P1 /\n/\n", Set("WELLS[P1].NOTE", "\t"),
        "WELLS: item 'NOTE': can't write the text '?': a blank text is read as the default"},
    {"BlanksAround", "NAMES\n A /\n", Set("NAMES[1]", " P "),
        "NAMES: the value: can't write the text ' P ': the blanks around it are not read"},
    {"LineOfSeveral", "TITLE\n A\n", Set("TITLE.T", "A\nB"),
        "TITLE: item 'T': can't write the line 'A?B': it contains a line break"},
    {"BlankLine", "TITLE\n A\n", Set("TITLE.T", "\v-- B"),
        "TITLE: item 'T': can't write the line '?-- B': a blank line or a comment is not read"},
    {"BlanksAroundALine", "TITLE\n A\n", Set("TITLE.T", "A "),
        "TITLE: item 'T': can't write the line 'A ': the blanks around it are not read"},
    {"LineWithASlash", "LINES\n A\n/\n", Set("LINES[1]", "/ A"),
        "LINES: the value: can't write the line '/ A': a slash at its start may end the data"},
    {"LineThatEndsItsList", "TEXTS\n A\n STOP\n", Set("TEXTS[1]", "STOP -- c"),
        "TEXTS: the value: can't write the line 'STOP -- c': it ends the list"},
    {"NoDefault", rowsText, Clear("ROWS[1].A"), "ROWS: item 'A' has no default"},
    {"NoDefaultInAList", "WHOLE\n 1 /\n", Clear("WHOLE[1]"), "WHOLE: the value has no default"},
    {"GivenByAVariable", "WHOLE\n 1 $X /\n", Set("WHOLE[2]", 1), "WHOLE[2] is given by a variable: $X"},
    {"HiddenByErrors", "NAMES\n A /\nROWS\n 1 2 3 /\n 4\n", Set("ROWS[2].B", 1),
        "errors in ROWS hide where its values are"},
    {"OfAKeywordAlone", "MULTSAVE\nWHOLE\n 1 /\n", Set("MULTSAVE.A", 1),
        "MULTSAVE is without its data; write them after it"},
    {"NotGivenAfterAnError", "ROWS\n x /\n 4 /\n/\n", Set("ROWS[2].B", 1),
        "ROWS: errors in the keyword hide where the value would be"},
    {"NotGivenAfterOtherData", "MIXED\n 1 2 /\n", Set("MIXED.LAST", 1),
        "MIXED: the value isn't given, and other data are between it and the last value before it"},
    {"NothingGiven", "BOX/\n", Set("BOX.I1", 1), "BOX: the record is empty"},
    {"LineNotGiven", "TITLE\n\nFLAG\n", Set("TITLE.T", "a b"), "TITLE: the line isn't given"},
    {"LongRepeat", "FIXED\n 1 /\n 2 3*4 /\n", Set("FIXED[2].B", 1),
        "FIXED: errors in the keyword hide which values its words stand for"},
    {"InARemovedRecord", rowsText, Set("ROWS[2].A", 1), "ROWS: the record was removed earlier",
        Remove("ROWS", 1)},
    {"InARemovedKeyword", rowsText, Set("ROWS[2].A", 1), "ROWS: the keyword was removed earlier",
        Remove("ROWS")},
    {"InAReplacedArray", "WHOLE\n 1 /\n", Set("WHOLE[1]", 2), "WHOLE: its array was replaced earlier",
        Array("WHOLE", {3})}};

const RefusalRow otherRows[] = {
    {"ArrayOfAnotherType", "WHOLE\n 1 /\n", Reals("WHOLE", {1}), "WHOLE is not a list of Real values"},
    {"ArrayWithTheNumberForNoValue", "WHOLE\n 1 /\n", Array("WHOLE", {1, std::numeric_limits<int>::min()}),
        "WHOLE: value 2 of the array: a deck can't hold the number -2147483648"},
    {"ArrayOfRecords", rowsText, Array("ROWS", {1}), "ROWS is not a list of Integer values"},
    {"ArrayAfterAValue", "WHOLE\n 1 /\n", Array("WHOLE", {1}), "WHOLE: one of its values was changed earlier",
        Set("WHOLE[1]", 2)},
    {"MarkOfNoValue", "WHOLE\n 1 /\n", Set("WHOLE[1]", std::numeric_limits<int>::min()),
        "WHOLE: the value: a deck can't hold the number -2147483648"},
    {"ArrayAroundABlock", "WHOLE\n 1\nSKIP\n9\nENDSKIP\n 2 /\n", Array("WHOLE", {1}),
        "the data of WHOLE continue in another file or around a skipped block"},
    {"ArrayAfterErrors", "WHOLE\n 1 x /\n", Array("WHOLE", {1}), "errors in WHOLE hide where its data end"},
    {"ArrayWithoutItsSlash", "WHOLE\n 1 2\nFLAG\n", Array("WHOLE", {1}),
        "errors in WHOLE hide where its data end"},
    {"RecordOfValues", "WHOLE\n 1 /\n", Add("WHOLE", "1"), "WHOLE is not a list of records or lists"},
    {"EmptyRecord", rowsText, Add("ROWS", " "), "ROWS: expected a record, not an empty text"},
    {"SlashForARecord", rowsText, Add("ROWS", "/"), "ROWS: a record without values would end the list"},
    {"SeveralRecords", rowsText, Add("ROWS", "5 / -- c\n/\nFLAG"), "ROWS: expected one record, not more"},
    {"SeveralRecordsOnALine", rowsText, Add("ROWS", "5 / 6 /"), "ROWS: expected one record, not more"},
    {"OpenQuote", "WELLS\n/\n", Add("WELLS", "'P1 OIL"), "WELLS: unclosed quote in the record"},
    {"RecordOfTwoLines", "REMARKS\n 1 a\n/\n", Add("REMARKS", "2 b\n3 c"),
        "REMARKS: expected a record of one line"},
    {"RecordBeforeOtherText", "PAIRS\n 1 2 3 4 FLAG\n", Add("PAIRS", "5 6"),
        "PAIRS: its last record is followed by other text on its line"},
    {"RepeatOverRecords", "PAIRS\n 1 3*2\n", Remove("PAIRS", 0),
        "PAIRS: the record shares a repeat count with another record"},
    {"RecordAfterErrors", "ROWS\n 1 x /\n/\n", Add("ROWS", "1"), "errors in ROWS hide where its data end"},
    {"RecordOfAnArray", "WHOLE\n 1 /\n", Remove("WHOLE", 0), "WHOLE is not a list of records or lists"},
    {"NoSuchRecord", rowsText, Remove("ROWS", 2),
        "ROWS: record index 2 is out of range (the keyword has 2 records)"},
    {"RecordWithAChange", rowsText, Remove("ROWS", 0), "ROWS: a value of the record was changed earlier",
        Set("ROWS[1].B", 5)},
    {"KeywordWithAChange", rowsText, Remove("ROWS"), "ROWS: its data were changed earlier", Add("ROWS", "5")},
    {"NoKeyword", rowsText, AddAfter("ROWS", "-- c\n 1 2 /"),
        "expected a keyword at the start of the first line of the text to add"},
    {"UnknownKeyword", rowsText, AddAfter("ROWS", "hello world\n"), "can't add the unknown keyword 'hello'"},
    {"EndOfTheDeck", rowsText, AddAfter("ROWS", "END\n"),
        "can't add 'END': it changes which text of the deck is read"},
    {"OpenBlock", rowsText, AddAfter("ROWS", "FLAG\nSKIP -- the rest\n"),
        "can't add 'SKIP': it changes which text of the deck is read"},
    {"EndOfABlock", rowsText, AddAfter("ROWS", "\nFLAG\nENDSKIP"),
        "can't add 'ENDSKIP': it changes which text of the deck is read"},
    {"NoSuchSection", rowsText, AddIn(SectionType::GRID, "FLAG"), "the deck has no section GRID"},
    {"NothingBeforeTheSections", rowsText, AddIn(SectionType::None, "FLAG"),
        "the deck has no keyword before its first section"},
    {"StepWithinAKeyword", "START\n 1 JAN 2020 /\nSCHEDULE\nDATES\n 1 FEB 2020 /\n 1 MAR 2020 /\n/\n",
        AddIn(0, "FLAG"), "the DATES of the report step leads to later steps too"}};

TEST(RefusedRecords, HaveValuesThatADeckCannotHold)
{
    const Deck deck = ReadEditable("WELLS\n P1 /\n/\n");
    DeckEditor editor(deck);
    const auto refused = [&](const char* item, const auto& value) {
        const auto records = KeywordDataFactory::Instance().Construct(deck.Get("WELLS").GetSyntax());
        IKeywordRecordData& well = AddRecord(AsList(*records));
        Veld::Quor::Core::Keywords::Set(well, "WELL", "P2");
        Veld::Quor::Core::Keywords::Set(well, item, value);
        return ReasonOf([&] { editor.AddRecords(deck.Get("WELLS"), *records); });
    };
    EXPECT_EQ(refused("WELL", " P"), "WELLS: can't write the text ' P': the blanks around it are not read");
    EXPECT_EQ(
        refused("RATE", std::numeric_limits<double>::infinity()), "WELLS: a deck can't hold the number inf");
    EXPECT_TRUE(editor.GetEdits().empty());
}

TEST(RefusedUses, SayWhatIsWrong)
{
    const Deck deck = ReadEditable(rowsText);
    const Deck other = ReadEditable("WHOLE\n 1 /\n");
    const Deck plain = Deck::ReadText(rowsText, GetEditorLanguage());
    DeckEditor editor(deck);
    EXPECT_EQ(ReasonOf([&] { DeckEditor refused(plain); }),
        "the deck wasn't read to be edited: see ReadOptions::SetEditable");
    EXPECT_EQ(ReasonOf([&] { editor.GetText(1); }), "file index 1 is out of range (the deck has 1 file)");
    EXPECT_EQ(
        ReasonOf([&] { editor.RemoveKeyword(other.Get("WHOLE")); }), "the keyword belongs to another deck");
    EXPECT_EQ(ReasonOf([&] {
        editor.SetValue(DeckValue{deck.Get("ROWS"), {0}, {}, {}, {}}, 1);
    }),
        "ROWS has no value at this path");
    EXPECT_EQ(ReasonOf([&] { editor.SetValue("ROWS[1].A", static_cast<const char*>(nullptr)); }),
        "the new value is a null pointer");
    static_assert(!std::is_constructible_v<NewValue, std::nullptr_t>);
    static_assert(!std::is_constructible_v<NewValue, char>);
    EXPECT_EQ(ReasonOf([&] { editor.AddRecords(deck.Get("ROWS"), other.Get("WHOLE").GetData()); }),
        "ROWS: the records are those of another keyword");
    EXPECT_EQ(ReasonOf([] {
        ApplyEdits("abc", {{{0, 0, 2}, "x"}, {{0, 1, 1}, "y"}});
    }),
        "changes overlap at byte 1 of the text");
    EXPECT_EQ(ReasonOf([] {
        ApplyEdits("abc", {{{0, 2, 2}, "x"}});
    }),
        "a change of 2 bytes at byte 2 goes beyond the text, which has 3 bytes");
    EXPECT_EQ(ReasonOf([] {
        ApplyEdits("abc", {{{0, 1, 0}, "x"}, {{1, 2, 0}, "y"}});
    }),
        "the changes are of more than one file");
}

INSTANTIATE_TEST_SUITE_P(Values, Refusals, testing::ValuesIn(valueRows), CaseName<RefusalRow>);
INSTANTIATE_TEST_SUITE_P(Others, Refusals, testing::ValuesIn(otherRows), CaseName<RefusalRow>);

} // namespace
