#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Service {

/// The value of an environment variable; empty if it isn't set. Not safe while another thread changes the
/// environment.
VELD_QUOR_EXPORT std::string GetEnvVariable(const std::string& name);

} // namespace Veld::Quor::Core::Service
