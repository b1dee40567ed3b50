#pragma once

#include <cstdint>
#include <cstdio>

namespace Veld::Quor::Benchmarks {

constexpr std::uint64_t leastDeck = 3;
constexpr std::uint64_t largestCellDeck = 10'000'000'000; ///< 82 GB
constexpr std::uint64_t largestRecordDeck = 1'000'000'000; ///< 35 GB

/// Writes a deck of a box grid that `quor check` has nothing to say about: PORO, PERMX and NTG with `values`
/// numbers among them, none folded. Values that NTG has no room for are left to their default. The same
/// size and seed give the same bytes. Throws `std::system_error` if the file can't take them, and
/// `std::invalid_argument` for a size that is not from `leastDeck` to the largest one.
void WriteCellDeck(std::FILE* file, std::uint64_t values, std::uint64_t seed);

/// Writes a deck of wells and months of their rates, measured and then forecast: `records` records in
/// SCHEDULE altogether. Otherwise as `WriteCellDeck`.
void WriteRecordDeck(std::FILE* file, std::uint64_t records, std::uint64_t seed);

} // namespace Veld::Quor::Benchmarks
