#include "quor/lint/internal/NumberText.h"

#include "quor/metadata/internal/NumberText.h"

#include <charconv>
#include <cmath>
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

/// `mark`: what the library takes for no value.
template <class T>
Number Judge(const Keywords::ParsedNumber<T>& read, const std::string& text, T mark)
{
    T clean = 0;
    const bool isMark = read.value == mark;
    return {static_cast<double>(read.value),
        IsClean(text, clean) && std::isfinite(static_cast<double>(clean)) && !isMark, isMark, !read.isWhole};
}

} // namespace

Number ReadReal(const std::string& text)
{
    return Judge(Keywords::ParseRealAtStart(text), text, std::numeric_limits<double>::min());
}

Number ReadInteger(const std::string& text)
{
    return Judge(Keywords::ParseIntegerAtStart(text), text, std::numeric_limits<int>::min());
}

} // namespace Veld::Quor::Core::Lint
