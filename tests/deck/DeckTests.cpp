#include "quor/Deck.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Core::Keywords;
using namespace Veld::Quor::Tests;

namespace {

constexpr const char* text = R"(RUNSPEC
TITLE
 A small deck
DIMENS
 2 1 2 /
OIL
START
 1 JAN 2020 /
GRID
PORO
 0.1 0.2 2*0.3 /
SUMMARY
WUOPRX
/
SCHEDULE
WELSPECS
 P1 G 1 1 1* OIL /
/
TSTEP
 10 20 /
WELOPEN
 P1 SHUT /
/
DATES
 1 JUN 2020 /
/
WELOPEN
 P1 OPEN /
/
)";

const Deck& GetDeck()
{
    static const DeckLanguage language;
    static const Deck deck = Deck::ReadText(text, language);
    return deck;
}

std::string NamesOf(const std::vector<DeckKeyword>& keywords)
{
    std::string names;
    for (const DeckKeyword keyword : keywords) {
        names += names.empty() ? "" : " ";
        names += keyword.GetName();
    }
    return names;
}

TEST(ADeck, HandsOutItsKeywordsInOrderByNameSectionAndStep)
{
    const Deck& deck = GetDeck();
    EXPECT_TRUE(deck.IsClean()) << ToString(deck.GetFindings().GetKept().front());
    EXPECT_EQ(NamesOf({deck.begin(), deck.end()}),
        "RUNSPEC TITLE DIMENS OIL START GRID PORO SUMMARY WUOPRX SCHEDULE WELSPECS TSTEP WELOPEN DATES "
        "WELOPEN");
    EXPECT_EQ(NamesOf(deck.GetSection(SectionType::GRID)), "GRID PORO");
    EXPECT_EQ(NamesOf(deck.GetSection(SectionType::EDIT)), "");
    EXPECT_EQ(deck.GetAll("welopen").size(), 2U);
    EXPECT_EQ(deck.Get("WELOPEN").GetIndex(), 14U);
    EXPECT_EQ(deck.begin()->GetName(), "RUNSPEC");
    EXPECT_TRUE(*deck.begin() == deck[0] && deck[0] != deck[1]);
    EXPECT_TRUE(deck.Has("poro"));
    EXPECT_FALSE(deck.Has("PERMX"));
    EXPECT_TRUE(deck.Get("WUOPRX").IsNamed("wuoprx")); // a wildcard stands for it
    EXPECT_EQ(deck.GetSectionCount(), 4U);
    EXPECT_EQ(deck.GetFileCount(), 1U);
}

TEST(ADeck, HasTheDateOfEachStep)
{
    const Deck& deck = GetDeck();
    EXPECT_EQ(DateText(deck.GetStart()), "2020-01-01");
    ASSERT_EQ(deck.GetSteps().size(), 3U);
    EXPECT_EQ(DateText(deck.GetSteps()[1].time), "2020-01-31");
    EXPECT_EQ(NamesOf(deck.GetAfterStep(0)), ""); // the same keyword leads on to the next
    EXPECT_EQ(NamesOf(deck.GetAfterStep(1)), "WELOPEN DATES");
    EXPECT_EQ(NamesOf(deck.GetAfterStep(2)), "WELOPEN");
    EXPECT_EQ(deck.FindStep("2020-06-01 00:00:00"), 2U);
    EXPECT_EQ(deck.FindStep("2020-06-01 00:00:01"), std::nullopt);
    EXPECT_EQ(NamesOf(deck.GetAtDate("2020-06-01")), "WELOPEN");
    EXPECT_EQ(NamesOf(deck.GetAtDate("2020-01-01")), "SCHEDULE WELSPECS TSTEP");
    EXPECT_EQ(NamesOf(deck.GetAtDate("2020-01-02")), "");
    EXPECT_EQ(DateText(deck.Get("WELSPECS").GetTime()), "2020-01-01");
    EXPECT_EQ(deck.Get("WELSPECS").FindStep(), nullptr);
    EXPECT_EQ(DateText(deck.Get("WELOPEN").GetTime()), "2020-06-01");
    EXPECT_FALSE(deck.Get("PORO").GetTime().IsDef());
}

TEST(ADeck, HasNoDateAfterTheYear32767)
{
    const DeckLanguage language;
    const Deck deck = Deck::ReadText(
        "RUNSPEC\nSTART\n 1 JAN 2020 /\nSCHEDULE\nTSTEP\n 2e7 /\nWELSPECS\n P1 G 1 1 1* OIL /\n/\n",
        language);
    EXPECT_EQ(DateText(deck.GetSteps().front().time), "");
    EXPECT_EQ(ResolveOne(deck, {"WELSPECS", {}, {"I"}}).address.ToString(), "WELSPECS[P1].I");
}

TEST(ADeck, GivesDataWithoutACopy)
{
    const auto porosities = As<double>(AsList(GetDeck().Get("PORO").GetData()));
    ASSERT_EQ(porosities.size(), 4U);
    EXPECT_EQ(porosities[1], 0.2);
    EXPECT_FALSE(porosities.IsDefaulted(1));
    EXPECT_EQ(porosities[3], 0.3);
    EXPECT_EQ(GetDeck().Get("OIL").FindData(), nullptr);
    EXPECT_EQ(GetDeck().Get("PORO").GetText(), "PORO\n 0.1 0.2 2*0.3 /");
    EXPECT_EQ(GetDeck().Get("TSTEP").GetLocation().line, 19U);
}

TEST(ADeck, HasUnknownValuesWhereVariablesHaveNoValue)
{
    const DeckLanguage language;
    const std::string grid = "RUNSPEC\nDIMENS\n 3 1 1 /\nGRID\nPORO\n 0.5 $P 0.7 /\nQMOBIL\n $Q /\n";
    const Deck deck = Deck::ReadText(grid, language);
    const IKeywordListData& porosities = AsList(deck.Get("PORO").GetData());
    EXPECT_EQ(ReasonOf([&] { As<double>(porosities); }),
        "PORO: element index 1 has no value: a variable that isn't set is in its place");
    EXPECT_EQ(ReasonOf([&] { WriteKeyword(porosities); }), "PORO: element index 1 has no value");
    EXPECT_TRUE(IsUnknown(AsList(deck.Get("QMOBIL").GetData()), 0));
    EXPECT_EQ(ResolveOne(deck, {"PORO", {"2"}}).text, "");
    const PropertySummary summary = Summarize(deck).properties.front();
    EXPECT_EQ(summary.unknown, 1U);
    EXPECT_EQ(summary.range->least, 0.5);
    EXPECT_EQ(summary.range->mean, 0.6);
    const Deck known = Deck::ReadText(grid, language, ReadOptions().SetVariable("P", "0.25"));
    EXPECT_EQ(ResolveOne(known, {"PORO", {"2"}}).text, "0.25");
    const ItemChange change = Compare(deck, known).groups.front().changes.front().item;
    EXPECT_EQ(change.before + " " + change.after, "unknown 0.25");
    EXPECT_EQ(change.array->greatest, 0);
    const Deck empty =
        Deck::ReadText("RUNSPEC\nDIMENS\n 3 $Y 1 /\n", language, ReadOptions().SetVariable("Y", ""));
    std::string findings;
    for (const Finding& finding : empty.GetFindings())
        findings += ToString(finding) + '\n';
    EXPECT_EQ(findings, "deck.data:3:4: error: DIMENS, NY: empty value; write a value [wrong-type]\n");
}

struct RepeatRow {
    const char* name;
    const char* text; ///< after a grid of a million cells
    std::size_t values; ///< that its repeats make
    const char* finding; ///< if they are one less; N: how many may be made
};

class Repeats : public testing::TestWithParam<RepeatRow> { };

/// The findings of a deck whose repeats make `most` values, and 100 more for each byte.
std::string FindingsWithin(std::size_t most, const std::string& deckText)
{
    const DeckLanguage language;
    const Deck deck = Deck::ReadText(deckText, language, ReadOptions().SetMaxRepeatedValues(most));
    std::string findings;
    for (const Finding& finding : deck.GetFindings())
        findings += ToString(finding) + '\n';
    return findings;
}

TEST_P(Repeats, MakeAsManyValuesAsTheOptionsAllow)
{
    const std::string deck = std::string("RUNSPEC\nDIMENS\n 1000 1000 1 /\nOIL\nGAS\n") + GetParam().text;
    std::string finding = GetParam().finding;
    finding.replace(finding.find('N'), 1, std::to_string(GetParam().values - 1));
    EXPECT_EQ(FindingsWithin(GetParam().values - 100 * deck.size(), deck), "");
    EXPECT_EQ(FindingsWithin(GetParam().values - 1 - 100 * deck.size(), deck), finding);
}

INSTANTIATE_TEST_SUITE_P(Texts, Repeats,
    testing::Values(
        RepeatRow{"Numbers", "GRID\nPORO\n 1000000*0.2 /\n", 999'999,
            "deck.data:8:2: error: PORO: too many repeated values up to '1000000*0.2' (expected at "
            "most N in a keyword); correct the repeat count [too-many-values]\n"},
        RepeatRow{"Defaults", "GRID\nPORO\n 2*0.2 999998* /\n", 999'998,
            "deck.data:8:8: error: PORO: too many repeated values up to '999998*' (expected at most N in "
            "a keyword); correct the repeat count [too-many-values]\n"},
        RepeatRow{"Texts", "SUMMARY\nWOPR\n 9001*'P1' /\n", 36'000,
            "deck.data:8:2: error: WOPR: too many repeated values up to '9001*' (expected at most N in "
            "a keyword); correct the repeat count [too-many-values]\n"}),
    CaseName<RepeatRow>);

struct CodeChoice {
    const char* name;
    ReadOptions options;
    const char* findings;
};

class ChosenCodes : public testing::TestWithParam<CodeChoice> { };

TEST_P(ChosenCodes, AreReported)
{
    const DeckLanguage language;
    auto source = std::make_shared<MemorySource>();
    source->Set("/x/a.inc", "OLI\n  GAS\nENDINC\n");
    const Deck deck = Deck::ReadText("RUNSPEC\nOIL 2\nINCLUDE\n '$A/a.inc' /\nENDINC\n", language,
        ReadOptions(GetParam().options).SetSource(source).SetPathAlias("A", "/x"));
    std::string codes;
    for (const Finding& finding : deck.GetFindings())
        codes += std::string(ToString(finding.severity)) + ' ' + finding.code + '\n';
    EXPECT_EQ(codes, GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(Options, ChosenCodes,
    testing::Values(CodeChoice{"None", {}, "error unknown-keyword\nwarning stray-endinc\n"},
        CodeChoice{"Raised", ReadOptions().SetSeverity("stray-endinc", Severity::Error),
            "error unknown-keyword\nerror stray-endinc\n"},
        CodeChoice{
            "Ignored", ReadOptions().SetSeverity("unknown-keyword", std::nullopt), "warning stray-endinc\n"},
        CodeChoice{"Selected", ReadOptions().SelectCode("stray-endinc"), "warning stray-endinc\n"},
        CodeChoice{"StrictOnes",
            ReadOptions().SelectCode("indented-keyword").SetSeverity("indented-keyword", Severity::Error),
            "error indented-keyword\n"}),
    CaseName<CodeChoice>);

TEST(ADeck, MakesNoMoreInAllItsKeywordsThanItMay)
{
    EXPECT_EQ(FindingsWithin(0, "SUMMARY\nWOPR\n 701*'P' /\nWWPR\n 701*'P' /\n"),
        "deck.data:5:2: error: WWPR: too many repeated values up to '701*' (expected at most 4000 in the "
        "whole "
        "deck); correct the repeat count [too-many-values]\n");
}

TEST(ADeck, OfFewBytesMakesNoMoreThanItMayAtFirst)
{
    const std::string huge = "RUNSPEC\nDIMENS\n 1000 1000 200 /\nGRID\nPORO\n 200000000*1 /\n";
    const DeckLanguage language;
    const Deck deck = Deck::ReadText(huge, language);
    EXPECT_EQ(deck.GetOptions().GetMaxRepeatedValues(), 50'000'000U);
    EXPECT_EQ(deck.GetFindings().GetCount(Severity::Error), 1U);
    EXPECT_TRUE(As<double>(AsList(deck.Get("PORO").GetData())).empty());
}

TEST(ADeck, AsksWithinALongRepeatWhetherItIsCancelled)
{
    const DeckLanguage language;
    const auto countOf = [&language](const std::string& cells) {
        int count = 0;
        const auto options = ReadOptions().SetCancellation([&count] { return ++count < 0; });
        Deck::ReadText(
            "RUNSPEC\nDIMENS\n 1 1 " + cells + " /\nGRID\nPORO\n " + cells + "*0.2 /\n", language, options);
        return count;
    };
    EXPECT_EQ(countOf("3000000") - countOf("3"), 2);
}

struct Failure {
    const char* name;
    void (*use)();
    const char* reason;
};

class DeckFailures : public testing::TestWithParam<Failure> { };

TEST_P(DeckFailures, SayWhatIsMissing)
{
    EXPECT_EQ(ReasonOf(GetParam().use), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(Questions, DeckFailures,
    testing::Values(Failure{"NearName", [] { GetDeck().Get("porro"); },
                        "the deck has no keyword 'porro'; did you mean PORO?"},
        Failure{"ControlCharacter", [] { GetDeck().Get("A\x1b"); }, "the deck has no keyword 'A?'"},
        Failure{"NoNearName", [] { GetDeck().Get("WCONPROD"); }, "the deck has no keyword 'WCONPROD'"},
        Failure{"NoData", [] { GetDeck().Get("OIL").GetData(); }, "OIL has no data"},
        Failure{"NoKeyword", [] { GetDeck()[99]; },
            "keyword index 99 is out of range (the deck has 15 keywords)"},
        Failure{"KeywordAtTheEnd", [] { *GetDeck().end(); },
            "keyword index 15 is out of range (the deck has 15 keywords)"},
        Failure{"NoStep", [] { GetDeck().GetAfterStep(3); },
            "report step index 3 is out of range (the deck has 3 steps)"},
        Failure{"NoDate", [] { GetDeck().FindStep("1 JUN 2020"); },
            "invalid date '1 JUN 2020'; expected a date such as 2024-04-01 or 2024-04-01 12:30:00"},
        Failure{"NoSuchDay", [] { GetDeck().GetAtDate("2020-06-31"); },
            "invalid date '2020-06-31'; expected a date such as 2024-04-01 or 2024-04-01 12:30:00"},
        Failure{"NoFile", [] { DeckFormatter(GetDeck()).FormatFile(1); },
            "file index 1 is out of range (the deck has 1 file)"},
        Failure{"NoRange",
            [] {
                GetDeck().GetFiles().LocationOf({0, 1000, 1});
            },
            "byte 1000 is out of range (the file has 230 bytes)"},
        Failure{"VariableName", [] { ReadOptions().SetVariable("A\n", "1"); }, "invalid variable name 'A?'"},
        Failure{"AliasName", [] { ReadOptions().SetPathAlias("A/B", "x"); }, "invalid path alias 'A/B'"}),
    CaseName<Failure>);

TEST(ADeck, IsInTheUnitsThatItsLastKeywordOfUnitsSelects)
{
    const DeckLanguage language;
    const auto systemOf = [&language](const std::string& keywords) {
        return UnitSystem::ToString(UnitSystemOf(Deck::ReadText(keywords, language)));
    };
    EXPECT_EQ(systemOf(""), "METRIC");
    EXPECT_EQ(systemOf("RUNSPEC\nOIL\nPVT-M\nGAS\n"), "PVT-M");
    EXPECT_EQ(systemOf("RUNSPEC\nFIELD\nLAB\nGRID\n"), "LAB");
    EXPECT_EQ(systemOf("RUNSPEC\nOIL\nGRID\nFIELD\n"), "METRIC"); // reported as misplaced
}

template <class T>
using StepsOf = decltype(std::declval<T>().GetSteps());
template <class T, class = void>
constexpr bool hasSteps = false;
template <class T>
constexpr bool hasSteps<T, std::void_t<StepsOf<T>>> = true;

/// What is left behind was moved from.
template <class T>
T Take(T& from)
{
    return std::move(from);
}

TEST(ADeck, IsKeptForWhatRefersToIt)
{
    static_assert(hasSteps<const Deck&> && !hasSteps<Deck>);
    const DeckLanguage language;
    std::string codes;
    for (const Finding& finding : Deck::ReadText("RUNSPEC\nOLI\n", language).GetFindings())
        codes += finding.code;
    EXPECT_EQ(codes, "unknown-keyword");
    Deck deck = Deck::ReadText(text, language);
    const DeckKeyword keyword = deck.Get("DIMENS");
    const Deck other = Take(deck);
    EXPECT_TRUE(keyword == other.Get("DIMENS"));
    EXPECT_EQ(keyword.GetText(), other.Get("DIMENS").GetText());
    ReadOptions options;
    const ReadOptions moved = Take(options);
    const std::function<void()> uses[] = {[&] { deck.GetSize(); }, [&] { deck.GetFindings(); },
        [&] { Resolve(deck, {"DIMENS"}); }, [&] { DeckFormatter formatter(deck); }, [&] { Summarize(deck); }};
    for (const auto& use : uses)
        EXPECT_EQ(ReasonOf(use), "the deck was moved from");
    EXPECT_EQ(ReasonOf([&] { options.SetStrict(true); }), "the options were moved from");
    deck = Deck::ReadText(text, language, ReadOptions().SetEditable(true));
    EXPECT_EQ(deck.GetSize(), other.GetSize());
    const DeckEditor editor(deck);
    DeckFormatter formatter(deck);
    for (int i = 0; i < 2; ++i) // the second one may be where the first was
        deck = Deck::ReadText(text, language);
    const std::function<void()> results[] = {
        [&] { editor.GetText(0); }, [&] { editor.GetEdits(); }, [&] { editor.GetChangedFiles(); }};
    for (const auto& result : results)
        EXPECT_EQ(ReasonOf(result), "the deck of the editor was assigned to");
    EXPECT_EQ(ReasonOf([&] { formatter.FormatFile(0); }), "the deck of the formatter was assigned to");
    EXPECT_EQ(ReasonOf([&] { formatter.FormatAll(); }), "the deck of the formatter was assigned to");
}

TEST(ADeck, KeepsItsOptionsButNotWhatTheyCall)
{
    const DeckLanguage language;
    int calls = 0;
    const auto options = ReadOptions().SetEditable(true).SetCancellation([&calls] { return ++calls < 0; });
    const Deck deck = Deck::ReadText(text, language, options);
    EXPECT_GT(std::exchange(calls, 0), 0);
    const Deck again = DeckEditor(deck).Read(language);
    EXPECT_EQ(again.GetSize(), deck.GetSize());
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(again.GetOptions().GetSource()) << "as the host gave it";
}

TEST(ADeck, AnswersForAnAlias)
{
    const DeckLanguage language;
    const Deck deck = Deck::ReadText("RUNSPEC\nDIMENS\n 1 1 1 /\nGRID\nPERMR\n 1 /\n", language);
    const std::string name = deck[deck.GetSize() - 1].GetName();
    EXPECT_TRUE(deck.Has("PERMR"));
    EXPECT_EQ(deck.Get("PERMR").GetName(), name);
}

TEST(ADeck, LocatesItsKeywordsInAnyOrder) // a file is longer than what is counted at once
{
    const DeckLanguage language;
    std::string longText = "RUNSPEC\n";
    for (int i = 0; i < 2000; ++i)
        longText += "-- a comment\nOIL\n";
    const Deck deck = Deck::ReadText(longText, language);
    ASSERT_EQ(deck.GetSize(), 2001U);
    for (const std::size_t i : {2000U, 1U, 1999U, 700U, 701U, 0U, 2000U})
        EXPECT_EQ(deck[i].GetLocation().line, 2 * i + 1);
}

TEST(ADeck, IsAskedByManyThreadsAtOnce) // the first question makes the index
{
    const DeckLanguage language;
    const Deck deck = Deck::ReadText(text, language);
    std::vector<std::size_t> counts(4);
    std::vector<std::thread> threads;
    for (std::size_t& count : counts)
        threads.emplace_back([&deck, &count] { count = deck.GetAll("WELOPEN").size(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(counts, std::vector<std::size_t>(4, 2));
}

TEST(AFinding, IsALineAsCompilersPrintIt)
{
    const DeckLanguage language;
    const Deck deck = Deck::ReadText("RUNSPEC\nOLI\n", language, ReadOptions().SetMaxFindings(5), "a/b.data");
    ASSERT_EQ(deck.GetFindings().GetKept().size(), 1U);
    EXPECT_EQ(ToString(deck.GetFindings().GetKept().front()),
        "a/b.data:2:1: error: unknown keyword 'OLI'; did you mean OIL? [unknown-keyword]");
}

} // namespace
