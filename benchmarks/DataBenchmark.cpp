// Records, lists and walks, beside what a host would write by itself: a plain struct of optionals, one `new`
// for each scalar, a vector, a loop. The counter `ratio` is the library's time over that of its peer.

#include "quor/Keywords.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <malloc.h>
#include <unistd.h>

using namespace Veld::Quor::Core;
using namespace Veld::Quor::Core::Keywords;

namespace {

constexpr std::size_t recordCount = 10'000;
constexpr std::size_t valueCount = 1'000'000;

/// RECORDS, a list of records of twelve items, and REALS, a list of reals, of a separate document.
const IKeywordSyntax& Syntax(const char* name)
{
    static const KeywordSyntaxTable& table = []() -> KeywordSyntaxTable& {
        std::string items;
        for (int i = 0; i < 6; ++i)
            items += "<item><real/></item><item><integer/></item>";
        const std::filesystem::path file =
            std::filesystem::temp_directory_path() / ("quor-benchmark-" + std::to_string(::getpid()));
        std::ofstream(file)
            << "<keywords><keyword name='RECORDS'><data><list><record>" << items
            << "</record></list></data></keyword><keyword name='REALS'><data><list><real/></list>"
               "</data></keyword></keywords>";
        ::setenv("QUOR_KEYWORD_SYNTAX_FILE", file.c_str(), 1);
        KeywordSyntaxTable& loaded = KeywordSyntaxTable::Instance();
        std::filesystem::remove(file);
        return loaded;
    }();
    return *table.Lookup(name, true);
}

/// Of this thread alone, whatever else the machine does.
double Now()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

template <class Action>
double SecondsOf(Action action)
{
    const double start = Now();
    action();
    return Now() - start;
}

/// Runs both in turn, so that what disturbs the one disturbs the other, and times the library's. Each
/// prepares what it needs and returns the seconds that count.
template <class Library, class Peer>
void Compare(benchmark::State& state, std::size_t items, Library library, Peer peer)
{
    double ours = 0;
    double theirs = 0;
    for (auto _ : state) {
        const double seconds = library();
        state.SetIterationTime(seconds);
        ours += seconds;
        theirs += peer();
    }
    const double count = static_cast<double>(state.iterations()) * static_cast<double>(items);
    state.counters["ns"] = ours / count * 1e9;
    state.counters["peer_ns"] = theirs / count * 1e9;
    state.counters["ratio"] = ours / theirs;
}

std::size_t BytesInUse()
{
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

// The library.

using Data = std::unique_ptr<IKeywordData>;

Data MakeRecords()
{
    Data data = KeywordDataFactory::Instance().Construct(Syntax("RECORDS"));
    auto& list = static_cast<IKeywordListData&>(*data);
    list.Reserve(recordCount);
    for (std::size_t i = 0; i < recordCount; ++i)
        list.AddData(nullptr);
    return data;
}

Data MakeReals(std::size_t count)
{
    const std::vector<double> values(count, 1.5);
    Data data = KeywordDataFactory::Instance().Construct(Syntax("REALS"));
    static_cast<IKeywordListData&>(*data).AddData(values.data(), values.data() + count);
    return data;
}

// The peers.

struct PlainRecord {
    std::optional<double> reals[6];
    std::optional<int> integers[6];
    bool operator==(const PlainRecord&) const = default;
};

struct RecordOfScalars {
    RecordOfScalars()
    {
        for (std::size_t i = 0; i < 6; ++i) {
            reals[i] = std::make_unique<Service::Optional<double>>();
            integers[i] = std::make_unique<Service::Optional<int>>();
        }
    }
    RecordOfScalars(const RecordOfScalars& other)
    {
        for (std::size_t i = 0; i < 6; ++i) {
            reals[i] = std::make_unique<Service::Optional<double>>(*other.reals[i]);
            integers[i] = std::make_unique<Service::Optional<int>>(*other.integers[i]);
        }
    }
    bool operator==(const RecordOfScalars& other) const
    {
        for (std::size_t i = 0; i < 6; ++i) {
            if (*reals[i] != *other.reals[i] || *integers[i] != *other.integers[i])
                return false;
        }
        return true;
    }
    std::array<std::unique_ptr<Service::Optional<double>>, 6> reals;
    std::array<std::unique_ptr<Service::Optional<int>>, 6> integers;
};

template <class Record>
using Peers = std::vector<std::unique_ptr<Record>>;

template <class Record>
Peers<Record> MakePeers()
{
    Peers<Record> records;
    records.reserve(recordCount);
    for (std::size_t i = 0; i < recordCount; ++i)
        records.push_back(std::make_unique<Record>());
    return records;
}

template <class Record>
Peers<Record> ClonePeers(const Peers<Record>& records)
{
    Peers<Record> clones;
    clones.reserve(records.size());
    for (const auto& record : records)
        clones.push_back(std::make_unique<Record>(*record));
    return clones;
}

template <class Record>
bool EqualPeers(const Peers<Record>& a, const Peers<Record>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), [](const auto& x, const auto& y) { return *x == *y; });
}

template <class Record>
void RecordsMadeAndFreed(benchmark::State& state)
{
    Syntax("RECORDS");
    Compare(
        state, recordCount, [] { return SecondsOf([] { benchmark::DoNotOptimize(MakeRecords()); }); },
        [] { return SecondsOf([] { benchmark::DoNotOptimize(MakePeers<Record>()); }); });
}

template <class Record>
void RecordsClonedAndFreed(benchmark::State& state)
{
    const Data data = MakeRecords();
    const auto peers = MakePeers<Record>();
    Compare(
        state, recordCount, [&] { return SecondsOf([&] { benchmark::DoNotOptimize(data->CloneSafely()); }); },
        [&] { return SecondsOf([&] { benchmark::DoNotOptimize(ClonePeers(peers)); }); });
}

template <class Record>
void RecordsCompared(benchmark::State& state)
{
    const Data data = MakeRecords();
    const Data clone = data->CloneSafely();
    const auto peers = MakePeers<Record>();
    const auto peerClones = ClonePeers(peers);
    Compare(
        state, recordCount, [&] { return SecondsOf([&] { benchmark::DoNotOptimize(*data == *clone); }); },
        [&] { return SecondsOf([&] { benchmark::DoNotOptimize(EqualPeers(peers, peerClones)); }); });
}

template <class Record>
void RecordsInMemory(benchmark::State& state)
{
    Syntax("RECORDS");
    for (auto _ : state) {
        const std::size_t before = BytesInUse();
        const Data data = MakeRecords();
        const std::size_t between = BytesInUse();
        const auto peers = MakePeers<Record>();
        const std::size_t after = BytesInUse();
        state.counters["bytes"] = static_cast<double>(between - before) / recordCount;
        state.counters["peer_bytes"] = static_cast<double>(after - between) / recordCount;
        state.counters["ratio"] =
            static_cast<double>(between - before) / static_cast<double>(after - between);
        state.SetIterationTime(1e-3);
    }
}

void ValuesAppendedOneByOne(benchmark::State& state)
{
    Syntax("REALS");
    const double value = 1.5;
    Compare(
        state, valueCount,
        [&] {
            const Data data = MakeReals(0);
            auto& list = static_cast<IKeywordListData&>(*data);
            return SecondsOf([&] {
                for (std::size_t i = 0; i < valueCount; ++i)
                    list.AddData(&value);
            });
        },
        [&] {
            std::vector<double> values;
            return SecondsOf([&] {
                for (std::size_t i = 0; i < valueCount; ++i) {
                    values.push_back(value);
                    benchmark::DoNotOptimize(values.data());
                }
            });
        });
}

void ValuesAppendedInBulk(benchmark::State& state)
{
    Syntax("REALS");
    const std::vector<double> from(valueCount, 1.5);
    Compare(
        state, valueCount,
        [&] {
            const Data data = MakeReals(0);
            auto& list = static_cast<IKeywordListData&>(*data);
            return SecondsOf([&] { list.AddData(from.data(), from.data() + from.size()); });
        },
        [&] {
            std::vector<double> values;
            return SecondsOf([&] {
                values.insert(values.end(), from.begin(), from.end());
                benchmark::DoNotOptimize(values.data());
            });
        });
}

void ValuesCloned(benchmark::State& state)
{
    const Data data = MakeReals(valueCount);
    const std::vector<double> peer(valueCount, 1.5);
    Compare(
        state, valueCount, [&] { return SecondsOf([&] { benchmark::DoNotOptimize(data->CloneSafely()); }); },
        [&] { return SecondsOf([&] { benchmark::DoNotOptimize(std::vector<double>(peer)); }); });
}

void ValuesCompared(benchmark::State& state)
{
    const Data data = MakeReals(valueCount);
    const Data clone = data->CloneSafely();
    const std::vector<double> peer(valueCount, 1.5);
    const std::vector<double> peerClone(peer);
    Compare(
        state, valueCount, [&] { return SecondsOf([&] { benchmark::DoNotOptimize(*data == *clone); }); },
        [&] { return SecondsOf([&] { benchmark::DoNotOptimize(peer == peerClone); }); });
}

/// Beside nested loops over the same data through the same interfaces.
void StopsOfAWalk(benchmark::State& state)
{
    const Data data = MakeRecords();
    constexpr std::size_t stops = 1 + recordCount * 13;
    Compare(
        state, stops,
        [&] {
            return SecondsOf([&] {
                std::size_t given = 0;
                for (ConstDataIterator it(*data); it != ConstDataIterator::End(); ++it)
                    given += it->isOptional ? 1U : 0U;
                benchmark::DoNotOptimize(given);
            });
        },
        [&] {
            return SecondsOf([&] {
                const auto& list = static_cast<const IKeywordListData&>(*data);
                const auto& md = static_cast<const IKeywordRecordMD&>(
                    *static_cast<const IKeywordListMD&>(*list.GetMD()).GetItemMD());
                std::size_t given = 0;
                for (std::int64_t i = 0; i < list.GetSize(); ++i) {
                    const auto& record =
                        *static_cast<const IKeywordRecordData*>(list.GetData(static_cast<std::size_t>(i)));
                    for (int item = 0; item < record.GetSize(); ++item)
                        given += record.GetData(item) && md.GetItemMD(item) ? 1U : 0U;
                }
                benchmark::DoNotOptimize(given);
            });
        });
}

BENCHMARK_TEMPLATE(RecordsMadeAndFreed, PlainRecord)->UseManualTime();
BENCHMARK_TEMPLATE(RecordsMadeAndFreed, RecordOfScalars)->UseManualTime();
BENCHMARK_TEMPLATE(RecordsClonedAndFreed, PlainRecord)->UseManualTime();
BENCHMARK_TEMPLATE(RecordsClonedAndFreed, RecordOfScalars)->UseManualTime();
BENCHMARK_TEMPLATE(RecordsCompared, PlainRecord)->UseManualTime();
BENCHMARK_TEMPLATE(RecordsCompared, RecordOfScalars)->UseManualTime();
BENCHMARK_TEMPLATE(RecordsInMemory, PlainRecord)->UseManualTime()->Iterations(1);
BENCHMARK_TEMPLATE(RecordsInMemory, RecordOfScalars)->UseManualTime()->Iterations(1);
BENCHMARK(ValuesAppendedOneByOne)->UseManualTime();
BENCHMARK(ValuesAppendedInBulk)->UseManualTime();
BENCHMARK(ValuesCloned)->UseManualTime();
BENCHMARK(ValuesCompared)->UseManualTime();
BENCHMARK(StopsOfAWalk)->UseManualTime();

} // namespace
