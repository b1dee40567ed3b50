#include "tests/data/DataText.h"
#include "tests/support/Documents.h"
#include "tests/support/SmallStack.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>
#include <thread>
#include <tuple>
#include <typeinfo>

using namespace Veld::Quor::Tests;

namespace {

std::string RandomShape(std::mt19937& dice, int depth, const std::string& containers)
{
    if (depth == 0 || dice() % 3 == 0)
        return std::string(1, "bcilrs"[dice() % 6]);
    switch (containers[dice() % containers.size()]) {
    case '(': {
        std::string record = "(";
        for (auto i = dice() % 6; i > 0; --i)
            record += RandomShape(dice, depth - 1, containers[0] == 'w' ? "w([{" : "([{");
        return record += ")";
    }
    case '[':
        return (dice() % 2 == 0 ? "[?" : "[") + RandomShape(dice, depth - 1, "([") + "]";
    case '{':
        return "{A B/C W*}";
    default:
        return "w";
    }
}

/// Sets another value. All but texts are in an optional as they are by themselves.
void Change(void* place, MDType::Enum type, bool optional)
{
    if (type == MDType::Boolean)
        *static_cast<char*>(place) = *static_cast<char*>(place) == 1 ? 0 : 1;
    else if (type == MDType::Choice || type == MDType::Integer)
        *static_cast<int*>(place) = *static_cast<int*>(place) < 0 ? 0 : *static_cast<int*>(place) + 1;
    else if (type == MDType::Real)
        *static_cast<double*>(place) += 0.5;
    else if (!optional)
        static_cast<std::string*>(place)->append("longer than what is stored in place");
    else if (auto& text = *static_cast<Service::Optional<std::string>*>(place); true)
        text = text.ValueOr({}) + "longer than what is stored in place";
}

using Changes = std::vector<std::function<void()>>;

/// All ways to change one thing in the tree.
void AddChanges(IKeywordData& data, Changes& changes)
{
    auto* const list = dynamic_cast<IKeywordListData*>(&data);
    auto* const map = dynamic_cast<IKeywordMapData*>(&data);
    std::size_t i = 0;
    for (const Child& child : ChildrenOf(data)) {
        if (IsNode(child.md)) {
            AddChanges(*static_cast<IKeywordData*>(child.place), changes);
        } else if (map) {
            changes.emplace_back([=] { map->SetValue(int(i), map->GetValue(int(i)).ValueOr(-1) + 1); });
        } else {
            if (!list || !list->IsDefaulted(i))
                changes.emplace_back([=] { Change(child.place, child.md->GetType(), !list); });
            if (list && dynamic_cast<const IKeywordListMD&>(*data.GetMD()).IsItemDefaultable())
                changes.emplace_back([=] { list->SetDefaulted(i, !list->IsDefaulted(i)); });
        }
        ++i;
    }
    if (list)
        changes.emplace_back([list] { list->AddData(nullptr); });
    if (list && i > 0)
        changes.emplace_back([=] { list->RemoveData(i - 1); });
    if (map)
        changes.emplace_back([=] { map->SetValue(std::string("W").append(std::to_string(i)), 1); });
    if (auto* const raw = dynamic_cast<IKeywordRawData*>(&data))
        changes.emplace_back([raw] { raw->SetData(raw->GetData() + "x"); });
}

void ChangeOneThing(IKeywordData& data, std::mt19937& dice)
{
    Changes changes;
    AddChanges(data, changes);
    if (!changes.empty())
        changes[dice() % changes.size()]();
}

using Stops = std::vector<std::tuple<const void*, const IKeywordDataMD*, bool>>;

void AddStops(IKeywordData& data, Stops& stops)
{
    stops.emplace_back(&data, data.GetMD(), false);
    for (const Child& child : ChildrenOf(data)) {
        if (IsNode(child.md))
            AddStops(*static_cast<IKeywordData*>(child.place), stops);
        else
            stops.emplace_back(child.place, child.md, data.GetMD()->GetType() != MDType::List);
    }
}

Stops StopsOf(IKeywordData& data)
{
    Stops stops;
    AddStops(data, stops);
    return stops;
}

/// Calls `test` with trees of random shape and content.
template <class Test>
void ForRandomTrees(const char* containers, Test test)
{
    for (unsigned seed = 0; seed < 300 && !testing::Test::HasFailure(); ++seed) {
        std::mt19937 dice(seed);
        std::string shape = "i";
        while (shape.size() == 1 && shape != "w") // a scalar has no data
            shape = RandomShape(dice, 4, containers);
        const Made made(shape);
        for (int step = 0; step < 60; ++step)
            ChangeOneThing(*made.data, dice);
        SCOPED_TRACE(std::to_string(seed) + ' ' + shape + ' ' + Dump(*made.data));
        test(*made.data, dice);
    }
}

/// A host's own class: a record of one item, of any metadata.
class HostRecord : public KeywordRecordData {
public:
    HostRecord(const IKeywordDataMD* md, void* item)
        : md_(md)
        , item_(item)
    {
    }
    IKeywordData* Clone() const override { return new HostRecord(md_, item_); }
    const IKeywordDataMD* GetMD() const override { return md_; }
    const IKeywordSyntax* GetSyntax() const override { return nullptr; }
    int GetSize() const override { return 1; }
    void* GetData(int) override { return item_; }
    const void* GetData(int) const override { return item_; }
    bool ReservedQuery() const override { return false; }
    bool ReservedRecordQuery() const override { return true; }

private:
    const IKeywordDataMD* md_;
    void* item_;
};

/// Walks, also the metadata, clones, compares and frees; the number of stops, or 0 if the clone differs.
int UseAllOver(const IKeywordData& data)
{
    const std::unique_ptr<IKeywordData> clone = data.CloneSafely();
    int count = 0;
    for (ConstDataIterator it(*clone); it != ConstDataIterator::End(); ++it)
        ++count;
    int nodes = 0;
    for (ConstMetaDataIterator it(*data.GetMD()); it != ConstMetaDataIterator::End(); ++it)
        ++nodes;
    return *clone == data && nodes > 0 ? count : 0;
}

} // namespace

TEST(RandomTree, IsEqualToItsCloneAndSharesNoValueWithIt)
{
    ForRandomTrees("w([{", [](IKeywordData& tree, std::mt19937&) {
        const std::unique_ptr<IKeywordData> clone = tree.CloneSafely();
        EXPECT_TRUE(tree == *clone);
        EXPECT_EQ(Dump(tree), Dump(*clone));
        std::set<const void*> places;
        for (const auto& [place, md, optional] : StopsOf(tree))
            places.insert(place);
        for (const auto& [place, md, optional] : StopsOf(*clone))
            EXPECT_TRUE(!place || places.count(place) == 0);
    });
}

TEST(RandomTree, DiffersAfterAnyOneChange)
{
    ForRandomTrees("w([{", [](IKeywordData& tree, std::mt19937& dice) {
        const std::string before = Dump(tree);
        for (int change = 0; change < 10; ++change) {
            const std::unique_ptr<IKeywordData> clone = tree.CloneSafely();
            ChangeOneThing(*clone, dice);
            EXPECT_EQ(tree == *clone, before == Dump(*clone)) << Dump(*clone);
            EXPECT_EQ(Dump(tree), before);
        }
    });
}

TEST(RandomTree, IsWalkedInTheOrderOfItsStructure)
{
    ForRandomTrees("([{", [](IKeywordData& tree, std::mt19937&) {
        Stops stops;
        for (DataIterator it(tree); it != DataIterator::End(); ++it) {
            const bool inMap = it->md->GetType() == MDType::Assignment;
            stops.emplace_back(inMap ? nullptr : it->value, it->md, it->isOptional);
        }
        EXPECT_EQ(stops, StopsOf(tree));
    });
}

TEST(DataWalk, StopsInPreOrder)
{
    for (const auto& row : Table(R"(
(i [(i i)] i)    | (1 [(2 -) (4 5)] 6)         | ( 1? [ ( 2? -? ( 4? 5? 6?
(() {} [i] ())   | (() {} [] ())               | ( ( { [ (
[[[?i]]]         | [[] [[1 2~] []] [[3]]]      | [ [ [ [ 1 2 [ [ [ 3
[({A B W*} i)]   | [({A=1 W1=3} 2) ({B=3} 4)]  | [ ( { 1? -? 3? 2? ( { -? 3? 4?)")) {
        const Made made(row[0], row[1]);
        std::string text;
        for (ConstDataIterator it(*made.data); it != ConstDataIterator::End(); ++it) {
            const bool isNode = IsNode(it->md);
            const int value = isNode ? 0 : *static_cast<const int*>(it->value);
            text += text.empty() ? "" : " ";
            text += isNode ? Dump(*static_cast<const IKeywordData*>(it->value)).substr(0, 1)
                : value == std::numeric_limits<int>::min() ? "-"
                                                           : std::to_string(value);
            text += it->isOptional ? "?" : "";
        }
        EXPECT_EQ(text, row[2]);
    }
}

TEST(DataWalk, ShowsACopyOfAMapsValue)
{
    const Made made("{A B}", "{A=1 B=2}");
    DataIterator it(*made.data);
    int* const place = static_cast<int*>((++it)->value);
    *place = 9;
    EXPECT_EQ((++it)->value, place);
    EXPECT_EQ(*place, 2);
    EXPECT_EQ(Dump(*made.data), "{A=1 B=2}");
}

TEST(DataWalk, EndsOnceAndDiffersBetweenTrees)
{
    const Made made("({A B} [i])", "({A=1} [2 3])");
    const std::unique_ptr<IKeywordData> clone = made.data->CloneSafely();
    const ConstDataIterator& end = ConstDataIterator::End();
    ConstDataIterator a(*made.data);
    ConstDataIterator b(*made.data);
    ConstDataIterator c(*clone);
    for (; *a; ++a, ++c) {
        EXPECT_TRUE(a == b && a != c && a != end);
        EXPECT_TRUE(a != ++b);
    }
    EXPECT_TRUE(a == b && a != c) << "at the ends of two trees";
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(a == end && end == ++a && a == ConstDataIterator() && !*a);
    ConstDataIterator from(*made.data);
    EXPECT_TRUE(++from != ConstDataIterator(At(*made.data, 0))) << "one stop, from two roots";
}

TEST(DataWalk, RefusesRawTextBeforeTheFirstStop)
{
    for (const char* const shape : {"w", "(i [((w))])", "[(w)]"})
        EXPECT_EQ(FailureOf([&] { ConstDataIterator it(*Made(shape).data); }),
            "AnyContainerIteratorImpl: unhandled type");
}

TEST(HostsRecord, IsWalkedAndCompared)
{
    const Made made("(i)", "(5)");
    int item = 5;
    const HostRecord host(made.keyword.GetDataMD(), &item);
    EXPECT_TRUE(host == *made.data && *made.data == host);
    item = 6;
    EXPECT_FALSE(host == *made.data || *made.data == host);
    const Keyword nested("((i))");
    const HostRecord hollow(nested.GetDataMD(), nullptr);
    EXPECT_FALSE(hollow == *Make(nested, "((5))"));
    ConstDataIterator it(hollow);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(++it == ConstDataIterator::End());
}

TEST(Equality, IsOfValuesNotOfStorage)
{
    for (const auto& row : Table(R"(
(r)    | (0)          | (-0)                      | same
(r)    | (1)          | (1.0000000000000002)      | other
(r)    | (nan)        | (nan)                     | other
(s)    | ('a')        | ('A')                     | other
(l)    | ('a')        | ('A')                     | other
(s)    | ('')         | (-)                       | other
(b)    | (1)          | (2)                       | same
(b)    | (0)          | (2)                       | other
(b)    | (-1)         | (-3)                      | same
(b)    | (-1)         | (0)                       | other
[b]    | [1]          | [2]                       | other
[i]    | [1 2]        | [2 1]                     | other
[s]    | ['a']        | ['A']                     | other
[r]    | [0 1]        | [-0 1]                    | same
[?i]   | [1~ 2]       | [9~ 2]                    | same
[?s]   | ['A'~ 'B']   | ['Z'~ 'B']                | same
[?r]   | [1~ 2]       | [1~ 3]                    | other
{A W*} | {W1=5 W2=6}  | {W3=5 W4=6}               | same
w      | "a"          | "A"                       | other
(i 0)  | (1 -)        | (1 -)                     | same)")) {
        const Keyword keyword(row[0]);
        const auto a = Make(keyword, row[1]);
        const auto b = Make(keyword, row[2]);
        EXPECT_EQ(KeywordDataEqual(*a, *b), row[3] == "same") << row[1] << row[2];
        EXPECT_EQ(*b == *a, row[3] == "same") << row[1] << row[2];
        EXPECT_TRUE(*a == *a);
        EXPECT_FALSE(*a == *Made(row[0], row[1]).data) << "of other metadata";
    }
    const Made unset("(s)", "('left over')");
    At<Service::Optional<std::string>>(*unset.data, 0).Reset();
    EXPECT_TRUE(*unset.data == *Make(unset.keyword));
}

TEST(Equality, OfALongListIsThatOfEachElement)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const std::size_t before : {0U, 14U, 15U, 16U, 255U, 256U, 1000U}) {
        const Made made("[r]");
        AsList(*made.data).Reserve(5000); // what is reserved plays no part
        for (std::size_t i = 0; i < before; ++i)
            AsList(*made.data).AddData(nullptr);
        EXPECT_TRUE(*made.data == *made.data->CloneSafely()) << before;
        AsList(*made.data).AddData(&nan);
        EXPECT_FALSE(*made.data == *made.data->CloneSafely()) << before;
    }
}

TEST(Equality, RefusesTypesThatCannotBeCompared)
{
    const std::string type = "KeywordRecordDataEqual: unhandled data type ";
    const Keyword assignment("(a)");
    const HostRecord a(assignment.GetDataMD(), nullptr);
    const HostRecord b(assignment.GetDataMD(), nullptr);
    EXPECT_EQ(FailureOf([&] { KeywordDataEqual(a, b); }), type + typeid(KeywordAssignmentMDImpl).name());
    const Keyword scalar("i");
    const HostRecord c(scalar.GetDataMD(), nullptr);
    const HostRecord d(scalar.GetDataMD(), nullptr);
    EXPECT_EQ(FailureOf([&] { KeywordDataEqual(c, d); }),
        "KeywordDataEqual: unhandled IKeywordData type " + std::string(typeid(HostRecord).name()));
}

TEST(SharedTree, IsReadBySeveralThreads)
{
    const Made made(
        "(b [(i! s! {A W*} [[r]])] [?s])", "(1 [(1 'x' {W1=2} [[1 2] [3]]) (2 - {} [])] ['A'~ 'B'])");
    std::vector<int> stops(4);
    std::vector<std::thread> threads;
    for (int& count : stops)
        threads.emplace_back([&count, &made] {
            for (int round = 0; round < 200; ++round) {
                const bool same = KeywordIdentity(made.data.get()).Compare(made.data.get());
                count = same ? UseAllOver(*made.data) : 0;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(stops, std::vector<int>(4, 24));
}

TEST(SmallStack, IsEnoughForAMillionRecordsAndTheDeepestDocument)
{
    const auto nested = [](int depth, const std::string& open, const std::string& close) {
        std::string text = "<real/>";
        for (int i = 0; i < depth; ++i)
            text = open + text + close;
        return "<keyword name='DEEP'><data>" + text + "</data></keyword>";
    };
    // Root, keyword, data and the real take the rest.
    constexpr int lists = static_cast<int>(Service::XML::XMLDocument::MaxDepth) - 4;
    constexpr int records = lists / 2; // each with an item
    std::vector<int> stops;
    OnSmallStack([&] {
        const Made many("[(i)]");
        for (int i = 0; i < 1'000'000; ++i)
            AsList(*many.data).AddData(nullptr);
        stops.push_back(UseAllOver(*many.data));
        {
            const LoadedTable table(nested(lists, "<list>", "</list>"));
            const auto data = Make(table.Get("DEEP"));
            IKeywordData* list = data.get();
            for (int depth = 1; depth < lists; ++depth)
                list = static_cast<IKeywordData*>(AsList(*list).AddData(nullptr));
            AsList(*list).AddData(nullptr);
            stops.push_back(UseAllOver(*data));
        }
        const LoadedTable table(nested(records, "<record><item>", "</item></record>"));
        stops.push_back(UseAllOver(*Make(table.Get("DEEP"))));
    });
    EXPECT_EQ(stops, (std::vector<int>{2'000'001, lists + 1, records + 1}));
}
