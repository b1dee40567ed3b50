#include "quor/deck/DeckEditor.h"
#include "tests/deck/RandomLanguage.h"
#include "tests/deck/ValueChanges.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

class RandomEdits : public testing::TestWithParam<int> { };

TEST_P(RandomEdits, SetEachValueAndNoOther)
{
    constexpr int languages = 10;
    constexpr int decks = 10;
    for (int i = 0; i < languages && !HasFailure(); ++i) {
        RandomLanguage language(static_cast<std::uint32_t>(GetParam() * languages + i));
        const LoadedTable table(language.GetDocument());
        const DeckLanguage ofDecks(*table.operator->());
        for (int j = 0; j < decks && !HasFailure(); ++j) {
            int comments = 0;
            const std::string text = language.MakeDeck(8, comments);
            SCOPED_TRACE(language.GetDocument() + "\n== deck\n" + text);
            const auto options = ReadOptions().SetVariable(RandomLanguage::variable, "1").SetEditable(true);
            const Deck deck = Deck::ReadText(text, ofDecks, options);
            ExpectEachValueToBeChanged(deck, ofDecks, options);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AThousandDecks, RandomEdits, testing::Range(0, 10));

} // namespace
