#include "tests/data/DataText.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <climits>

using namespace Veld::Quor::Tests;

namespace {

template <class T>
std::vector<T> Copy(const ArrayView<T>& view)
{
    return {view.begin(), view.end()};
}

} // namespace

TEST(AccessToLists, SeesTheElementsInPlaceAndTheirFlags)
{
    const Made made("[?i]", "[1 2~ 3~]");
    IKeywordListData& list = AsList(*made.data);
    const ArrayView<int> view = As<int>(list);
    EXPECT_EQ(view.data(), list.GetData(0));
    EXPECT_EQ(Copy(view), (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(view.IsDefaulted(1));
    SetValueAt(list, 1, 5); // a value is given now
    EXPECT_EQ(Dump(list), "[1 5 3~]");
    EXPECT_FALSE(view.IsDefaulted(1));
    EXPECT_EQ(ValueAt<int>(list, 2), 3);
    list.Clear();
    EXPECT_TRUE(As<int>(list).empty());
}

TEST(AccessToLists, KnowsWhichValuesAreUnknown)
{
    const Made made("[?i]", "[1 2]");
    IKeywordListData& list = AsList(*made.data);
    AddValue(list, INT_MIN); // a number like any other, as long as none is unknown
    EXPECT_EQ(As<int>(list)[2], INT_MIN);
    EXPECT_FALSE(HasUnknown(list));
    list.Clear();
    AddValue(list, 1);
    AddUnknown(list, 3000);
    const std::unique_ptr<IKeywordData> copy = list.CloneSafely();
    EXPECT_TRUE(*copy == list);
    EXPECT_TRUE(HasUnknown(AsList(*copy)));
    const char* const reason =
        "TEST: element index 1 has no value: a variable that isn't set is in its place";
    EXPECT_EQ(ReasonOf([&] { As<int>(list); }), reason);
    EXPECT_EQ(ReasonOf([&] { ValueAt<int>(list, 1); }), reason);
    EXPECT_EQ(ValueAt<int>(list, 0), 1);
    EXPECT_FALSE(IsUnknown(list, 0));
    EXPECT_TRUE(IsUnknown(list, 3000));
    while (list.GetSize() > 2)
        list.RemoveData(2);
    SetValueAt(list, 1, 4);
    EXPECT_FALSE(HasUnknown(list));
    EXPECT_EQ(Copy(As<int>(list)), (std::vector<int>{1, 4}));
    const Made reals("[r]", "[]");
    AddUnknown(AsList(*reals.data));
    EXPECT_TRUE(IsUnknown(AsList(*reals.data), 0));
    EXPECT_FALSE(HasUnknown(AsList(*Made("[s]", "['a']").data)));
    const Made flags("[b]", "[1]");
    AddUnknown(AsList(*flags.data));
    EXPECT_FALSE(IsUnknown(AsList(*flags.data), 0));
    EXPECT_EQ(ReasonOf([&] { ValueAt<bool>(AsList(*flags.data), 1); }), reason);
    ConstDataIterator stop(*flags.data);
    EXPECT_TRUE(Get<bool>(**++stop).Value());
    EXPECT_FALSE(Get<bool>(**++stop)) << "not given";
}

TEST(AccessToLists, ReadsTextsAndBooleansByElement)
{
    const Made texts("[s]", "['a' 'b']");
    AddValue(AsList(*texts.data), "c");
    AddValue(AsList(*texts.data), std::string("d"));
    SetValueAt(AsList(*texts.data), 0, "e");
    EXPECT_EQ(Copy(As<std::string>(AsList(*texts.data))), (std::vector<std::string>{"e", "b", "c", "d"}));
    EXPECT_EQ(ValueAt<std::string>(AsList(*texts.data), 3), "d");
    const Made flags("[b]", "[0 7]");
    AddValue(AsList(*flags.data), true);
    SetValueAt(AsList(*flags.data), 0, true);
    EXPECT_EQ(Dump(*flags.data), "[1 7 1]");
    EXPECT_TRUE(ValueAt<bool>(AsList(*flags.data), 1)) << "every byte but 0";
}

TEST(AccessToMaps, FindsAliasesAndWildcardsAndRefusesUnknownKeys)
{
    const Made made("({A/B C W*} w)");
    IKeywordRecordData& record = AsRecord(*made.data);
    IKeywordMapData& map = MapIn(record, 0);
    EXPECT_FALSE(Has(map, "A"));
    Set(map, " b ", 5);
    Set(map, "W1", 6);
    EXPECT_EQ(Get(map, "A").Value(), 5);
    EXPECT_EQ(Get(map, "w1").Value(), 6);
    EXPECT_FALSE(Get(map, "W2")) << "known to the wildcard";
    Clear(map, "B");
    Clear(map, "W2");
    RawIn(record, 1).SetData("raw");
    EXPECT_EQ(Dump(record), R"(({A=- C=- W1=6} "raw"))");
    EXPECT_EQ(FailureOf([&] { Get(map, "X"); }), "TEST: no key 'X'; did you mean 'A'?");
    EXPECT_EQ(FailureOf([&] { Set(map, "FIELD", 1); }), "TEST: no key 'FIELD'; expected 'A', 'B' or 'C'");
    EXPECT_EQ(FailureOf([&] { Clear(map, "FIELD"); }), "TEST: no key 'FIELD'; expected 'A', 'B' or 'C'");
    EXPECT_EQ(FailureOf([&] { Set(map, "A", INT_MIN); }),
        "TEST: key 'A' cannot hold the value that stands for 'not given'");
}
