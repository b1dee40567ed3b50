#include "quor/metadata/internal/NumberText.h"

#include <cstdlib>

#include <locale.h>

namespace Veld::Quor::Core::Keywords {

ParsedNumber<double> ParseRealAtStart(const std::string& text)
{
    // A host may have set a locale with a decimal comma.
    static const locale_t classic = ::newlocale(LC_ALL_MASK, "C", nullptr);
    char* end = nullptr;
    const double value = ::strtod_l(text.c_str(), &end, classic);
    return {value, *end == '\0'};
}

ParsedNumber<int> ParseIntegerAtStart(const std::string& text)
{
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    return {static_cast<int>(value), *end == '\0'};
}

double ParseReal(const std::string& text)
{
    return ParseRealAtStart(text).value;
}

int ParseInteger(const std::string& text)
{
    return ParseIntegerAtStart(text).value;
}

} // namespace Veld::Quor::Core::Keywords
