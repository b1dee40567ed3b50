#include "quor/foundation/service/Strings.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/algorithm/string/predicate.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/algorithm/string/trim.hpp>

#include <locale>

namespace Veld::Quor::Core::Service {

namespace {

constexpr auto isBlank = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };

} // namespace

bool AllBlanks(const std::string& text)
{
    return boost::all(text, isBlank);
}

bool NoCaseStringEqual(const std::string& a, const std::string& b)
{
    return boost::iequals(a, b, std::locale::classic());
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
    boost::to_upper(text, std::locale::classic());
}

void StringSplit(
    const std::string& text, std::vector<std::string>& parts, const std::string& separators, bool keepEmpty)
{
    boost::split(parts, text, [&](char c) { return separators.find(c) != std::string::npos; });
    if (!keepEmpty)
        std::erase(parts, std::string());
}

} // namespace Veld::Quor::Core::Service
