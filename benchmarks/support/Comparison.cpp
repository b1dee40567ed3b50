#include "benchmarks/support/Comparison.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <stdexcept>
#include <vector>

#include <malloc.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace Veld::Quor::Benchmarks {

namespace {

std::vector<std::string>& WantedWords()
{
    static std::vector<std::string> words;
    return words;
}

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::string Processor()
{
    std::ifstream table("/proc/cpuinfo");
    for (std::string line; std::getline(table, line);) {
        if (line.rfind("model name", 0) == 0)
            return line.substr(line.find(':') + 2);
    }
    return "unknown processor";
}

double ScaleOf(const std::string& unit)
{
    return unit == "ns" ? 1e9 : unit == "us" ? 1e6 : unit == "ms" ? 1e3 : 1;
}

double SecondsOfClock(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double SecondsOfChildren()
{
    rusage usage{};
    ::getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

void BeginTable()
{
    cpu_set_t core;
    CPU_ZERO(&core);
    CPU_SET(static_cast<unsigned>(std::max(::sched_getcpu(), 0)), &core);
    ::sched_setaffinity(0, sizeof core, &core);
    std::printf("%s; %s %s; one core, medians of turns; seconds of the processor\n\n", Processor().c_str(),
#ifdef __clang__
        "clang", __clang_version__
#else
        "gcc", __VERSION__
#endif
    );
    std::printf(
        "%-40s %-29s %12s %7s %7s %6s  %s\n", "path", "peer", "ours", "ratio", "spread", "goal", "met");
}

void Compare(const Comparison& comparison)
{
    if (!IsWanted({comparison.path.c_str()}))
        return;
    std::vector<double> ours;
    std::vector<double> peers;
    std::vector<double> ratios;
    for (int turn = 0; turn < comparison.turns; ++turn) {
        ours.push_back(comparison.ours());
        peers.push_back(comparison.peers());
        ratios.push_back(ours.back() / peers.back());
    }
    const double ratio = Median(ours) / Median(peers);
    const auto [least, most] = std::minmax_element(ratios.begin(), ratios.end());
    char value[32];
    std::snprintf(value, sizeof value, "%.4g %s", Median(ours) / comparison.items * ScaleOf(comparison.unit),
        comparison.unit.c_str());
    std::printf("%-40s %-29s %12s %7.3g %6.0f%% %6.3g  %s\n", comparison.path.c_str(),
        comparison.peer.c_str(), value, ratio, (*most - *least) / 2 / ratio * 100, comparison.goal,
        ratio <= comparison.goal ? "yes" : "no");
    std::fflush(stdout);
}

double SecondsOf(const std::function<void()>& action)
{
    const double start = SecondsOfClock(CLOCK_THREAD_CPUTIME_ID);
    action();
    return SecondsOfClock(CLOCK_THREAD_CPUTIME_ID) - start;
}

double SecondsOfCommand(const std::string& command)
{
    const double start = SecondsOfChildren();
    const int status = std::system(command.c_str());
    if (!WIFEXITED(status) || WEXITSTATUS(status) > 1)
        throw std::runtime_error("failed: " + command);
    return SecondsOfChildren() - start;
}

std::size_t AllocatedBytes()
{
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

bool IsWanted(std::initializer_list<const char*> paths)
{
    const std::vector<std::string>& words = WantedWords();
    return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
        return std::all_of(words.begin(), words.end(),
            [&](const std::string& word) { return path.find(word) != std::string::npos; });
    });
}

void SetWanted(int count, char** words)
{
    WantedWords().assign(words, words + count);
}

} // namespace Veld::Quor::Benchmarks
