#pragma once

#include "quor/deck/internal/read/values/DataPlan.h"
#include "quor/deck/internal/text/WordText.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Whether the words can be the items of the record from `first` on to its end. Nothing is reported. What
/// isn't a scalar, and all after it, fits anything.
bool Fits(const DataPlan& record, std::size_t first, std::span<const DataWord> words);

/// Whether the line can be the beginning of the data; its words are judged by the first items. `next`: the
/// text after the line, which may show that the line is none, since it begins the data itself.
bool MayBegin(const DataPlan& data, std::string_view line, std::string_view next);

/// The hint for a value of item `index` that doesn't fit, and which the line begins with: whether all after
/// it would fit if one were there before it, or if it weren't there itself. Empty if neither. `repeats`: how
/// often the value comes again.
std::string FindShift(const DataPlan& record, std::size_t index, long long repeats, LineWords line);

} // namespace Veld::Quor::Core::Decks
