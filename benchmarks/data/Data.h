#pragma once

#include "quor/Keywords.h"

#include <cstddef>
#include <memory>

namespace Veld::Quor::Benchmarks {

using Data = std::unique_ptr<Core::Keywords::IKeywordData>;

/// Records of six reals and six integers, without values.
Data MakeRecords(std::size_t count);
/// Gives all items of all records the value of their number.
void Fill(Core::Keywords::IKeywordData& records);
/// A list of that many values.
Data MakeReals(std::size_t count);

} // namespace Veld::Quor::Benchmarks
