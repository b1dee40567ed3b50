#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string>

namespace Veld::Quor::Benchmarks {

/// A hot path of the library, and what a good engineer would use in its place.
struct Comparison {
    std::string path;
    std::string peer;
    double goal; ///< the ratio of both, ours above the peer's, that is wanted at most
    std::string unit; ///< of what is printed: "ns", "us", "ms", or "bytes"
    double items; ///< in a turn: what is printed is of one of them
    /// What a turn costs: seconds, or bytes. They prepare what they need and do not count it.
    std::function<double()> ours;
    std::function<double()> peers;
    int turns = 7;
};

/// Lets both take turns, so that what disturbs the one disturbs the other, and prints a row of the table: the
/// ratio of the medians, and the spread, half the range of the ratios of the turns.
void Compare(const Comparison& comparison);

/// Prints the machine, the compiler and the heading of the table, and keeps this process on one core.
void BeginTable();

/// Seconds of this thread alone that `action` takes, whatever else the machine does.
double SecondsOf(const std::function<void()>& action);

/// Seconds that a command takes with all that it starts. Throws if it fails, but for status 1: findings.
double SecondsOfCommand(const std::string& command);

/// What is allocated, large blocks included.
std::size_t AllocatedBytes();

/// Keeps the compiler from leaving out what gives a value that nobody reads.
template <class T>
void Keep(const T& value)
{
    asm volatile("" : : "r,m"(value) : "memory");
}

/// Only the rows that have all these words are wanted.
void SetWanted(int count, char** words);
/// Whether one of the rows is wanted.
bool IsWanted(std::initializer_list<const char*> paths);

// The rows, by floor.
void CompareLoads();
void CompareLookups();
void CompareRecords();
void CompareValues();
void CompareDecks(const std::string& program);

} // namespace Veld::Quor::Benchmarks
