#include "quor/foundation/service/Strings.h"

#include <boost/algorithm/string/predicate.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/algorithm/string/trim.hpp>

#include <algorithm>

namespace Veld::Quor::Core::Service {

namespace {

constexpr auto isBlank = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };

/// Of ASCII; a facet of a locale costs far more.
constexpr char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

bool AllBlanks(const std::string& text)
{
    return boost::all(text, isBlank);
}

bool NoCaseStringEqual(const std::string& a, const std::string& b)
{
    return std::ranges::equal(a, b, {}, Upper, Upper);
}

void StringTrimBlank(std::string& text, bool left, bool right)
{
    if (left)
        boost::trim_left_if(text, isBlank);
    if (right)
        boost::trim_right_if(text, isBlank);
}

void StringToUpper(std::string& text)
{
    for (char& c : text)
        c = Upper(c);
}

void StringSplit(
    const std::string& text, std::vector<std::string>& parts, const std::string& separators, bool keepEmpty)
{
    boost::split(parts, text, [&](char c) { return separators.find(c) != std::string::npos; });
    if (!keepEmpty)
        std::erase(parts, std::string());
}

} // namespace Veld::Quor::Core::Service
