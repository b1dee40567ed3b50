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
    const char* at = text.data();
    const char* const end = at + text.size();
    std::uint64_t digits = 0;
    const auto takeDigits = [&] {
        const char* const first = at;
        for (unsigned digit = 0; at != end; ++at) {
            digit = static_cast<unsigned char>(*at - '0');
            if (digit > 9)
                break;
            digits = digits * 10 + digit;
        }
        return static_cast<std::size_t>(at - first);
    };
    const bool isNegative = at != end && *at == '-';
    at += isNegative ? 1 : 0;
    const std::size_t whole = takeDigits();
    std::size_t decimals = 0;
    if (at != end && *at == '.') {
        ++at;
        decimals = takeDigits();
    }
    const bool isFew = whole + decimals > 0 && whole + decimals <= mostDigits;
    if (!isFew || (at != end && (*at == 'e' || *at == 'E')))
        return {};
    const auto number = static_cast<double>(static_cast<std::int64_t>(digits));
    const double value = decimals > 0 ? number / powers[decimals] : number;
    return {isNegative ? -value : value, static_cast<std::size_t>(at - text.data())};
}

/// Of any length. By itself, so that the others need no frame on the stack.
[[gnu::noinline]] LeadingReal FindAnyReal(std::string_view text, std::size_t start)
{
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

} // namespace

std::optional<int> ToInteger(std::string_view text)
{
    const LeadingInteger whole = FindLeadingInteger(text);
    return whole.length == text.size() && whole.length > 0 ? std::optional<int>(whole.value) : std::nullopt;
}

LeadingInteger FindLeadingInteger(std::string_view text)
{
    LeadingInteger whole;
    const char* const first = text.data() + StartOfDigits(text);
    const auto [stop, error] = std::from_chars(first, text.data() + text.size(), whole.value);
    if (error == std::errc())
        whole.length = static_cast<std::size_t>(stop - text.data());
    return whole;
}

LeadingReal FindLeadingReal(std::string_view text)
{
    const std::size_t start = StartOfDigits(text);
    const LeadingReal decimal = FindShortDecimal(text.substr(start));
    return decimal.length > 0 ? LeadingReal{decimal.value, start + decimal.length} : FindAnyReal(text, start);
}

std::optional<double> ToReal(std::string_view text)
{
    const LeadingReal real = FindLeadingReal(text);
    if (real.length == text.size() && real.length > 0)
        return real.value;
    if (real.length == 0 || text.find_first_of("Dd") == std::string_view::npos)
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
