#include "tools/quor/Version.h"

#include "quor/foundation/LibProperties.h"

#include <cstring>

namespace Veld::Quor::Tools {

std::string GetVersion()
{
    const char* name = nullptr;
    const char* value = nullptr;
    for (int i = 0; i < Core::Keywords::getNumLibProperties(); ++i) {
        Core::Keywords::getLibProperty(i, name, value);
        if (std::strcmp(name, "FileVersion") == 0)
            return value;
    }
    return {};
}

} // namespace Veld::Quor::Tools
