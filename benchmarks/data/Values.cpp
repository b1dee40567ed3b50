// Lists of a million reals, beside a vector.

#include "benchmarks/data/Data.h"
#include "benchmarks/support/Comparison.h"

#include <cstring>
#include <vector>

namespace Veld::Quor::Benchmarks {

using namespace Core::Keywords;

namespace {

constexpr std::size_t few = 1'000; // they stay in a cache
constexpr std::size_t many = 1'000'000;
constexpr std::size_t most = 10'000'000; // 80 MB

void CompareAppending()
{
    const std::vector<double> from(many, 1.5);
    const auto ours = [](auto append) {
        const Data data = MakeReals(0);
        auto& list = static_cast<IKeywordListData&>(*data);
        return SecondsOf([&] { append(list); });
    };
    Compare({"reals: appended one by one", "std::vector, push_back", 1, "ns", many,
        [&] {
            return ours([](IKeywordListData& list) {
                const double value = 1.5;
                for (std::size_t i = 0; i < many; ++i)
                    list.AddData(&value);
            });
        },
        [] {
            std::vector<double> values;
            return SecondsOf([&] {
                for (std::size_t i = 0; i < many; ++i) {
                    values.push_back(1.5);
                    Keep(values.data());
                }
            });
        }});
    Compare({"reals: appended in bulk", "std::vector, insert", 1.1, "ns", many,
        [&] {
            return ours(
                [&](IKeywordListData& list) { list.AddData(from.data(), from.data() + from.size()); });
        },
        [&] {
            std::vector<double> values;
            return SecondsOf([&] {
                values.insert(values.end(), from.begin(), from.end());
                Keep(values.data());
            });
        }});
}

void CompareCopying()
{
    const Data data = MakeReals(many);
    const std::vector<double> values(many, 1.5);
    Compare({"reals: copied and freed", "std::vector", 1.2, "ns", many,
        [&] { return SecondsOf([&] { Keep(data->CloneSafely()); }); },
        [&] {
            return SecondsOf([&] {
                const std::vector<double> copy(values);
                Keep(copy.data());
            });
        }});
}

void CompareEquality(const char* path, std::size_t count, double goal)
{
    const Data data = MakeReals(count);
    const Data copy = data->CloneSafely();
    const std::vector<double> values(count, 1.5);
    const std::vector<double> copies(values);
    const std::size_t rounds = most / count;
    Compare({path, "memcmp", goal, "ns", static_cast<double>(count * rounds),
        [&] {
            return SecondsOf([&] {
                for (std::size_t round = 0; round < rounds; ++round)
                    Keep(*data == *copy);
            });
        },
        [&] {
            return SecondsOf([&] {
                for (std::size_t round = 0; round < rounds; ++round) {
                    Keep(copies.data());
                    Keep(std::memcmp(values.data(), copies.data(), count * sizeof(double)));
                }
            });
        }});
}

} // namespace

void CompareValues()
{
    CompareAppending();
    CompareCopying();
    CompareEquality("reals: compared, in cache", few, 1.2);
    CompareEquality("reals: compared, 80 MB", most, 1.1);
}

} // namespace Veld::Quor::Benchmarks
