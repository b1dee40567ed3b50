#include "quor/deck/Deck.h"
#include "quor/deck/DeckFormatter.h"
#include "tests/deck/RandomLanguage.h"
#include "tests/deck/SameDecks.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

class RoundTrip : public testing::Test {
protected:
    static Deck Read(const std::string& text, const DeckLanguage& language)
    {
        return Deck::ReadText(text, language, ReadOptions().SetVariable(RandomLanguage::variable, "1"));
    }
};

std::string Write(const Deck& deck)
{
    return DeckFormatter(deck).FormatFile(0);
}

std::string FirstFinding(const Deck& deck)
{
    if (deck.GetFindings().GetKept().empty())
        return {};
    const Finding& finding = deck.GetFindings().GetKept().front();
    return std::to_string(finding.location.line) + ": " + finding.message;
}

/// The comments that a text has, or has twice.
std::string CommentsLostIn(const std::string& text, int comments)
{
    std::string lost;
    for (int i = 1; i <= comments; ++i) {
        const std::string comment = " c" + std::to_string(i) + ".";
        const std::size_t location = text.find(comment);
        if (location == std::string::npos || text.find(comment, location + 1) != std::string::npos)
            lost += comment;
    }
    return lost;
}

struct OddDeck {
    const char* name;
    const char* data; // of the keyword KEY
    const char* text;
};

class OddDecks : public RoundTrip, public testing::WithParamInterface<OddDeck> { };

TEST_P(OddDecks, SayTheSameWhenWritten)
{
    const LoadedTable table("<keyword name='RUNSPEC'/><keyword name='KEY'><data>"
        + std::string(GetParam().data) + "</data></keyword>");
    const DeckLanguage language(*table.operator->());
    const auto deck = Read(GetParam().text, language);
    const std::string written = Write(deck);
    const auto again = Read(written, language);
    EXPECT_TRUE(SayTheSame(deck, again)) << written;
    EXPECT_EQ(FirstFinding(again), FirstFinding(deck)) << written;
    EXPECT_EQ(Write(again), written);
}

INSTANTIATE_TEST_SUITE_P(Found, OddDecks,
    testing::Values(
        OddDeck{"EmptyLineAtTheEnd", "<record><item name='T'><line/></item></record>", "RUNSPEC\nKEY\n "},
        OddDeck{"VariableAndSlashInQuotes", "<list><real/></list>", "RUNSPEC\nKEY\n '$NONE/' /\n"},
        OddDeck{"VariableAndSlashInQuotesOfAMap",
            "<map termination='SLASH'><assignment name='A'><integer/></assignment></map>",
            "RUNSPEC\nKEY\n A= '$NONE/' /\n"},
        OddDeck{"SlashWithinAListOfUnknownSize",
            "<list size='2'><list termination='SLASH'><record termination='NONE'><item "
            "name='A'><real/></item><item name='B'><list size='N'><real/></list></item><item "
            "name='C'><real/></item></record></list></list>",
            "RUNSPEC\nKEY\n 1 2 3 / remark\n 4 /\n"},
        OddDeck{"RemarkBehindASlashThatNeedNotBe", "<list size='2'><real/></list>",
            "RUNSPEC\nKEY\n 1 2 / remark\nKEY\n 3 4 /\n"}),
    CaseName<OddDeck>);

class RandomRoundTrip : public RoundTrip, public testing::WithParamInterface<int> { };

TEST_P(RandomRoundTrip, ChangesNoDataAndLosesNoComment)
{
    constexpr int languages = 25;
    constexpr int decks = 40;
    for (int i = 0; i < languages && !HasFailure(); ++i) {
        RandomLanguage language(static_cast<std::uint32_t>(GetParam() * languages + i));
        const LoadedTable table(language.GetDocument());
        const DeckLanguage ofDecks(*table.operator->());
        for (int j = 0; j < decks && !HasFailure(); ++j) {
            int comments = 0;
            const std::string text = language.MakeDeck(8, comments);
            const auto deck = Read(text, ofDecks);
            const std::string written = Write(deck);
            const auto again = Read(written, ofDecks);
            SCOPED_TRACE(language.GetDocument() + "\n== deck\n" + text + "\n== written\n" + written);
            EXPECT_EQ(FirstFinding(deck), "");
            EXPECT_EQ(FirstFinding(again), "");
            EXPECT_TRUE(SayTheSame(deck, again));
            EXPECT_EQ(CommentsLostIn(written, comments), "");
            EXPECT_TRUE(Write(again) == written) << "the second time changes more:\n" << Write(again);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(TenThousandDecks, RandomRoundTrip, testing::Range(0, 10));

} // namespace
