#include "quor/deck/Deck.h"
#include "quor/deck/DeckDifference.h"
#include "quor/deck/DeckFormatter.h"
#include "quor/deck/DeckSummary.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordIntegerMDImpl.h"
#include "quor/syntax/KeywordSyntaxUtils.h"
#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <thread>
#include <vector>

using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;
using namespace Veld::Quor::Core::Decks;

namespace {

// What is worked out at its first use: scopes, keywords that others need, defaults of sizes.
constexpr const char* keywords = R"(
<keyword name='RUNSPEC'/> <keyword name='GRID'/> <keyword name='FLAG'/> <keyword name='OTHER'/>
<keyword name='INCLUDE'/> <keyword name='END'/> <keyword name='ENDINC'/>
<keyword name='SKIP'/> <keyword name='SKIPCAR'/> <keyword name='SKIPDUN'/> <keyword name='ENDSKIP'/>
<keyword name='DIMENS'><validSections><section name='RUNSPEC'/></validSections><data><record termination='SLASH'>
  <item name='NX'><integer><default type='specified' val='2'/></integer></item>
  <item name='NY'><integer><default type='specified' val='3'/></integer></item>
</record></data></keyword>
<keyword name='CARROWS'><validSimulators><simulator name='Carrow'/></validSimulators></keyword>
<keyword name='ARRAY'><data><list size='NX*NY' termination='SLASH'><real><max val='9'/></real></list></data></keyword>
<keyword name='NEEDS'><precedents><precedent name='FLAG'/></precedents></keyword>
<keyword name='NEEDSALL'><precedents><precedent name='NEEDS'/><precedent name='OTHER'/></precedents></keyword>
<keyword name='OPEN'><scope><endKeyword name='SHUT' explicit='true'/></scope></keyword> <keyword name='SHUT'/>
)";

constexpr const char* text = R"(RUNSPEC
DIMENS
 2 /
GRID
NEEDSALL
OPEN
SHUT
SHUT
ARRAY
 1 2 3 4 5 60 /
ARRAI
 1 2 3 4 5 6 7 /
DIMENS
 1 1 /
CARROWS
OPEN
NEEDS
)";

std::string FindingsOf(const std::string& path, SimulatorType::Enum simulator, const DeckLanguage& language)
{
    const Deck deck = Deck::Read(path, language, ReadOptions().SetSimulator(simulator));
    std::string found;
    for (const Finding& finding : deck.GetFindings())
        found += (found.empty() ? "" : " ") + finding.code + ":" + std::to_string(finding.location.line);
    return found;
}

TEST(SharedLanguage, IsReadWithBySeveralThreads)
{
    const LoadedTable table(keywords);
    const DeckLanguage language(*table.operator->());
    const TemporaryDirectory folder;
    const std::string path = folder.Write("d.data", text);
    std::vector<std::string> found(8);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < found.size(); ++i)
        threads.emplace_back([&found, &path, &language, i] {
            const auto simulator = i % 2 == 0 ? SimulatorType::Carrow : SimulatorType::Dunmere;
            for (int round = 0; round < 20; ++round)
                found[i] = FindingsOf(path, simulator, language);
        });
    for (std::thread& thread : threads)
        thread.join();
    const std::string carrow = "missing-precedent:5 stray-end:8 out-of-range:10 unknown-keyword:11 "
                               "wrong-section:13 unclosed-scope:16";
    const std::string dunmere = "missing-precedent:5 stray-end:8 out-of-range:10 unknown-keyword:11 "
                                "wrong-section:13 wrong-simulator:15 unclosed-scope:16";
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_EQ(found[i], i % 2 == 0 ? carrow : dunmere);
}

TEST(SharedTable, AnswersSeveralThreads)
{
    const LoadedTable table(keywords);
    const IKeywordSyntax* const needsAll = table->Lookup("NEEDSALL", true);
    const IKeywordSyntax* const open = table->Lookup("OPEN", true);
    const IKeywordSyntax* const dimens = table->Lookup("DIMENS", true);
    std::vector<std::string> answers(8);
    std::vector<std::thread> threads;
    for (std::string& answer : answers)
        threads.emplace_back([&] {
            for (const std::string& name : needsAll->GetPrecedents(SectionType::GRID))
                answer += name + ' ';
            answer += open->GetScopeKeywords().front()->GetName() + open->GetScopeSyntax()->GetName();
            const auto* const record = static_cast<const IKeywordRecordMD*>(dimens->GetDataMD());
            const auto* const size = static_cast<const KeywordIntegerMDImpl*>(record->GetItemMD(0));
            answer += ' ' + std::to_string(size->GetDefaults().size())
                + std::to_string(KeywordSyntaxUtils::IsSKIP(KeywordSyntaxUtils::GetSKIP()));
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(answers, std::vector<std::string>(8, "FLAG NEEDS OTHER SHUTSHUT 111"));
}

/// Whose metadata are read when first asked for.
TEST(SharedTable, OfTheBuiltInLanguageAnswersSeveralThreads)
{
    KeywordSyntaxTable& table = KeywordSyntaxTable::Instance();
    std::vector<std::vector<const IKeywordDataMD*>> answers(4);
    std::vector<std::thread> threads;
    for (auto& answer : answers)
        threads.emplace_back([&] {
            KeywordSyntaxEnumerator each = table.KeywordsEnumerator();
            while (each.NextWithHidden())
                answer.push_back(each.Current()->second->GetDataMD());
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_GT(std::count(answers[0].begin(), answers[0].end(), nullptr), 0);
    EXPECT_GT(std::set(answers[0].begin(), answers[0].end()).size(), 1000U);
    EXPECT_EQ(answers, std::vector(4, answers[0]));
}

/// What several answers of the deck come to; each of them works something out at its first use.
std::string AnswersOf(const Deck& deck)
{
    std::string answers = std::to_string(deck.GetAll("ARRAY").size());
    for (std::size_t i = deck.GetSize(); i-- > 0;)
        answers += ' ' + std::to_string(deck[i].GetLocation().line);
    for (const VariableSummary& variable : Summarize(deck).variables)
        answers += ' ' + variable.name;
    return answers + ' ' + std::to_string(Compare(deck, deck).groups.size()) + ' '
        + DeckFormatter(deck, FormatOptions().SetNormalized(true)).FormatAll();
}

TEST(SharedDeck, AnswersSeveralThreads)
{
    const LoadedTable table(keywords);
    const DeckLanguage language(*table.operator->());
    const Deck deck = Deck::ReadText("RUNSPEC\nDIMENS\n 2 3 /\nGRID\nARRAY\n 1 2*$V 1 2*$V /\nFLAG\n",
        language, ReadOptions().SetVariable("V", "2"));
    std::vector<std::string> answers(8);
    std::vector<std::thread> threads;
    for (std::string& answer : answers)
        threads.emplace_back([&deck, &answer] { answer = AnswersOf(deck); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(answers,
        std::vector<std::string>(
            8, "1 7 5 4 2 1 $V 0 RUNSPEC\nDIMENS\n  2 3 /\nGRID\nARRAY\n   1 $V $V  1 $V $V /\nFLAG\n"));
}

} // namespace
