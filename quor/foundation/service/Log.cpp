#include "quor/foundation/service/Log.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace Veld::Quor::Core::Service {

namespace {

struct LogTarget {
    std::mutex mutex;
    LogHandler handler;
};

LogTarget& TheLogTarget()
{
    static auto& target = *new LogTarget; // never freed: a host may log from a destructor at exit
    return target;
}

const char* NameOf(MessageSeverity severity)
{
    switch (severity) {
    case MessageSeverity::Debug:
        return "debug";
    case MessageSeverity::Info:
        return "info";
    case MessageSeverity::Warning:
        return "warning";
    case MessageSeverity::Error:
        return "error";
    case MessageSeverity::Fatal:
        return "fatal";
    }
    return "message";
}

} // namespace

void Log::SendLogMessage(const char* text, MessageSeverity severity)
{
    LogHandler handler; // a copy, called without the lock: a handler may log or set another one
    {
        LogTarget& target = TheLogTarget();
        const std::lock_guard lock(target.mutex);
        handler = target.handler;
    }
    if (handler)
        handler(text, severity);
    else
        std::fprintf(stderr, "%s: %s\n", NameOf(severity), text);
}

LogHandler Log::SetHandler(LogHandler handler)
{
    LogTarget& target = TheLogTarget();
    const std::lock_guard lock(target.mutex);
    return std::exchange(target.handler, std::move(handler));
}

} // namespace Veld::Quor::Core::Service
