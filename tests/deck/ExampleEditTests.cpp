#include "tests/deck/ValueChanges.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

class ExampleDecks : public testing::TestWithParam<const char*> { };

TEST_P(ExampleDecks, TakeAnotherValueInPlaceOfEach)
{
    static const DeckLanguage language;
    const std::filesystem::path folder = std::filesystem::path(QUOR_SOURCE_DIR) / "examples" / "decks";
    const auto options = ReadOptions().SetEditable(true);
    const Deck deck = Deck::Read(folder / (std::string(GetParam()) + ".data"), language, options);
    EXPECT_GT(ExpectEachValueToBeChanged(deck, language, options), 20U);
}

INSTANTIATE_TEST_SUITE_P(All, ExampleDecks,
    testing::Values("first-comparative", "compositional", "steam-injection", "field/field"));

} // namespace
