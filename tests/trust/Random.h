#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace Veld::Quor::Trust {

/// The same numbers for a seed with every compiler and library.
class Random {
public:
    explicit Random(std::uint64_t seed)
        : numbers_(seed)
    {
    }
    /// From 0; `count` is not 0.
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(numbers_() % count); }
    template <class T>
    const T& Choose(const std::vector<T>& values)
    {
        return values[Below(values.size())];
    }

private:
    std::mt19937_64 numbers_;
};

} // namespace Veld::Quor::Trust
