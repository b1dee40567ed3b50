#pragma once

#include "quor/foundation/Export.h"

#include <functional>

namespace Veld::Quor::Core::Service {

/// Receives what an internal assertion says. `detail` may be null.
using AssertHandler = std::function<void(const char* message, const char* detail)>;

/// Reports a failed internal assertion and returns: to the handler if one is set, else to `Log` at `Error`.
VELD_QUOR_EXPORT void AssertFailure(const char* message, const char* detail);

/// Gives back the handler in force before; an empty one stands for the default.
VELD_QUOR_EXPORT AssertHandler SetAssertHandler(AssertHandler handler);

} // namespace Veld::Quor::Core::Service
