#include "tests/data/DataText.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <limits>
#include <random>
#include <stdexcept>
#include <typeinfo>
#include <utility>

using namespace Veld::Quor::Tests;

namespace {

static_assert(std::is_base_of_v<KeywordListData<char>, KeywordListData<bool>>);
static_assert(std::is_base_of_v<KeywordListDataStorageImpl_<int>, KeywordListDataBaseClassSelector2_<int>>);

constexpr const char* badIndex = "KeywordListPtrDataImpl_: invalid index";

/// What the factory gives: "none", the data, or why there can't be any.
std::string Constructed(const IKeywordSyntax& keyword)
{
    std::string text;
    const std::string failure = FailureOf([&] {
        const std::unique_ptr<IKeywordData> data = Make(keyword);
        text = data ? Dump(*data) : "none";
    });
    return failure == "done" ? text : failure;
}

template <class MD>
std::string Unhandled(const std::string& function)
{
    return "GenericKeywordDataFactory::" + function + ": unhandled data type \"" + typeid(MD).name() + '"';
}

} // namespace

TEST(NewData, HaveTheShapeOfTheMetadata)
{
    for (const auto& row : Table(R"(
                                    | none
(b c i l r s (i [s]) [r] {A B*} w)  | (- - - - - - (- []) [] {A=-} "")
()                                  | ()
(i 0 r)                             | (- 0 -)
[(i)]                               | []
[]                                  | none
{A B C*}                            | {A=- B=-}
i                                   | none
a                                   | none)"))
        EXPECT_EQ(Constructed(Keyword(row[0])), row[1]);
}

TEST(NewData, RefuseTypesThatNoContainerHolds)
{
    const std::string list = "Construct(IKeywordListMD)";
    const std::string item = "ConstructRecordElement()";
    EXPECT_EQ(Constructed(Keyword("[{A}]")), Unhandled<KeywordMapMDImpl>(list));
    EXPECT_EQ(Constructed(Keyword("[w]")), Unhandled<KeywordRawMDImpl>(list));
    EXPECT_EQ(Constructed(Keyword("(i [a])")), Unhandled<KeywordAssignmentMDImpl>(list));
    EXPECT_EQ(Constructed(Keyword("([i] (s []))")), Unhandled<KeywordListMDImpl>(item));
    const Made made("[(s a)]");
    EXPECT_EQ(
        FailureOf([&] { AsList(*made.data).AddData(nullptr); }), Unhandled<KeywordAssignmentMDImpl>(item));
    EXPECT_EQ(Dump(*made.data), "[]");
}

TEST(NewData, KnowTheKeywordAtEveryDepth)
{
    const Made made("([(i)])", "([(1)])");
    const auto clone = made.data->CloneSafely();
    for (IKeywordData* const data : {made.data.get(), clone.get()}) {
        EXPECT_EQ(data->GetMD(), made.keyword.GetDataMD());
        EXPECT_EQ(At(At(*data, 0), 0).GetSyntax(), &made.keyword);
    }
}

TEST(Registration, IsFirstComeFirstServedAndForRootsAlone)
{
    static const Keyword host("w");
    const auto first = +[] { return Make(host, "\"first\""); };
    const auto second = +[] { return Make(host, "\"second\""); };
    const auto failing = +[]() -> std::unique_ptr<IKeywordData> { throw std::domain_error("no"); };
    const Keyword keyword("((i))");
    const IKeywordDataMD* const md = keyword.GetDataMD();
    const IKeywordDataMD* const below = dynamic_cast<const IKeywordRecordMD&>(*md).GetItemMD(0);
    KeywordDataFactory& factory = KeywordDataFactory::Instance();
    const LogCapture log;
    factory.Register(nullptr, first);
    factory.Register(nullptr, first);
    factory.Register(below, first);
    EXPECT_EQ(Constructed(keyword), "((-))");
    factory.Register(md, first);
    EXPECT_EQ(Constructed(keyword), "\"first\"");
    EXPECT_EQ(log.Text(), "");
    factory.Register(md, second);
    EXPECT_EQ(Constructed(keyword), "\"first\"");
    ASSERT_EQ(log.Text(), "Ignore multiple attempts to register ctor for keyword data\n");
    EXPECT_EQ(log.Lines().front().severity, Service::MessageSeverity::Warning);
    factory.Remove(md);
    factory.Register(md, nullptr); // holds the place
    factory.Register(md, first);
    EXPECT_EQ(log.Lines().size(), 2U);
    EXPECT_EQ(Constructed(keyword), "((-))");
    factory.Remove(md);
    factory.Register(md, failing);
    EXPECT_THROW(factory.Construct(keyword), std::domain_error);
    for (const IKeywordDataMD* const one : {md, md, below})
        factory.Remove(one);
    EXPECT_EQ(Constructed(keyword), "((-))");
}

TEST(Record, StoresOneBytePatternForNotGiven)
{
    const Made made("(b i r)");
    EXPECT_EQ(At<unsigned char>(*made.data, 0), 255);
    EXPECT_EQ(At<int>(*made.data, 1), INT_MIN);
    EXPECT_EQ(At<double>(*made.data, 2), DBL_MIN);
}

TEST(Record, HasScalarsAtTheSameDistanceWhereverItIs)
{
    const auto distances = [](const IKeywordData& data) {
        std::vector<std::ptrdiff_t> all;
        for (const int i : {0, 2, 3, 4})
            all.push_back(static_cast<const char*>(AsRecord(data).GetData(i))
                - reinterpret_cast<const char*>(&AsRecord(data)));
        return all;
    };
    const Made made("[(b [i] s i r)]");
    const std::unique_ptr<IKeywordData> other = Make(made.keyword);
    const IKeywordRecordData& first = AddRecord(AsList(*made.data));
    EXPECT_EQ(distances(AddRecord(AsList(*made.data))), distances(first));
    EXPECT_EQ(distances(AddRecord(AsList(*other))), distances(first));
    EXPECT_EQ(distances(*first.CloneSafely()), distances(first));
}

TEST(Map, FindsThePairOfAKeyOrMakesOne)
{
    for (const auto& row : Table(R"(
A     | true  | {A=5 B=1}                 | {A=- B=1}
C     | true  | {A=- B=5}                 | {A=- B=-}
 b    | true  | {A=- B=5}                 | {A=- B=-}
X     | false | {A=- B=1}                 | {A=- B=1}
      | false | {A=- B=1}                 | {A=- B=1}
AA    | false | {A=- B=1}                 | {A=- B=1}
d.x   | true  | {A=- B=1 D.X=5}           | {A=- B=1 D.X=-}
D.    | true  | {A=- B=1 D.=5}            | {A=- B=1 D.=-}
WELL1 | true  | {A=- B=1 WELL1=5 WELL1=5} | {A=- B=1 WELL1=- WELL1=5})")) {
        const Made made("{A B/C D.* W* WELL*}", "{B=1}");
        IKeywordMapData& map = AsMap(*made.data);
        const std::string key = std::string("  ").append(row[0]).append(" ");
        const bool found = row[1] == "true";
        for (int round = 0; round < 2; ++round) { // then it finds the pair that it made
            EXPECT_EQ(map.SetValue(key, 5), found) << key;
            EXPECT_EQ(Dump(map), row[2]);
        }
        Service::Optional<int> value = 9;
        EXPECT_EQ(map.GetValue(key, value), found);
        EXPECT_EQ(value, found ? Service::Optional<int>(5) : Service::Optional<int>());
        EXPECT_EQ(map.SetValueToDefault(key), found);
        EXPECT_EQ(Dump(map), row[3]);
        map.SetValue(1, 7);
        EXPECT_EQ(*map.GetValue(1), 7);
        map.SetValueToDefault(1);
        EXPECT_FALSE(map.GetValue(1));
    }
}

TEST(Map, SharesTheMetadataOfNewPairsWithItsClone)
{
    Made made("{A W*}", "{W1=5}");
    const std::unique_ptr<IKeywordData> clone = made.data->CloneSafely();
    EXPECT_EQ(AsMap(*clone).GetItemMD(1), AsMap(*made.data).GetItemMD(1));
    made.data.reset();
    EXPECT_EQ(Dump(*clone), "{A=- W1=5}");
}

TEST(MapHelper, LeavesPairsAloneWithoutMetadata)
{
    const Keyword keyword("{A W*}");
    const auto& md = dynamic_cast<const IKeywordMapMD&>(*keyword.GetDataMD());
    KeywordMapDataHelper::Pairs pairs;
    pairs.emplace_back(md.GetItemMD(0), Service::Optional<int>());
    EXPECT_EQ(KeywordMapDataHelper::FindIndex(pairs, " a "), 0);
    EXPECT_FALSE(KeywordMapDataHelper::SetValue(pairs, "W1", 5, nullptr));
    EXPECT_EQ(pairs.size(), 1U);
    EXPECT_TRUE(KeywordMapDataHelper::SetValue(pairs, "w1", Service::Optional<int>(), &md));
    EXPECT_EQ(KeywordMapDataHelper::FindIndex(pairs, "W1"), 1);
    EXPECT_NE(pairs[1].GetMD(), md.GetWildcardItemMD(0));
    EXPECT_FALSE(KeywordMapDataHelper::GetDefaultValue(pairs, "W1"));
}

TEST(MapHelper, MatchesAStarAtTheEndAlone)
{
    for (const auto& row : Table(R"(
AB* | AB  | true
AB* | ABC | true
AB* | A   | false
AB* | XAB | false
*   |     | true
    |     | true
    | A   | false
A*B | AXB | false
A   | a   | false
A   | AB  | false
A** | A*X | true
A** | AX  | false)"))
        EXPECT_EQ(KeywordMapDataHelper::MatchKeys(row[0], row[1]), row[2] == "true") << row[0] << row[1];
}

TEST(List, RefusesBadIndicesAndCopiesItsOwnElements)
{
    for (const auto& row : Table(R"(
[b]      | [1 0]           | [1 0 0]             | [0]       | Storage
[c]      | [1 2]           | [1 2 0]             | [2]       | Storage
[i]      | [5 -7]          | [5 -7 0]            | [-7]      | Storage
[l]      | ['one' 'two']   | ['one' 'two' '']    | ['two']   | Storage
[r]      | [0.5 2]         | [0.5 2 0]           | [2]       | Storage
[?s]     | ['a text too long to be stored in place' ''] | ['a text too long to be stored in place' '' ''] | [''] | Storage
[(i s)]  | [(1 'A') (2 -)] | [(1 'A') (2 -) (- -)] | [(2 -)] | Ptr
[[i]]    | [[1] [2 3]]     | [[1] [2 3] []]      | [[2 3]]   | Ptr)")) {
        SCOPED_TRACE(row[0]);
        const Made made(row[0], row[1]);
        IKeywordListData& list = AsList(*made.data);
        for (const std::size_t index : {std::size_t{2}, std::size_t{99}, static_cast<std::size_t>(-1)}) {
            EXPECT_EQ(FailureOf([&] { list.SetData(index, nullptr); }), badIndex);
            EXPECT_EQ(FailureOf([&] { list.RemoveData(index); }), badIndex);
        }
        EXPECT_EQ(FailureOf([&] { list.SetData(0, nullptr); }),
            row[4] == "Ptr" ? "KeywordListPtrDataImpl_::SetData: NULL pointer is not acceptable"
                            : "KeywordListDataStorageImpl_::SetData: NULL pointer is not acceptable");
        EXPECT_THROW(list.Reserve(std::numeric_limits<std::size_t>::max()), std::exception);
        for (int i = 0; i < 100; ++i) // its own element, through several growths
            list.AddData(list.GetData(1));
        for (int i = 0; i < 100; ++i)
            list.RemoveData(2);
        EXPECT_EQ(Dump(list), row[1]);
        const void* const added = list.AddData(nullptr);
        EXPECT_EQ(added, list.GetData(2));
        EXPECT_EQ(Dump(list), row[2]);
        list.RemoveData(2);
        list.SetData(0, list.GetData(1));
        list.RemoveData(1);
        EXPECT_EQ(Dump(list), row[3]);
        list.Clear();
        EXPECT_EQ(Dump(list), "[]");
    }
}

TEST(ValueList, GrowsToFourElementsAndThenToTwiceAsMany)
{
    for (const char* const shape : {"[i]", "[r]", "[s]", "[b]"}) {
        const Made made(shape);
        IKeywordListData& list = AsList(*made.data);
        const void* const first = list.AddData(nullptr);
        for (int size = 2; size <= 8; ++size) {
            const void* const before = list.GetData(0);
            list.AddData(nullptr);
            EXPECT_TRUE(size == 5 || list.GetData(0) == before) << shape << " moved at " << size;
            EXPECT_TRUE(size > 4 || list.GetData(0) == first) << shape;
        }
    }
}

TEST(ValueList, DoublesFromAPartOfItself)
{
    for (const auto& row : Table(R"(
[?i] | [1~ 2 3]      | [1~ 2 3 2 3 2 3 2 3 2 3 2 3]
[l]  | ['1' '2' '3'] | ['1' '2' '3' '2' '3' '2' '3' '2' '3' '2' '3' '2' '3'])")) {
        const Made made(row[0], row[1]);
        IKeywordListData& list = AsList(*made.data);
        list.AddData(list.GetData(1), list.GetData(1));
        for (int round = 0; round < 5; ++round)
            list.AddData(list.GetData(1), list.GetData(3));
        EXPECT_EQ(Dump(list), row[2]);
    }
}

TEST(Flags, AreIgnoredInListsWithoutThem)
{
    const Made values("[i]", "[-2147483648~]");
    EXPECT_EQ(Dump(*values.data), "[-2147483648]");
    EXPECT_EQ(FailureOf([&] { AsList(*values.data).SetDefaulted(1, true); }), badIndex);
    EXPECT_EQ(FailureOf([&] { AsList(*values.data).IsDefaulted(1); }), badIndex);
    const Made records("[?(i)]", "[(1)~]");
    AsList(*records.data).SetDefaulted(99, true);
    EXPECT_FALSE(AsList(*records.data).IsDefaulted(99)) << "the index is not looked at";
    EXPECT_EQ(Dump(*records.data), "[(1)]");
}

TEST(Flags, StayWithTheirElementsThroughRandomChanges)
{
    std::mt19937 random(20);
    const auto below = [&random](std::size_t n) { return random() % n; };
    for (int round = 0; round < 100; ++round) {
        const Made made("[?i]");
        IKeywordListData& list = AsList(*made.data);
        std::vector<std::pair<int, bool>> model;
        for (int step = 0; step < 400; ++step) {
            const int value = static_cast<int>(below(1000));
            const std::size_t at = model.empty() ? 0 : below(model.size());
            const auto place = model.begin() + static_cast<std::ptrdiff_t>(at);
            switch (model.empty() ? 0 : below(step % 100 == 99 ? 5 : 4)) {
            case 0: {
                const std::vector<int> values(below(70) + 1, value);
                list.AddData(values.data(), values.data() + values.size());
                model.resize(model.size() + values.size(), {value, false});
                break;
            }
            case 1:
                list.RemoveData(at);
                model.erase(place);
                break;
            case 2:
                list.SetDefaulted(at, value % 3 != 0);
                place->second = value % 3 != 0;
                break;
            case 3:
                list.SetData(at, &value);
                place->first = value;
                break;
            default:
                list.Clear();
                model.clear();
            }
        }
        std::string expected = "[";
        for (const auto& [value, flag] : model)
            expected.append(expected.size() == 1 ? "" : " ")
                .append(std::to_string(value))
                .append(flag ? "~" : "");
        expected += ']';
        ASSERT_EQ(Dump(*list.CloneSafely()), expected) << round;
    }
}

TEST(NodeList, RefusesNodesOfOtherMetadata)
{
    const Made made("[(i [i])]", "[(1 [2])]");
    IKeywordListData& list = AsList(*made.data);
    const std::unique_ptr<IKeywordData> record = At(list, 0).CloneSafely();
    list.AddData(record.get());
    list.SetData(0, record.get());
    At<int>(*record, 0) = 7;
    EXPECT_EQ(Dump(list), "[(1 [2]) (1 [2])]");
    const Made twin("(i [i])");
    const std::string inconsistent = "KeywordListPtrDataImpl_::SetData: data type inconsistent";
    EXPECT_EQ(FailureOf([&] { list.SetData(0, twin.data.get()); }), inconsistent);
    EXPECT_EQ(FailureOf([&] { list.AddData(twin.data.get()); }), inconsistent);
    list.AddData(record.get(), record.get() + 1); // there are no arrays of nodes
    EXPECT_EQ(Dump(list), "[(1 [2]) (1 [2])]");
    const Made barren("[[]]");
    EXPECT_EQ(AsList(*barren.data).AddData(nullptr), nullptr);
    EXPECT_EQ(AsList(*barren.data).AddData(twin.data.get()), nullptr);
    EXPECT_EQ(AsList(*barren.data).GetSize(), 0);
}
