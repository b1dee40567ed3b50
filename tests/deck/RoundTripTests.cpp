#include "quor/deck/Deck.h"
#include "quor/deck/DeckFormatter.h"
#include "tests/deck/RandomLanguage.h"
#include "tests/deck/SameDecks.h"
#include "tests/deck/ValueChanges.h"
#include "tests/support/Cases.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

Deck Read(const std::string& text, const DeckLanguage& language)
{
    return Deck::ReadText(text, language, ReadOptions().SetVariable(RandomLanguage::variable, "1"));
}

std::string Write(const Deck& deck, bool isNormalized)
{
    return DeckFormatter(deck, FormatOptions().SetNormalized(isNormalized)).FormatFile(0);
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

/// A deck, and the data of its keyword KEY.
class OddDecks : public testing::TestWithParam<Row> { };

TEST_P(OddDecks, SayTheSameWhenWritten)
{
    const LoadedTable table(
        "<keyword name='RUNSPEC'/><keyword name='KEY'><data>" + GetParam().expected + "</data></keyword>");
    const DeckLanguage language(*table.operator->());
    const auto deck = Read(GetParam().text, language);
    for (const bool isNormalized : {false, true}) {
        const std::string written = Write(deck, isNormalized);
        const auto again = Read(written, language);
        EXPECT_TRUE(SayTheSame(deck, again)) << written;
        EXPECT_EQ(FirstFinding(again), FirstFinding(deck)) << written;
        EXPECT_EQ(Write(again, isNormalized), written);
    }
}

INSTANTIATE_TEST_SUITE_P(Found, OddDecks, testing::ValuesIn(Rows(R"(
EmptyLineAtTheEnd: RUNSPEC\nKEY\n  => <record><item name='T'><line/></item></record>
VariableAndSlashInQuotes: RUNSPEC\nKEY\n '$NONE/' /\n => <list><real/></list>
VariableAndSlashInQuotesOfAMap: RUNSPEC\nKEY\n A= '$NONE/' /\n => <map termination='SLASH'><assignment name='A'><integer/></assignment></map>
SlashWithinAListOfUnknownSize: RUNSPEC\nKEY\n 1 2 3 / remark\n 4 /\n => <list size='2'><list termination='SLASH'><record termination='NONE'><item name='A'><real/></item><item name='B'><list size='N'><real/></list></item><item name='C'><real/></item></record></list></list>
RemarkBehindASlashThatNeedNotBe: RUNSPEC\nKEY\n 1 2 / remark\nKEY\n 3 4 /\n => <list size='2'><real/></list>
)")),
    CaseName<Row>);

/// Calls `use` with random decks of random languages, others for each of the rows.
class RandomDecks : public testing::TestWithParam<int> {
protected:
    template <class Use>
    static void ForEach(int languages, int decks, Use use)
    {
        for (int i = 0; i < languages && !HasFailure(); ++i) {
            RandomLanguage language(static_cast<std::uint32_t>(GetParam() * languages + i));
            const LoadedTable table(language.GetDocument());
            const DeckLanguage ofDecks(*table.operator->());
            for (int j = 0; j < decks && !HasFailure(); ++j) {
                int comments = 0;
                const std::string text = language.MakeDeck(8, comments);
                SCOPED_TRACE(language.GetDocument() + "\n== deck\n" + text);
                use(text, ofDecks, comments);
            }
        }
    }
};

TEST_P(RandomDecks, KeepDataAndCommentsWhenWritten)
{
    ForEach(25, 40, [](const std::string& text, const DeckLanguage& language, int comments) {
        const auto deck = Read(text, language);
        EXPECT_EQ(FirstFinding(deck), "");
        for (const bool isNormalized : {false, true}) {
            const std::string written = Write(deck, isNormalized);
            const auto again = Read(written, language);
            SCOPED_TRACE("== written\n" + written);
            EXPECT_EQ(FirstFinding(again), "");
            EXPECT_TRUE(SayTheSame(deck, again));
            EXPECT_EQ(CommentsLostIn(written, comments), "");
            const std::string second = Write(again, isNormalized);
            EXPECT_TRUE(second == written) << "the second time changes more:\n" << second;
        }
    });
}

TEST_P(RandomDecks, SetEachValueAndNoOther)
{
    ForEach(10, 10, [](const std::string& text, const DeckLanguage& language, int) {
        const auto options = ReadOptions().SetVariable(RandomLanguage::variable, "1").SetEditable(true);
        ExpectEachValueToBeChanged(Deck::ReadText(text, language, options), language, options);
    });
}

INSTANTIATE_TEST_SUITE_P(Thousands, RandomDecks, testing::Range(0, 10));

} // namespace
