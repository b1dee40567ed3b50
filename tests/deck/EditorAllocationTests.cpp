#include "quor/deck/DeckEditor.h"

#include "tests/deck/EditorChanges.h"
#include "tests/deck/EditorLanguage.h"
#include "tests/support/Cases.h"
#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Core::Decks;
using Veld::Quor::Core::Keywords::SectionType;
using namespace Veld::Quor::Tests;

namespace {

// Texts that are too long to be stored in place.
const char* const deckText = R"(START
 1 JAN 2020 /
TITLE
A title that is too long to be stored in place
GRID
WHOLE
 1 4*2 3 / -- a comment
NAMES
 3*'A name that is too long to be stored in place' /
SCHEDULE
WELLS
 'A well with a long name' OIL 2.5 /
 P2 WATER /
/
DATES
 1 FEB 2020 /
/
ROWS
 1 2 /
 3 4 /
/
)";

struct AllocationRow {
    const char* name;
    EditStep change;
    EditStep earlier = {};
};

class EditAllocation : public testing::TestWithParam<AllocationRow> { };

/// Makes the change of a row, with one allocation of it failing. Returns whether there was such an
/// allocation.
bool FailOne(long number, const AllocationRow& row, const std::string& after)
{
    const Deck deck = ReadEditable(deckText);
    DeckEditor editor(deck);
    if (row.earlier)
        row.earlier(editor, deck);
    const std::string before = editor.GetText(0);
    EXPECT_NE(after, before);
    bool hasThrown = false;
    Allocations::FailAfter(number);
    try {
        row.change(editor, deck);
    } catch (const std::bad_alloc&) {
        hasThrown = true;
    }
    const bool hasFailed = Allocations::HasFailed();
    Allocations::FailAfter(-1);
    EXPECT_EQ(hasThrown, hasFailed) << "allocation " << number + 1;
    if (hasThrown) {
        EXPECT_EQ(editor.GetText(0), before) << "allocation " << number + 1;
        row.change(editor, deck);
    }
    EXPECT_EQ(editor.GetText(0), after) << "allocation " << number + 1;
    EXPECT_EQ(deck.GetFiles().GetText(0).substr(8), deckText);
    return hasFailed;
}

TEST_P(EditAllocation, FailsAsAWhole)
{
    const Deck deck = ReadEditable(deckText);
    DeckEditor editor(deck);
    if (GetParam().earlier)
        GetParam().earlier(editor, deck);
    GetParam().change(editor, deck);
    const std::string after = editor.GetText(0);
    long number = 0;
    while (FailOne(number, GetParam(), after) && !HasFailure())
        ++number;
    EXPECT_GT(number, 5);
}

INSTANTIATE_TEST_SUITE_P(Changes, EditAllocation,
    testing::Values(AllocationRow{"Value", Set("WELLS['A well with a long name'].RATE", 0.25)},
        AllocationRow{"Text", Set("WELLS[P2].WELL", "Another well with a long name")},
        AllocationRow{"NotGiven", Set("WELLS[P2].ON@2020-01-01", true)},
        AllocationRow{"OneOfARepeat", Set("NAMES[2]", "Another name that is too long to be stored in place")},
        AllocationRow{"Line", Set("TITLE.T", "Another title that is too long to be stored in place")},
        AllocationRow{"Cleared", Clear("WELLS['A well with a long name'].KIND@2020-01-01")},
        AllocationRow{"Array", Array("WHOLE", {5, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18})},
        AllocationRow{"RecordAdded", Add("WELLS", "'Another well with a long name' OIL")},
        AllocationRow{"RecordRemoved", Remove("WELLS", 0)}, AllocationRow{"KeywordRemoved", Remove("NAMES")},
        AllocationRow{"KeywordAdded", AddAfter("WHOLE", "BOX\n 1 1 1 1 1 1 / a text of some length\n")},
        AllocationRow{"KeywordInASection", AddIn(SectionType::GRID, "BOX\n 1 1 1 1 1 1 / some text\n")},
        AllocationRow{"KeywordInAStep", AddIn(0, "BOX\n 1 1 1 1 1 1 / a text of some length\n")},
        AllocationRow{"AfterAValue", Set("ROWS[1].B", 1234567), Set("ROWS[1].A", 7)},
        AllocationRow{"AfterARecord", Add("ROWS", "5 6"), Both(Add("ROWS", "7 8"), Remove("ROWS", 1))}),
    CaseName<AllocationRow>);

TEST(EditorAllocation, OfTextsFailsAsAWhole)
{
    const Deck deck = ReadEditable(deckText);
    DeckEditor editor(deck);
    editor.SetValue("NAMES[2]", "Another name that is too long to be stored in place");
    editor.AddRecord(deck.Get("WELLS"), "'Another well with a long name'");
    const std::string text = editor.GetText(0);
    const auto check = [&] { EXPECT_EQ(editor.GetText(0), text); };
    EXPECT_GT(FailEachAllocation([&] { editor.GetText(0); }, check), 5);
    EXPECT_GT(FailEachAllocation([&] { editor.GetChangedFiles(); }, check), 5);
    EXPECT_GT(FailEachAllocation([&] { editor.MakeSource(); }, check), 10);
    EXPECT_GT(FailEachAllocation([&] { editor.Read(GetEditorLanguage()); }, check), 100);
}

} // namespace
