// Reading a deck, beside two peers that go over the same bytes: the conversion of its numbers and nothing
// else, and `wc -l`. All take turns, so that what disturbs the machine disturbs all, and the best turn of
// each counts.

#include "benchmarks/deck/DeckGenerator.h"
#include "quor/Keywords.h"
#include "quor/deck/Deck.h"
#include "quor/deck/DeckSource.h"

#include <benchmark/benchmark.h>
#include <fast_float/fast_float.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include <malloc.h>
#include <unistd.h>

using namespace Veld::Quor;
using namespace Veld::Quor::Core::Decks;

namespace {

using Seconds = std::chrono::duration<double>;
using WriteDeck = void (*)(std::FILE*, std::uint64_t, std::uint64_t);

/// A deck in the folder for temporary files, which must have room for it: 8 bytes a value, 35 a record.
class DeckFileOnDisk {
public:
    DeckFileOnDisk(WriteDeck write, std::int64_t size)
        : path_(std::filesystem::temp_directory_path() / ("quor-read-" + std::to_string(::getpid())))
    {
        std::FILE* const file = std::fopen(path_.c_str(), "w");
        if (!file)
            throw std::runtime_error("can't write '" + path_.string() + "'");
        write(file, static_cast<std::uint64_t>(size), 1);
        std::fclose(file);
    }
    ~DeckFileOnDisk() { std::filesystem::remove(path_); }
    DeckFileOnDisk(const DeckFileOnDisk&) = delete;
    DeckFileOnDisk& operator=(const DeckFileOnDisk&) = delete;

    std::string Path() const { return path_; }
    double Size() const { return static_cast<double>(std::filesystem::file_size(path_)); }

private:
    std::filesystem::path path_;
};

const DeckLanguage& Words()
{
    static const DeckLanguage words(Core::Keywords::KeywordSyntaxTable::Instance());
    return words;
}

template <class Action>
Seconds TimeOf(const Action& action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::steady_clock::now() - start;
}

/// The conversion of all numbers of the file. What begins with a letter is none.
void ConvertNumbers(const std::string& path)
{
    const auto source = SourceText::FromFile(path);
    const std::string_view text = source->GetText();
    const char* const end = text.data() + text.size();
    double sum = 0;
    for (const char* position = text.data(); position < end;) {
        double value = 0;
        const auto [stop, error] = fast_float::from_chars(position, end, value);
        if (error == std::errc())
            sum += value;
        position = std::max(stop, position) + 1;
    }
    benchmark::DoNotOptimize(sum);
}

bool CountLines(const std::string& path)
{
    return std::system(("wc -l '" + path + "' >/dev/null").c_str()) == 0;
}

/// In bytes, of this process; `name` as in the system's own table.
double MemoryOf(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0;
        if (word == name + ":" && status >> kilobytes)
            return kilobytes * 1024;
    }
    return 0;
}

void ForgetPeak()
{
    std::ofstream("/proc/self/clear_refs") << 5;
}

double AllocatedBytes()
{
    const struct mallinfo2 info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

struct Measured {
    Seconds read = Seconds::max();
    Seconds convert = Seconds::max();
    Seconds count = Seconds::max();
    double peak = 0; // beyond what the process had before
    double kept = 0; // by the deck
};

void MeasureOnce(benchmark::State& state, const DeckFileOnDisk& file, Measured& measured)
{
    measured.count = std::min(measured.count, TimeOf([&] {
        if (!CountLines(file.Path()))
            state.SkipWithError("wc failed");
    }));
    measured.convert = std::min(measured.convert, TimeOf([&] { ConvertNumbers(file.Path()); }));
    ::malloc_trim(0);
    ForgetPeak();
    const double resident = MemoryOf("VmRSS");
    const double allocated = AllocatedBytes();
    std::optional<Deck> deck;
    const Seconds time = TimeOf([&] { deck = Deck::Read(file.Path(), Words()); });
    measured.peak = MemoryOf("VmHWM") - resident;
    measured.kept = AllocatedBytes() - allocated;
    measured.read = std::min(measured.read, time);
    state.SetIterationTime(time.count());
    if (!deck->IsClean())
        state.SkipWithError("the deck has findings");
}

void Read(benchmark::State& state, WriteDeck write, const char* item)
{
    const DeckFileOnDisk file(write, state.range(0));
    const double items = static_cast<double>(state.range(0));
    Words();
    Measured measured;
    for ([[maybe_unused]] auto turn : state)
        MeasureOnce(state, file, measured);
    state.counters["MB_a_second"] = file.Size() / measured.read.count() / 1e6;
    state.counters["speed_to_bare_conversion"] = measured.convert / measured.read;
    state.counters["speed_to_wc"] = measured.count / measured.read;
    state.counters[std::string(item) + "s_a_second"] = items / measured.read.count();
    state.counters["bytes_a_" + std::string(item)] = measured.kept / items;
    state.counters["peak_bytes_a_" + std::string(item)] = measured.peak / items;
}

/// A value is a double: 8 bytes.
void ReadCells(benchmark::State& state)
{
    Read(state, Benchmarks::WriteCellDeck, "value");
    state.counters["peak_to_values"] = state.counters["peak_bytes_a_value"] / sizeof(double);
}

void ReadRecords(benchmark::State& state)
{
    Read(state, Benchmarks::WriteRecordDeck, "record");
}

BENCHMARK(ReadCells)
    ->Arg(1'000'000)
    ->Arg(10'000'000)
    ->Arg(100'000'000)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ReadRecords)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
