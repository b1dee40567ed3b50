#include "quor/syntax/internal/LoadFailure.h"

#include "quor/foundation/internal/KeywordException.h"

#include <iostream>

namespace Veld::Quor::Core::Keywords {

void FailLoad(const std::string& message)
{
    std::cout << message << std::endl; // NOLINT(performance-avoid-endl): seen before any handler runs
    throw KeywordException(message);
}

} // namespace Veld::Quor::Core::Keywords
