#include "tests/data/DataText.h"
#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

using namespace Veld::Quor::Tests;

namespace {

constexpr const char* shape = "(b i r s l [i] [?s] [(i s [r])] [[s]] {A/B C W*} w)";
constexpr const char* values =
    "(1 2 0.5 'a text that is too long to be stored in place' - [1 2 3] ['another text that is not stored in "
    "place'~ 'x'] [(1 'y' [2 3])] [['z'] []] {A=1 C=2 W1=3 W2=4} \"a raw text that is not stored in place\")";

} // namespace

TEST(FailedAllocation, LeavesNothingOfNewData)
{
    const Keyword keyword(shape);
    EXPECT_GT(FailEachAllocation([&] { Make(keyword); }, [] {}), 5);
}

TEST(FailedAllocation, LeavesNothingOfAClone)
{
    const Made made(shape, values);
    EXPECT_GT(
        FailEachAllocation([&] { made.data->CloneSafely(); }, [&] { EXPECT_EQ(Dump(*made.data), values); }),
        15);
}

TEST(FailedAllocation, DoesNotHappenInAComparison)
{
    const Made made(shape, values);
    const auto clone = made.data->CloneSafely();
    bool equal = false;
    EXPECT_EQ(FailEachAllocation([&] { equal = *made.data == *clone; }, [] {}), 0);
    EXPECT_TRUE(equal);
}

TEST(FailedAllocation, DoesNotHappenInAWalk)
{
    const Made made("[(i [[s]] {A B})]", "[(1 [['a' 'b'] []] {A=1}) (2 [] {})]");
    EXPECT_EQ(FailEachAllocation([&] { ConstDataIterator it(*made.data); }, [] {}), 1);
    int stops = 0;
    ConstDataIterator it(*made.data);
    EXPECT_EQ(FailEachAllocation(
                  [&] {
                      for (; it != ConstDataIterator::End(); ++it)
                          ++stops;
                  },
                  [] {}),
        0);
    EXPECT_EQ(stops, 17);
}

TEST(FailedAllocation, LeavesTheDataAsTheyWere)
{
    static const std::string text = "a new text that is too long to be stored in place";
    using Change = void (*)(IKeywordData&);
    const std::vector<std::pair<const char*, Change>> changes{
        {"\n[s] | ['1' '2' '3' '4'] | ['1' '2' '3' '4' '*']",
            [](auto& data) { AsList(data).AddData(&text); }},
        {"\n[s] | ['1'] | ['1' '*']", [](auto& data) { AsList(data).AddData(&text, &text + 1); }},
        {"\n[s] | ['1' '2'] | ['1' '2' '1']",
            [](auto& data) { AsList(data).AddData(AsList(data).GetData(0), AsList(data).GetData(1)); }},
        {"\n[s] | ['1'] | ['*']", [](auto& data) { AsList(data).SetData(0, &text); }},
        {"\n[?s] | ['1' '2'] | ['1' '2'~]", [](auto& data) { AsList(data).SetDefaulted(1, true); }},
        {"\n[(i s)] | [(1 'x')] | [(1 'x') (- -)]", [](auto& data) { AsList(data).AddData(nullptr); }},
        {"\n[([s])] | [(['x'])] | [(['x']) (['x'])]",
            [](auto& data) { AsList(data).AddData(AsList(data).GetData(0)); }},
        {"\n[([s])] | [(['x']) ([])] | [(['x']) (['x'])]",
            [](auto& data) { AsList(data).SetData(1, AsList(data).GetData(0)); }},
        {"\n{A W*} | {A=1} | {A=1 W2=5}", [](auto& data) { AsMap(data).SetValue("w2", 5); }},
        {"\n{A W* WELL*} | {A=1} | {A=1 WELL2=5 WELL2=5}",
            [](auto& data) { AsMap(data).SetValue("WELL2", 5); }},
        {"\nw | \"x\" | \"*\"", [](auto& data) { AsRaw(data).SetData(text); }},
    };
    for (const auto& [cells, change] : changes) {
        SCOPED_TRACE(cells);
        const auto row = Table(cells).front();
        const Made made(row[0], row[1]);
        change(*Make(made.keyword, row[1])); // metadata may keep what they are asked for the first time
        const auto unchanged = [&] { EXPECT_EQ(Dump(*made.data), row[1]); };
        EXPECT_GT(FailEachAllocation([&, run = change] { run(*made.data); }, unchanged), 0);
        const std::size_t star = row[2].find('*');
        EXPECT_EQ(Dump(*made.data),
            star == std::string::npos || row[2][0] == '{' ? row[2]
                                                          : std::string(row[2]).replace(star, 1, text));
    }
}

TEST(Data, FreeAllTheirMemory)
{
    const Keyword keyword(shape);
    Make(keyword, values); // metadata may keep what they are asked for the first time
    const long before = Allocations::CountLive();
    {
        const auto data = Make(keyword, values);
        const auto clone = data->CloneSafely();
        AsList(At(*clone, 7)).RemoveData(0);
        AsList(At(*clone, 8)).Clear();
        EXPECT_GT(Allocations::CountLive(), before);
    }
    EXPECT_EQ(Allocations::CountLive(), before);
}
