#include "quor/lint/internal/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace Veld::Quor::Core::Lint {

namespace {

template <class T>
bool IsClean(const std::string& text, T& value)
{
    const char* const end = text.data() + text.size();
    const char* const begin = text.data() + (text.starts_with('+') && !text.starts_with("+-") ? 1 : 0);
    const auto [rest, error] = std::from_chars(begin, end, value);
    return error == std::errc() && rest == end;
}

} // namespace

Number ReadReal(const std::string& text)
{
    char* rest = nullptr;
    Number number;
    number.value = std::strtod(text.c_str(), &rest); // the program never leaves the locale "C"
    number.hasRest = *rest != '\0';
    number.isMark = number.value == std::numeric_limits<double>::min();
    double clean = 0;
    number.isClean = IsClean(text, clean) && std::isfinite(clean) && !number.isMark;
    return number;
}

Number ReadInteger(const std::string& text)
{
    char* rest = nullptr;
    Number number;
    number.value = static_cast<int>(std::strtol(text.c_str(), &rest, 10));
    number.hasRest = *rest != '\0';
    number.isMark = number.value == std::numeric_limits<int>::min();
    int clean = 0;
    number.isClean = IsClean(text, clean) && !number.isMark;
    return number;
}

} // namespace Veld::Quor::Core::Lint
