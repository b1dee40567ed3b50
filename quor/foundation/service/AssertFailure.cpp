#include "quor/foundation/service/AssertFailure.h"

#include "quor/foundation/service/Log.h"

#include <mutex>
#include <string>
#include <utility>

namespace Veld::Quor::Core::Service {

namespace {

struct Target {
    std::mutex mutex;
    AssertHandler handler;
};

Target& TheTarget()
{
    static auto& target = *new Target; // never freed: asked for until the very exit
    return target;
}

AssertHandler CurrentHandler()
{
    Target& target = TheTarget();
    const std::lock_guard lock(target.mutex);
    return target.handler;
}

} // namespace

void AssertFailure(const char* message, const char* detail)
{
    if (const AssertHandler handler = CurrentHandler()) {
        handler(message, detail);
        return;
    }
    std::string text = message;
    if (detail)
        text.append(" (").append(detail).append(")");
    Log::SendLogMessage(text.c_str(), MessageSeverity::Error);
}

AssertHandler SetAssertHandler(AssertHandler handler)
{
    Target& target = TheTarget();
    const std::lock_guard lock(target.mutex);
    return std::exchange(target.handler, std::move(handler));
}

} // namespace Veld::Quor::Core::Service
