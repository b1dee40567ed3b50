#include "quor/deck/internal/text/NearestWords.h"

#include "quor/deck/DeckLanguage.h"

#include "tests/deck/Language.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

struct Distance {
    const char* name;
    const char* a;
    const char* b;
    std::size_t distance; // up to a limit of 3
};

class EditDistances : public testing::TestWithParam<Distance> { };

TEST_P(EditDistances, AreTheSameBothWays)
{
    EXPECT_EQ(EditDistance(GetParam().a, GetParam().b, 3), GetParam().distance);
    EXPECT_EQ(EditDistance(GetParam().b, GetParam().a, 3), GetParam().distance);
}

INSTANTIATE_TEST_SUITE_P(Texts, EditDistances,
    testing::Values(Distance{"Same", "PORO", "PORO", 0}, Distance{"Replacement", "PORO", "PORV", 1},
        Distance{"Insertion", "PORO", "POROS", 1}, Distance{"SwapOfNeighbours", "DATES", "DTAES", 1},
        Distance{"SwapIsNotEditedAgain", "CA", "ABC", 3}, Distance{"Mixed", "WELSPEX", "WELSPECS", 2},
        Distance{"ToEmpty", "", "GAS", 3}, Distance{"BeyondTheLimit", "SUMMARY", "GRIDUNIT", 4},
        Distance{"LengthsBeyondTheLimit", "A", "ABCDEFG", 4}),
    CaseName<Distance>);

struct Misspelt {
    const char* name;
    const char* word;
    SectionType::Enum section;
    const char* nearest; // with blanks between
};

class Nearest : public testing::TestWithParam<Misspelt> { };

TEST_P(Nearest, NamesAreSuggested)
{
    static const DeckLanguage language(SmallTable());
    std::string found;
    for (const std::string& name : language.FindNearest(GetParam().word, GetParam().section))
        found += (found.empty() ? "" : " ") + name;
    EXPECT_EQ(found, GetParam().nearest);
}

INSTANTIATE_TEST_SUITE_P(Words, Nearest,
    testing::Values(Misspelt{"HiddenOnesAreLeftOut", "WELSPEXX", SectionType::SCHEDULE, "WELSPECL WELSPECS"},
        Misspelt{"NearerOnesFirst", "WELSPECX", SectionType::SCHEDULE, "WELSPECL WELSPECS"},
        Misspelt{"ThoseOfTheSectionFirst", "WATES", SectionType::SCHEDULE, "DATES NOTES WATER"},
        Misspelt{"ThoseOfAnotherSectionFirst", "WATES", SectionType::RUNSPEC, "WATER NOTES DATES"},
        Misspelt{"OneEditInFourLetters", "PORX", SectionType::GRID, "PORO"},
        Misspelt{"NotTwoEditsInFourLetters", "POXX", SectionType::GRID, ""},
        Misspelt{"NeverMoreThanHalf", "X", SectionType::GRID, ""},
        Misspelt{"Aliases", "PERMQ", SectionType::GRID, "PERMR PERMX"},
        Misspelt{"HiddenAliasesAreLeftOut", "KXX", SectionType::GRID, ""},
        Misspelt{"WildcardsAreLeftOut", "FV*", SectionType::SUMMARY, ""},
        Misspelt{"NoSection", "WATTER", SectionType::None, "WATER"},
        Misspelt{"FarTooLong", "WELSPECSWELSPECSWELSPECS", SectionType::SCHEDULE, ""}),
    CaseName<Misspelt>);

} // namespace
