#include "quor/foundation/service/Environment.h"

#include <cstdlib>

namespace Veld::Quor::Core::Service {

std::string GetEnvVariable(const std::string& name)
{
    const char* value = std::getenv(name.c_str());
    return value ? value : "";
}

} // namespace Veld::Quor::Core::Service
