#include "quor/deck/internal/text/WordText.h"

#include "quor/deck/WrittenWords.h"
#include "quor/deck/internal/text/TextLines.h"
#include "tests/support/Cases.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <string>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Tests;

namespace {

const char* NameOf(DataWord::Quotes quotes)
{
    switch (quotes) {
    case DataWord::Quotes::None:
        return "bare";
    case DataWord::Quotes::Closed:
        return "closed";
    case DataWord::Quotes::Unclosed:
        return "unclosed";
    case DataWord::Quotes::Unopened:
        return "unopened";
    }
    return "";
}

/// "3 x <A B> closed"
std::string Dump(const DataWord& word)
{
    const std::string text = word.IsDefault() ? "default" : fmt::format("<{}>", word.text);
    return fmt::format("{} x {} {}", word.repeat.count, text, NameOf(word.quotes));
}

struct Word {
    const char* name;
    const char* text;
    const char* word;
    std::size_t length;
};

class DataWords : public testing::TestWithParam<Word> { };

TEST_P(DataWords, AreCutFromTheBeginningOfAText)
{
    const DataWord word = FindDataWord(GetParam().text);
    EXPECT_EQ(Dump(word), GetParam().word);
    EXPECT_EQ(word.length, GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(Texts, DataWords,
    testing::Values(Word{"Bare", "0.25 7", "1 x <0.25> bare", 4},
        Word{"BeforeSlash", "OPEN/", "1 x <OPEN> bare", 4},
        Word{"BeforeComment", "5--five", "1 x <5> bare", 1}, Word{"BeforeComma", "A,B", "1 x <A> bare", 1},
        Word{"Repeated", "3*0.2 ", "3 x <0.2> bare", 5}, Word{"Default", "2* /", "2 x default bare", 2},
        Word{"LoneAsterisk", "* 5", "1 x default bare", 1},
        Word{"NameWithAsterisk", "P*", "1 x <P*> bare", 2}, Word{"Quoted", "'A B' 5", "1 x <A B> closed", 5},
        Word{"EmptyQuotes", "''", "1 x default closed", 2},
        Word{"PaddedQuotes", "2*' A  B\t' 5", "2 x <A  B> closed", 10},
        Word{"OtherQuoteInside", "\"A'B\"", "1 x <A'B> closed", 5},
        Word{"RepeatedQuote", "2*'A B'/", "2 x <A B> closed", 7},
        Word{"CountInQuotes", "'2*A'", "1 x <2*A> closed", 5},
        Word{"UnclosedToBlank", "'A B\n'", "1 x <A> unclosed", 2},
        Word{"UnclosedBeforeSlash", "'AB/\n", "1 x <AB> unclosed", 3},
        Word{"UnclosedBeforeLineEnd", "'A\r\nB'", "1 x <A> unclosed", 2},
        Word{"RepeatedUnclosed", "2*'A B", "2 x <A> unclosed", 4},
        Word{"Unopened", "A' 5", "1 x <A'> unopened", 2}),
    CaseName<Word>);

struct Line {
    const char* name;
    const char* text;
    const char* words;
    std::size_t values;
};

class LinesOfWords : public testing::TestWithParam<Line> { };

TEST_P(LinesOfWords, EndWithTheSlashOrAComment)
{
    const LineWords line = FindLineWords(GetParam().text);
    std::string words;
    for (const DataWord& word : line.words)
        words += Dump(word) + ", ";
    EXPECT_EQ(words + (line.isEnded ? "ended" : "open"), GetParam().words);
    EXPECT_EQ(CountValues(line), GetParam().values);
}

INSTANTIATE_TEST_SUITE_P(Texts, LinesOfWords,
    testing::Values(Line{"Record", " P1 2*5 / 7", "1 x <P1> bare, 2 x <5> bare, ended", 3},
        Line{"Open", "1 2* -- 3 /", "1 x <1> bare, 2 x default bare, open", 3}, Line{"Empty", "", "open", 0},
        Line{"SlashInQuotes", "'A/B' /", "1 x <A/B> closed, ended", 1},
        Line{"UnclosedQuoteIsTheRest", "1 'A B /", "1 x <1> bare, 1 x <A B /> unclosed, open", 2}),
    CaseName<Line>);

TEST(LeadingReals, EndWhereTheNumberDoes)
{
    struct Row {
        const char* text;
        std::size_t length;
        double value;
    };
    for (const Row& row : {Row{"5. 7", 2, 5}, {".5/", 2, 0.5}, {"-0", 2, -0.0}, {"+1.50,", 5, 1.5},
             {"12e3 ", 4, 12000}, {"1e ", 1, 1}, {"1D5", 1, 1}, {"1.2.3", 3, 1.2}, {"3*5", 1, 3},
             {"00000000000000000001.5", 22, 1.5}, {"9007199254740993", 16, 9007199254740992.0},
             {"0.000000000000001", 17, 1e-15}, {".", 0, 0}, {"-", 0, 0}, {"+-5", 0, 0}, {"--5", 0, 0},
             {"-.e5", 0, 0}, {"inf", 0, 0}, {"1e999", 0, 0}, {"", 0, 0}}) {
        const LeadingReal real = FindLeadingReal(row.text);
        EXPECT_EQ(real.length, row.length) << row.text;
        if (row.length > 0) {
            EXPECT_EQ(real.value, row.value) << row.text;
            EXPECT_EQ(std::signbit(real.value), std::signbit(row.value)) << row.text;
        }
    }
}

TEST(LeadingReals, AreRoundedCorrectly)
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 50'000; ++i) {
        std::string text = std::to_string(random() >> (random() % 64));
        if (random() % 4 != 0)
            text.insert(random() % (text.size() + 1), 1, '.');
        if (random() % 8 == 0)
            text += "e-" + std::to_string(random() % 30);
        if (random() % 2 == 0)
            text.insert(0, 1, '-');
        const LeadingReal real = FindLeadingReal(text + (random() % 2 == 0 ? " 7" : ""));
        ASSERT_EQ(real.length, text.size()) << text;
        ASSERT_EQ(real.value, std::strtod(text.c_str(), nullptr)) << text;
    }
}

TEST(WrittenWords, AreThoseOfAllLinesButComments)
{
    std::string text;
    for (const WrittenWord& word : FindWords("P1 3*0.2,2* -- 'no'\n  'a b' / rest\n'open 5\n"))
        text += fmt::format("{}+{} {} x <{}>{}{}{}; ", word.offset, word.length, word.count, word.text,
            word.isDefault ? " default" : "", word.isQuoted ? " quoted" : "", word.isSlash ? " slash" : "");
    EXPECT_EQ(text,
        "0+2 1 x <P1>; 3+5 3 x <0.2>; 9+2 2 x <> default; 22+5 1 x <a b> quoted; 28+1 1 x </> slash; "
        "35+7 1 x <open 5> quoted; ");
}

TEST(Comments, AreSkippedToTheEndOfTheText)
{
    EXPECT_EQ(SkipComments(" -- c\n 1", 0), 7U);
    EXPECT_EQ(SkipComments(std::string_view("1  ").substr(0, 2), 1), 2U) << "more is after it";
}

} // namespace
