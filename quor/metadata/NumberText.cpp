#include "quor/metadata/internal/NumberText.h"

#include <cstdlib>

#include <locale.h>

namespace Veld::Quor::Core::Keywords {

double ParseReal(const std::string& text)
{
    // A host may have set a locale with a decimal comma.
    static const locale_t classic = ::newlocale(LC_ALL_MASK, "C", nullptr);
    return ::strtod_l(text.c_str(), nullptr, classic);
}

int ParseInteger(const std::string& text)
{
    int value = 0;
    ParseWholeInteger(text, value);
    return value;
}

bool ParseWholeInteger(const std::string& text, int& value)
{
    char* end = nullptr;
    value = static_cast<int>(std::strtol(text.c_str(), &end, 10));
    return *end == '\0';
}

} // namespace Veld::Quor::Core::Keywords
