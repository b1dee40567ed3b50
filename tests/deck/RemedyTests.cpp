#include "quor/deck/Remedies.h"

#include "quor/deck/Deck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace Veld::Quor::Core::Decks;

namespace {

class Examples : public testing::TestWithParam<Remedy> {
protected:
    /// The codes found in a deck of the built-in language.
    static std::string CodesOf(const std::string& deck)
    {
        static const DeckLanguage language;
        if (deck.empty())
            return {};
        std::string codes;
        const Deck read = Deck::ReadText(deck, language, ReadOptions().SetTarget(GetParam().target));
        for (const Finding& finding : read.GetFindings())
            codes += finding.code + " ";
        return codes;
    }
};

/// Without an example both decks are empty, and not checked.
TEST_P(Examples, ShowTheFindingAndTheMend)
{
    const std::string wrong = GetParam().wrong;
    EXPECT_EQ(CodesOf(wrong), wrong.empty() ? "" : std::string(InfoOf(GetParam().code).name) + " ");
    EXPECT_EQ(CodesOf(GetParam().right), "");
}

INSTANTIATE_TEST_SUITE_P(Codes, Examples, testing::ValuesIn(Remedies()), [](const auto& row) {
    std::string name = InfoOf(row.param.code).name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace
