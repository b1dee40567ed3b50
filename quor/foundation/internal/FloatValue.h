#pragma once

#include <charconv>
#include <iterator>

namespace Veld::Quor::Core::Keywords {

/// The number of fewest digits that is this one as a `float`: 0.1F is 0.1, not 0.10000000149011612.
inline double ToDouble(float value)
{
    char digits[32];
    const std::to_chars_result end = std::to_chars(digits, std::end(digits), value);
    double exact = value;
    std::from_chars(digits, end.ptr, exact);
    return exact;
}

} // namespace Veld::Quor::Core::Keywords
