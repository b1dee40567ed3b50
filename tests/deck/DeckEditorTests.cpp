#include "quor/deck/DeckEditor.h"

#include "quor/data/Access.h"
#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/WriteKeyword.h"
#include "tests/deck/EditorChanges.h"
#include "tests/deck/EditorLanguage.h"
#include "tests/deck/FindingText.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

struct EditRow {
    const char* name;
    const char* deck; ///< after its first line
    EditStep change;
    const char* changed;
};

class Edits : public testing::TestWithParam<EditRow> { };

TEST_P(Edits, ChangeNothingElse)
{
    const Deck deck = ReadEditable(GetParam().deck);
    ASSERT_TRUE(deck.IsClean());
    DeckEditor editor(deck);
    GetParam().change(editor, deck);
    EXPECT_EQ(editor.GetText(0).substr(8), GetParam().changed);
    EXPECT_EQ(Dump(editor.Read(GetEditorLanguage()).GetFindings(), {}), "");
}

INSTANTIATE_TEST_SUITE_P(Values, Edits,
    testing::Values(EditRow{"Plain", "ROWS\n 1 2 / -- c\n 3  4 /\n/\n", Set("ROWS[2].A", 7),
                        "ROWS\n 1 2 / -- c\n 7  4 /\n/\n"},
        EditRow{"FirstOfARepeat", "WHOLE\n 1 4*2 3 /\n", Set("WHOLE[2]", 9), "WHOLE\n 1 9 3*2 3 /\n"},
        EditRow{"WithinARepeat", "WHOLE\n 1 4*2 3 /\n", Set("WHOLE[3]", 9), "WHOLE\n 1 2 9 2*2 3 /\n"},
        EditRow{"SeveralOfARepeat", "WHOLE\n 10*2 /\n",
            Both(Both(Set("WHOLE[7]", 9), Set("WHOLE[2]", 8)), Set("WHOLE[8]", 9)),
            "WHOLE\n 2 8 4*2 2*9 2*2 /\n"},
        EditRow{"AllOfARepeat", "WHOLE\n 2*2 /\n", Both(Set("WHOLE[1]", 3), Set("WHOLE[2]", 3)),
            "WHOLE\n 2*3 /\n"},
        EditRow{"RepeatOverRecords", "TABLES\n 4*1 / -- c\n 2 3 /\n", Set("TABLES[1].2.X", 5.0),
            "TABLES\n 2*1 5 1 / -- c\n 2 3 /\n"},
        EditRow{"RepeatedText", "NAMES\n 3*'A B' /\n", Set("NAMES[3]", "C"), "NAMES\n 2*'A B' C /\n"},
        EditRow{"Defaults", "BOX\n 1 3* 3 /\n", Set("BOX.J1", 2), "BOX\n 1 1* 2 1* 3 /\n"},
        EditRow{"Float", "ARRAY\n 1 2 /\n", Both(Set("ARRAY[1]", 0.1F), Set("ARRAY[2]", 3e-12F)),
            "ARRAY\n 0.1 3E-12 /\n"},
        EditRow{"LoneAsterisk", "ARRAY\n 1 * 3 /\n", Set("ARRAY[2]", 2.0), "ARRAY\n 1 2 3 /\n"},
        EditRow{"NotGiven", "ROWS\n 1 /\n/\n", Set("ROWS[1].B", 2), "ROWS\n 1 2 /\n/\n"},
        EditRow{"AfterOthersNotGiven", "BOX\n 1 2 /\n", Set("BOX.K1", 3), "BOX\n 1 2 2* 3 /\n"},
        EditRow{"SeveralNotGiven", "BOX\n 1/\n", Both(Set("BOX.K2", 3), Set("BOX.J1", 2)),
            "BOX\n 1 1* 2 2* 3 /\n"},
        EditRow{"NotGivenOnALine", "ONELINE\n 1 -- c\nFLAG\n", Set("ONELINE.C", 3),
            "ONELINE\n 1 1* 3 -- c\nFLAG\n"},
        EditRow{"LineOfAFileWithoutAnEnd", "ONELINE\n 1", Set("ONELINE.B", 3), "ONELINE\n 1 3"},
        EditRow{"Table", "TABLES\n 1 4\n 3 2 /\n 5 8\n 7 6 /\n", Set("TABLES[2].2.Y", 0.25),
            "TABLES\n 1 4\n 3 2 /\n 5 8\n 7 0.25 /\n"},
        EditRow{"Nested", "NESTED\n 1 2 3 /\n 4 5 6 /\n/\n", Set("NESTED[2].HEAD", -1e-20),
            "NESTED\n 1 2 3 /\n -1E-20 5 6 /\n/\n"},
        EditRow{"NotGivenInNestedData", "PARTS\n 1 /\n /\n 2 / c\n",
            Both(Set("PARTS.FIRST.B", 3), Set("PARTS.SECOND.A", 4)), "PARTS\n 1 3 /\n 4 /\n 2 / c\n"},
        EditRow{"BesideASlash", "ROWS\n 1 2/\n/\n", Set("ROWS[1].B", 33), "ROWS\n 1 33/\n/\n"},
        EditRow{
            "TextBesideAnother", "WELLS\n'A'OIL /\n/\n", Set("WELLS[A].WELL", "BC"), "WELLS\nBC OIL /\n/\n"},
        EditRow{"TextThatNeedsQuotes", "NAMES\n A /\n", Set("NAMES[1]", "a'/--*"), "NAMES\n \"a'/--*\" /\n"},
        EditRow{"EmptyText", "NAMES\n A /\n", Set("NAMES[1]", ""), "NAMES\n '' /\n"},
        EditRow{"TextLikeAKeyword", "NAMES\nA\nB /\n", Set("NAMES[1]", "FLAG"), "NAMES\n'FLAG'\nB /\n"},
        EditRow{"NotGivenLikeAKeyword", "WELLS\n P1\n/\n/\n", Set("WELLS[P1].KIND", "OIL"),
            "WELLS\n P1\nOIL /\n/\n"},
        EditRow{"Choice", "WELLS\n P1 OIL /\n/\n", Set("WELLS[P1].KIND", "water"), "WELLS\n P1 WATER /\n/\n"},
        EditRow{
            "Boolean", "WELLS\n P1 OIL /\n/\n", Set("WELLS[P1].ON", true), "WELLS\n P1 OIL 2* YES /\n/\n"},
        EditRow{"Line", "TITLE\n  one  \nLINES\n a\nb c\n/\n",
            Both(Set("TITLE.T", "two 'x"), Set("LINES[2]", "3*4 c")),
            "TITLE\n  two 'x  \nLINES\n a\n3*4 c\n/\n"},
        EditRow{"LineLikeAKeyword", "TITLE\nA b\nFLAG\n", Set("TITLE.T", "GRID"), "TITLE\n GRID\nFLAG\n"},
        EditRow{"TextAfterTheKeyword", "NAMES A /\n", Set("NAMES[1]", "flag"), "NAMES 'flag' /\n"},
        EditRow{"SameValue", "WELLS\n 'P1' OIL 1.50 /\n/\n", Set("WELLS[P1].RATE", 1.5),
            "WELLS\n 'P1' OIL 1.50 /\n/\n"},
        EditRow{"Twice", "WHOLE\n 1 /\n", Both(Set("WHOLE[1]", 2), Set("WHOLE[1]", 3)), "WHOLE\n 3 /\n"},
        EditRow{"AndBack", "WHOLE\n 01 /\n", Both(Set("WHOLE[1]", 2), Set("WHOLE[1]", 1)), "WHOLE\n 01 /\n"},
        EditRow{"Cleared", "ROWS\n 1 2 /\n/\n", Clear("ROWS[1].B"), "ROWS\n 1 1* /\n/\n"},
        EditRow{"ClearedInARepeat", "ARRAY\n 3*2 /\n", Clear("ARRAY[2]"), "ARRAY\n 2 1* 2 /\n"},
        EditRow{
            "ClearedAlready", "BOX\n 1 2* 3 /\n", Both(Clear("BOX.I2"), Clear("BOX.K2")), "BOX\n 1 2* 3 /\n"},
        EditRow{"SetAndCleared", "BOX\n 1 /\n", Both(Set("BOX.I2", 3), Clear("BOX.I2")), "BOX\n 1 /\n"},
        EditRow{"WindowsLines", "ROWS\r\n 1 2 /\r\n/\r\n", Set("ROWS[1].B", 3), "ROWS\r\n 1 3 /\r\n/\r\n"}),
    CaseName<EditRow>);

INSTANTIATE_TEST_SUITE_P(Arrays, Edits,
    testing::Values(EditRow{"Whole", "FLAG\nWHOLE -- c\n 1  2 / rest\nFLAG\n", Array("WHOLE", {7, 7, 7, 5}),
                        "FLAG\nWHOLE -- c\n  3*7   5 / rest\nFLAG\n"},
        EditRow{"Reals", "ARRAY\n 1 /\n", Reals("ARRAY", {0.25}), "ARRAY\n  0.25 /\n"},
        EditRow{"CommentsBetween", "WHOLE\n-- a\n 1 2\n-- b\n 3 /\n", Array("WHOLE", {4, 5, 6}),
            "WHOLE\n-- a\n  4 5\n-- b\n  6 /\n"},
        EditRow{"ArrayOfWindowsLines", "WHOLE\r\n 1 /\r\n", Array("WHOLE", {2}), "WHOLE\r\n  2 /\r\n"}),
    CaseName<EditRow>);

INSTANTIATE_TEST_SUITE_P(Records, Edits,
    testing::Values(EditRow{"Added", "ROWS\n   1 2 / c\n-- d\n/ e\n", Add("ROWS", "3 4 /"),
                        "ROWS\n   1 2 / c\n-- d\n   3 4 /\n/ e\n"},
        EditRow{"AddedWithoutASlash", "ROWS\n 1 2 /\n/\n", Both(Add("ROWS", " 3 4\n"), Add("ROWS", "5 -- c")),
            "ROWS\n 1 2 /\n 3 4 /\n 5 / -- c\n/\n"},
        EditRow{"AddedToNone", "ROWS\n/\n", Add("ROWS", "3 4"), "ROWS\n  3 4 /\n/\n"},
        EditRow{"AddedToNoneOnTheLine", "ROWS /\nFLAG\n", Add("ROWS", "3 4"), "ROWS \n  3 4 /\n/\nFLAG\n"},
        EditRow{"AddedWithoutIndentation", "WELLS\nP1 /\n/\n", Both(Add("WELLS", "P2"), Add("WELLS", "FLAG")),
            "WELLS\nP1 /\nP2 /\n  FLAG /\n/\n"},
        EditRow{"AddedInTwoLines", "WELLS\nP1 /\n/\n", Add("WELLS", "P2\nOIL / m3/day"),
            "WELLS\nP1 /\nP2\nOIL / m3/day\n/\n"},
        EditRow{"AddedWithAKeywordOnALine", "WELLS\n/\n", Add("WELLS", "-- c\nFLAG / d"),
            "WELLS\n  -- c\n  FLAG / d\n/\n"},
        EditRow{
            "AddedWindowsLines", "ROWS\r\n 1 /\r\n/\r\n", Add("ROWS", "3"), "ROWS\r\n 1 /\r\n 3 /\r\n/\r\n"},
        EditRow{"Removed", "ROWS\n-- a\n 1 2 / b\n-- c\n 3 4 /\n/\n", Remove("ROWS", 0),
            "ROWS\n-- a\n-- c\n 3 4 /\n/\n"},
        EditRow{"RemovedLast", "ROWS\n 1 2 /\n 3 -- x\n -- y\n 4 /\n-- c\n/\n", Remove("ROWS", 1),
            "ROWS\n 1 2 /\n-- c\n/\n"},
        EditRow{"RemovedAll", "ROWS\n 1 2 /\n 3 4 /\n/\n", Both(Remove("ROWS", 1), Remove("ROWS", 0)),
            "ROWS\n/\n"},
        EditRow{"RemovedFromTheLineOfTheKeyword", "ROWS 1 2 / a\n 3 4 /\n/\n", Remove("ROWS", 0),
            "ROWS \n 3 4 /\n/\n"},
        EditRow{"RemovedWithinALine", "TABLES\n 1 2 /\n 3 4 /\n",
            Both(Set("TABLES[1].1.X", 5.0), Set("TABLES[2].1.X", 6.0)), "TABLES\n 5 2 /\n 6 4 /\n"},
        EditRow{"RemovedWithNestedData", "NESTED\n 1 2 3\n  4 5 /\n 6 7 8 /\n/\n", Remove("NESTED", 0),
            "NESTED\n 6 7 8 /\n/\n"},
        EditRow{"RemovedBeforeASlash", "ROW\n 1 2 3 4/\n", Remove("ROW", 1), "ROW\n 1 2 /\n"},
        EditRow{"RemovedAndAdded", "ROWS\n 1 2 /\n/\n", Both(Remove("ROWS", 0), Add("ROWS", "3")),
            "ROWS\n 3 /\n/\n"}),
    CaseName<EditRow>);

const char* const scheduleText = "START\n 1 JAN 2020 /\nGRID\nFLAG\nSCHEDULE\nDATES\n 1 FEB 2020 /\n/\nFLAG\n"
                                 "-- March\nDATES\n 1 MAR 2020 /\n/\n";

INSTANTIATE_TEST_SUITE_P(Keywords, Edits,
    testing::Values(EditRow{"Added", "ROWS\n 1 /\n/ c\n-- d\nFLAG\n",
                        Both(AddAfter("ROWS", "\nBOX\n 1 /"), AddAfter("ROWS", "FLAG\n")),
                        "ROWS\n 1 /\n/ c\nBOX\n 1 /\nFLAG\n-- d\nFLAG\n"},
        EditRow{"AddedAtTheEnd", "FLAG", AddAfter("FLAG", "BOX\n 1 /"), "FLAG\nBOX\n 1 /\n"},
        EditRow{"AddedAfterASlash", "FLAG\n\n/\nBOX\n 1 /\n", AddAfter("FLAG", "FLAG\n"),
            "FLAG\n\n/\nFLAG\nBOX\n 1 /\n"},
        EditRow{"AddedAfterRecords", "FIXED\n 1 /\n 2 /\nFLAG\n",
            Both(AddAfter("FIXED", "WHOLE\n 1 /\n"), Set("FIXED[2].B", 3)),
            "FIXED\n 1 /\n 2 3 /\nWHOLE\n 1 /\nFLAG\n"},
        EditRow{"AddedToASection", scheduleText, AddIn(SectionType::GRID, "BOX\n 1 /"),
            "START\n 1 JAN 2020 /\nGRID\nFLAG\nBOX\n 1 /\nSCHEDULE\nDATES\n 1 FEB 2020 /\n/\nFLAG\n"
            "-- March\nDATES\n 1 MAR 2020 /\n/\n"},
        EditRow{"AddedAfterABlock", "GRID\nSKIP\nENDSKIP\nFLAG\nSCHEDULE\n", AddIn(SectionType::GRID, "FLAG"),
            "GRID\nSKIP\nENDSKIP\nFLAG\nFLAG\nSCHEDULE\n"},
        EditRow{"AddedToAStep", scheduleText, AddIn(0, "BOX\n 1 /"),
            "START\n 1 JAN 2020 /\nGRID\nFLAG\nSCHEDULE\nDATES\n 1 FEB 2020 /\n/\nFLAG\nBOX\n 1 /\n"
            "-- March\nDATES\n 1 MAR 2020 /\n/\n"},
        EditRow{"AddedToAnEmptyStep", scheduleText, AddIn(1, "BOX\n 1 /"),
            "START\n 1 JAN 2020 /\nGRID\nFLAG\nSCHEDULE\nDATES\n 1 FEB 2020 /\n/\nFLAG\n"
            "-- March\nDATES\n 1 MAR 2020 /\n/\nBOX\n 1 /\n"},
        EditRow{"Removed", "FLAG\n-- a\nROWS -- b\n 1 /\n/ c\n-- d\nFLAG\n", Remove("ROWS"),
            "FLAG\n-- a\n-- d\nFLAG\n"},
        EditRow{"RemovedWithASlash", "FLAG\n/\nBOX\n 1 /\n", Remove("FLAG"), "BOX\n 1 /\n"},
        EditRow{"RemovedRaw", "RAW\n any / thing\nENDRAW\nFLAG\n", Remove("RAW"), "FLAG\n"},
        EditRow{"RemovedAndAnotherAdded", "FLAG\nBOX\n 1 /\nFLAG\n",
            Both(Remove("BOX"), AddAfter("BOX", "WHOLE\n 1 /\n")), "FLAG\nWHOLE\n 1 /\nFLAG\n"}),
    CaseName<EditRow>);

TEST(DeckEditors, RefuseKeywordsAndPlacesOfAnotherDeck)
{
    const Deck deck = ReadEditable("FLAG\n");
    const Deck other = ReadEditable("WHOLE\n 1 /\nROWS\n 1 /\n/\n");
    DeckEditor editor(deck);
    const DeckKeyword whole = other.Get("WHOLE");
    const int value = 1;
    EXPECT_THROW(editor.RemoveKeyword(whole), std::invalid_argument);
    EXPECT_THROW(editor.AddKeywordAfter(whole, "FLAG"), std::invalid_argument);
    EXPECT_THROW(editor.SetArray(whole, &value, 1), std::invalid_argument);
    EXPECT_THROW(editor.AddRecord(other.Get("ROWS"), "1"), std::invalid_argument);
    EXPECT_THROW(editor.RemoveRecord(other.Get("ROWS"), 0), std::invalid_argument);
    EXPECT_THROW(editor.SetValue(ResolvePath(other, whole, {0}), 2), std::invalid_argument);
    EXPECT_THROW(ResolvePath(deck, whole, {0}), std::invalid_argument);
    EXPECT_THROW(AddressOf(deck, other.Get("ROWS"), 0, "A"), std::invalid_argument);
    EXPECT_THROW(editor.SetValue(DeckValue{deck.Get("FLAG"), {0}, {}, {}, {}}, 1), AddressError);
    EXPECT_TRUE(editor.GetEdits().empty());
}

TEST(DeckEditors, AddRecordsOfTheirOwnKeyword)
{
    const Deck deck = ReadEditable("WELLS\n P1 OIL /\n/\nROWS\n/\n");
    const auto records = KeywordDataFactory::Instance().Construct(deck.Get("WELLS").GetSyntax());
    IKeywordRecordData& well = AddRecord(AsList(*records));
    Veld::Quor::Core::Keywords::Set(well, "WELL", "P 2");
    Veld::Quor::Core::Keywords::Set(well, "RATE", 2.5);
    Veld::Quor::Core::Keywords::Set(AddRecord(AsList(*records)), "WELL", "P3");
    DeckEditor editor(deck);
    editor.AddRecords(deck.Get("WELLS"), *records);
    EXPECT_THROW(editor.AddRecords(deck.Get("ROWS"), *records), DataAccessError);
    editor.AddKeywordAfter(deck.Get("WELLS"), WriteKeyword(*records));
    EXPECT_EQ(editor.GetText(0),
        "RUNSPEC\nWELLS\n P1 OIL /\n  'P 2' 1* 2.5 /\n  P3    /\n/\n"
        "WELLS\n  'P 2' 1* 2.5 /\n  P3    /\n/\nROWS\n/\n");
    EXPECT_EQ(ReasonOf([&] { WriteKeyword(well); }),
        "WELLS: expected the data of the whole keyword, not a part of them");
    AddRecord(AsList(*records));
    EXPECT_EQ(
        ReasonOf([&] { WriteKeyword(*records); }), "WELLS: WELL: missing value; the item has no default");
}

class Files : public testing::Test {
protected:
    Files()
    {
        source_->Set("a.inc", "\xEF\xBB\xBFWHOLE\n 1 /\n");
        source_->Set("b.inc", "FLAG\n");
    }
    Deck Read(const std::string& text)
    {
        source_->Set("d.data", text);
        return Deck::Read("d.data", GetEditorLanguage(), ReadOptions().SetEditable(true).SetSource(source_));
    }

    std::shared_ptr<MemorySource> source_ = std::make_shared<MemorySource>();
};

TEST_F(Files, AreChangedWhereTheValueStands)
{
    const Deck deck = Read("RUNSPEC\nINCLUDE\n 'a.inc' /\nINCLUDE\n 'b.inc' /\n");
    DeckEditor editor(deck);
    EXPECT_TRUE(editor.GetChangedFiles().empty());
    editor.SetValue("WHOLE[1]", 2);
    EXPECT_EQ(editor.GetChangedFiles(), std::vector<std::uint32_t>{1});
    EXPECT_EQ(editor.GetText(1), "\xEF\xBB\xBFWHOLE\n 2 /\n");
    EXPECT_EQ(editor.GetText(2), "FLAG\n");
    EXPECT_THROW(editor.GetText(3), std::out_of_range);
    const Deck changed = editor.Read(GetEditorLanguage(), ReadOptions().SetSource(source_));
    EXPECT_EQ(ValueAt<int>(AsList(changed.Get("WHOLE").GetData()), 0), 2);
    EXPECT_EQ(changed.GetFiles().GetSize(), 3U);
}

TEST_F(Files, ThatAreIncludedTwiceStay)
{
    const Deck deck = Read("RUNSPEC\nINCLUDE\n 'a.inc' /\nFLAG\nINCLUDE\n 'a.inc' /\n");
    DeckEditor editor(deck);
    EXPECT_EQ(ReasonOf([&] { editor.SetValue("WHOLE[1]#2", 2); }),
        "the deck includes 'a.inc' more than once; a change of it would apply to each inclusion");
    EXPECT_THROW(editor.RemoveKeyword(deck.Get("WHOLE")), EditError);
    EXPECT_THROW(editor.AddKeywordAfter(deck.Get("WHOLE"), "FLAG\n"), EditError);
    editor.RemoveKeyword(deck.Get("FLAG"));
    EXPECT_EQ(editor.GetText(0), "RUNSPEC\nINCLUDE\n 'a.inc' /\nINCLUDE\n 'a.inc' /\n");
}

} // namespace
