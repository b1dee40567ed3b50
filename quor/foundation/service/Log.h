#pragma once

#include "quor/foundation/Export.h"

#include <functional>

namespace Veld::Quor::Core::Service {

enum class MessageSeverity : int { Debug = 0, Info = 1, Warning = 2, Error = 3, Fatal = 4 };

/// Receives one message, without a line end. May be called from any thread that uses the library.
using LogHandler = std::function<void(const char* text, MessageSeverity severity)>;

class VELD_QUOR_EXPORT Log {
public:
    static void SendLogMessage(const char* text, MessageSeverity severity);

    /// Directs messages to `handler` and gives back the handler in force before. An empty handler stands for
    /// the default, which writes lines such as "warning: text" to standard error.
    static LogHandler SetHandler(LogHandler handler);
};

} // namespace Veld::Quor::Core::Service
