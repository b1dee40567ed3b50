#include "tests/data/DataText.h"

#include <gtest/gtest.h>

using namespace Veld::Quor::Tests;

namespace {

constexpr const char* all = "(b! i c! i! l! r! s!)";
constexpr const char* deep = "(i! (i!) [[(i!)]] i!)";

} // namespace

TEST(Identity, ListsTheIdentifiers)
{
    for (const auto& row : Table(R"(
(i)              | (5)                                |
(b! i r!)        | (- 1 -)                            |
(b! i r! s!)     | (7 1 0.1 'text')                   | 1 0.10000000000000001text
(c! i! l! r! s!) | (2 -3 'a line' 1e300 'x')          | 2 -3 a line 1.0000000000000001e+300x
(b! r!)          | (0 100)                            | 0 100
(b! r!)          | (-3 inf)                           | inf
(r! r! r!)       | (-inf nan -nan)                    | -inf nan -nan
[(i! i)]         | [(5 1) (6 2)]                      | 5
[(i! i)]         | []                                 |
(i! (i!) [[(i!)]] i!) | (1 (2) [[(3) (9)] [(9)]] 4)   | 1 2 3 4
(i! (i!) [[(i!)]] i!) | (1 (2) [[] [(9)]] 4)          | 1 2 4
[i]              | [5]                                |
{A}              | {A=1}                              |
()               | ()                                 |)")) {
        const Made made(row[0], row[1]);
        EXPECT_EQ(KeywordIdentity(made.data.get()).GetString(), (row[2].empty() ? "" : " ") + row[2])
            << row[1];
    }
}

TEST(Identity, IsComparedByTheIdentifiers)
{
    for (const auto& row : Table(R"(
(i)   | (1)                    | (2)                     | same
all   | (2 9 2 3 'l' 4 's')    | (1 1 2 3 'l' 4 's')     | same
all   | (0 1 2 3 'l' 4 's')    | (1 1 2 3 'l' 4 's')     | other
all   | (1 1 9 3 'l' 4 's')    | (1 1 2 3 'l' 4 's')     | other
all   | (1 1 2 9 'l' 4 's')    | (1 1 2 3 'l' 4 's')     | other
all   | (1 1 2 3 'k' 4 's')    | (1 1 2 3 'l' 4 's')     | other
all   | (1 1 2 3 'l' 9 's')    | (1 1 2 3 'l' 4 's')     | other
all   | (1 1 2 3 'l' 4 'S')    | (1 1 2 3 'l' 4 's')     | other
all   | (- 1 2 3 'l' 4 's')    | (1 1 2 3 'l' 4 's')     | other
all   | (1 1 2 3 'l' 4 '')     | (1 1 2 3 'l' 4 -)       | other
all   | (1 1 2 3 'l' 4 -)      | (1 1 2 3 'l' 4 -)       | same
all   | (1 1 2 3 'l' nan 's')  | (1 1 2 3 'l' nan 's')   | other
[(i! i)] | [(5 1) (6 2)]       | [(5 9)]                 | same
[(i! i)] | [(5 1)]             | [(6 1)]                 | other
[(i! i)] | [(5 1)]             | []                      | other
[(i! i)] | []                  | [(5 1)]                 | same
deep  | (1 (2) [[(3)]] 4)      | (1 (2) [[(3) (9)]] 4)   | same
deep  | (1 (2) [[(3)]] 4)      | (1 (9) [[(3)]] 4)       | other
deep  | (1 (2) [[(3)]] 4)      | (1 (2) [[(9)]] 4)       | other
deep  | (1 (2) [[(3)]] 4)      | (1 (2) [[]] 4)          | other
deep  | (1 (2) [] 4)           | (1 (2) [] 4)            | other
deep  | (1 (2) [[(3)]] 4)      | (1 (2) [[(3)]] 9)       | other
(i! () i!) | (1 () 2)          | (1 () 2)                | other)")) {
        const Keyword keyword(row[0] == "all" ? all : row[0] == "deep" ? deep : row[0]);
        const auto a = Make(keyword, row[1]);
        const auto b = Make(keyword, row[2]);
        EXPECT_EQ(KeywordIdentity(a.get()).Compare(b.get()), row[3] == "same") << row[1] << row[2];
    }
}

TEST(Identity, ComparesStringsWithoutTheirQuotes)
{
    using Text = Service::Optional<std::string>;
    const Keyword strings("(s!)");
    const Keyword lines("(l!)");
    for (const auto& row : Table(R"(
'ABC' | ABC   | same
'ABC' | 'ABC' | same
'abc' | ABC   | other
'     |       | other
'     | '     | same
''    |       | same
'A    | A     | other
''A'' | 'A'   | other
''A'' | 'A'x  | other)")) {
        for (const Keyword* const keyword : {&strings, &lines}) {
            const auto a = Make(*keyword);
            const auto b = Make(*keyword);
            At<Text>(*a, 0) = Text(row[0]);
            At<Text>(*b, 0) = Text(row[1]);
            const bool same = keyword == &strings ? row[2] == "same" : row[0] == row[1]; // a line keeps them
            EXPECT_EQ(KeywordIdentity(a.get()).Compare(b.get()), same) << row[0] << ' ' << row[1];
            EXPECT_EQ(KeywordIdentity(b.get()).Compare(a.get()), same) << row[1] << ' ' << row[0];
        }
    }
    const Made made("(l! s!)");
    At<Text>(*made.data, 0) = Text("'L'");
    At<Text>(*made.data, 1) = Text("'S'");
    EXPECT_EQ(KeywordIdentity(made.data.get()).GetString(), " 'L'S");
}

TEST(Identity, SeesLaterChangesOfTheData)
{
    const Made made(deep, "(1 (2) [[(3)]] 4)");
    const KeywordIdentity identity(made.data.get());
    const auto clone = made.data->CloneSafely();
    EXPECT_TRUE(identity.Compare(clone.get()));
    At<int>(*made.data, 3) = 7;
    EXPECT_EQ(identity.GetString(), " 1 2 3 7");
    EXPECT_FALSE(identity.Compare(clone.get()));
}

TEST(Identity, OfNothingIsThatOfNothing)
{
    const Made made("(i)");
    EXPECT_TRUE(KeywordIdentity(nullptr).Compare(nullptr));
    EXPECT_EQ(KeywordIdentity(nullptr).GetString(), "");
    EXPECT_FALSE(KeywordIdentity(nullptr).Compare(made.data.get()));
    EXPECT_FALSE(KeywordIdentity(made.data.get()).Compare(nullptr));
    EXPECT_FALSE(KeywordIdentity(made.data.get()).Compare(Made("(i)").data.get()));
}

TEST(Identity, StartsWithTheNameOfTheRootAndListsNoMoreThanTheKeywordCounts)
{
    Made made("(s! i!)", "('BAR' 5)");
    dynamic_cast<KeywordRecordMDImpl&>(const_cast<IKeywordDataMD&>(*made.keyword.GetDataMD())).SetName("FOO");
    for (const auto& [count, text] : {std::pair(1, "FOOBAR"), {2, "FOOBAR 5"}, {9, "FOOBAR 5"}}) {
        made.keyword.identifierCount = count;
        EXPECT_EQ(KeywordIdentity(made.data.get()).GetString(), text);
    }
}
