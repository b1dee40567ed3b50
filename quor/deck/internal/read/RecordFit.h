#pragma once

#include "quor/deck/internal/read/DataPlan.h"
#include "quor/deck/internal/text/WordText.h"

#include <cstddef>
#include <span>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Whether the words can be the items of the record from `first` on to its end. Nothing is reported. What
/// isn't a scalar, and all after it, fits anything.
bool Fits(const DataPlan& record, std::size_t first, std::span<const DataWord> words);

/// The hint for a value of item `index` that doesn't fit, and which the line begins with: whether all after
/// it would fit if one were there before it, or if it weren't there itself. Empty if neither. `repeats`: how
/// often the value comes again.
std::string FindShift(const DataPlan& record, std::size_t index, long long repeats, LineWords line);

} // namespace Veld::Quor::Core::Decks
