#pragma once

#include "quor/foundation/Export.h"

#include <functional>

namespace Veld::Quor::Core::Service {

/// Ascending. The libraries send nothing above `Error`; what a host does with a severity is up to it.
enum class MessageSeverity : int { Debug = 0, Info = 1, Warning = 2, Error = 3, Fatal = 4 };

/// Receives one message, without a line end. May be called from any thread that uses the library.
using LogHandler = std::function<void(const char* text, MessageSeverity severity)>;

/// Where the libraries report what has no other way to the caller. All operations are safe from any thread.
class VELD_QUOR_EXPORT Log {
public:
    /// Passes one message to the handler, in the calling thread; no lock is held, so a handler may log itself
    /// or set another one. `text` is not null and has no line end. What the handler throws passes through.
    static void SendLogMessage(const char* text, MessageSeverity severity);

    /// Directs messages to `handler` and returns the handler that was set before, which another thread may
    /// still be in. An empty handler stands for the default, which writes lines such as "warning: text" to
    /// standard error.
    static LogHandler SetHandler(LogHandler handler);
};

} // namespace Veld::Quor::Core::Service
