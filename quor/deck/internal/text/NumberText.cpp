#include "quor/deck/internal/text/NumberText.h"

#include "quor/deck/internal/text/LineText.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>

namespace Veld::Quor::Core::Decks {

namespace {

/// Where the digits begin: after a plus, which no conversion of a library takes.
std::size_t StartOfDigits(std::string_view text)
{
    return text.size() > 1 && text[0] == '+' && text[1] != '-' ? 1 : 0;
}

/// A number of few digits and without an exponent, as most are. It is the quotient of two numbers that a
/// double holds exactly, and so correctly rounded. No length for any other.
LeadingReal FindShortDecimal(std::string_view text)
{
    static constexpr double powers[] = {
        1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr std::size_t mostDigits = std::size(powers) - 1;
    std::uint64_t digits = 0;
    std::size_t at = 0;
    const auto takeDigits = [&] {
        const std::size_t start = at;
        for (; at < text.size() && IsDigit(text[at]); ++at)
            digits = digits * 10 + static_cast<std::uint64_t>(text[at] - '0');
        return at - start;
    };
    const bool isNegative = text.starts_with('-');
    at += isNegative ? 1 : 0;
    const std::size_t whole = takeDigits();
    std::size_t decimals = 0;
    if (at < text.size() && text[at] == '.') {
        ++at;
        decimals = takeDigits();
    }
    const bool isFew = whole + decimals > 0 && whole + decimals <= mostDigits;
    if (!isFew || (at < text.size() && (text[at] == 'e' || text[at] == 'E')))
        return {};
    const double value = static_cast<double>(static_cast<std::int64_t>(digits)) / powers[decimals];
    return {isNegative ? -value : value, at};
}

} // namespace

std::optional<int> ToInteger(std::string_view text)
{
    text.remove_prefix(StartOfDigits(text));
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end && !text.empty() ? std::optional<int>(value) : std::nullopt;
}

LeadingReal FindLeadingReal(std::string_view text)
{
    const std::size_t start = StartOfDigits(text);
    if (const LeadingReal decimal = FindShortDecimal(text.substr(start)); decimal.length > 0)
        return {decimal.value, start + decimal.length};
    const char* const first = text.data() + start;
    const char* const end = text.data() + text.size();
    const char* const digits = first != end && *first == '-' ? first + 1 : first;
    if (digits == end || !(IsDigit(*digits) || *digits == '.')) // the conversion knows infinity and others
        return {};
    LeadingReal real;
    const auto [stop, error] = fast_float::from_chars(first, end, real.value);
    if (error == std::errc() && std::isfinite(real.value))
        real.length = static_cast<std::size_t>(stop - text.data());
    return real;
}

std::optional<double> ToReal(std::string_view text)
{
    const LeadingReal real = FindLeadingReal(text);
    if (real.length == text.size() && real.length > 0)
        return real.value;
    if (text.find_first_of("Dd") == std::string_view::npos)
        return std::nullopt;
    std::string standard(text);
    std::replace_if(
        standard.begin(), standard.end(), [](char c) { return c == 'D' || c == 'd'; }, 'E');
    return ToReal(standard);
}

Repeat FindRepeat(std::string_view text)
{
    std::size_t digits = 0;
    long long count = 0;
    while (digits < text.size() && IsDigit(text[digits])) {
        count = std::min(count * 10 + (text[digits] - '0'), mostRepeats + 1);
        ++digits;
    }
    if (digits == text.size() || text[digits] != '*' || (digits == 0 && text.size() > 1))
        return {};
    return {digits == 0 ? 1 : count, digits + 1};
}

} // namespace Veld::Quor::Core::Decks
