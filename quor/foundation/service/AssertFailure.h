#pragma once

#include "quor/foundation/Export.h"

#include <functional>

namespace Veld::Quor::Core::Service {

/// Receives what an internal assertion says, in the thread that failed; several threads may call at once.
/// `detail` may be null. What it throws reaches the caller of the library.
using AssertHandler = std::function<void(const char* message, const char* detail)>;

/// Reports a failed internal assertion and returns: to the handler if one is set, else to `Log` at `Error`.
/// `message` is not null; `detail` may be.
VELD_QUOR_EXPORT void AssertFailure(const char* message, const char* detail);

/// Returns the handler that was set before; an empty one stands for the default. Safe from any thread.
VELD_QUOR_EXPORT AssertHandler SetAssertHandler(AssertHandler handler);

} // namespace Veld::Quor::Core::Service
