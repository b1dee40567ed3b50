#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace Veld::Quor::Core::Decks {

/// The number that a text is. Empty if it is anything else, or out of range.
/// A whole number, in digits with a sign or without.
std::optional<int> ToInteger(std::string_view text);
/// `D` is an exponent too, as `E`.
std::optional<double> ToReal(std::string_view text);
/// `T` is `int` or `double`.
template <class T>
std::optional<T> ToNumber(std::string_view text)
{
    if constexpr (std::is_same_v<T, int>)
        return ToInteger(text);
    else
        return ToReal(text);
}

/// The number at the beginning of a text, correctly rounded.
struct LeadingReal {
    double value = 0;
    std::size_t length = 0; ///< 0: there is none
};
LeadingReal FindLeadingReal(std::string_view text);
/// The same for a whole number.
struct LeadingInteger {
    int value = 0;
    std::size_t length = 0; ///< 0: there is none
};
LeadingInteger FindLeadingInteger(std::string_view text);

/// The count of a repeat, `n*` at the beginning of a text.
struct Repeat {
    long long count = 1;
    std::size_t length = 0; ///< asterisk included; 0: no repeat
};
/// A lone asterisk counts as `1*`. A count beyond all bounds is cut to `mostRepeats` + 1.
Repeat FindRepeat(std::string_view text);

constexpr long long mostRepeats = 2'000'000'000;

} // namespace Veld::Quor::Core::Decks
