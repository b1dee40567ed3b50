#include "quor/deck/internal/text/WordText.h"

#include "tests/support/Cases.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

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
        Word{"EmptyQuotes", "''", "1 x <> closed", 2},
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

} // namespace
