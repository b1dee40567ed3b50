#include "quor/foundation/service/MessageCapper.h"

#include "quor/foundation/service/Log.h"

#include <mutex>
#include <unordered_map>

namespace Veld::Quor::Core::Service {

namespace {

/// `message` with every run of digits as one `#`.
std::string KindOf(const std::string& message)
{
    std::string kind;
    kind.reserve(message.size());
    for (const char c : message) {
        const bool digit = c >= '0' && c <= '9';
        if (!digit)
            kind += c;
        else if (kind.empty() || kind.back() != '#')
            kind += '#';
    }
    return kind;
}

constexpr std::size_t mostKinds = 65'536; // bounds the memory of a process that logs for months

} // namespace

struct MessageCapper::State {
    std::mutex mutex;
    int limit = DefaultLimit;
    std::unordered_map<std::string, int> counts;

    bool Passes(const std::string& message)
    {
        const std::lock_guard lock(mutex);
        if (limit < 0)
            return true;
        if (counts.size() >= mostKinds)
            counts.clear();
        int& count = counts[KindOf(message)];
        if (count >= limit)
            return false;
        ++count;
        return true;
    }
};

MessageCapper::MessageCapper()
    : state_(std::make_unique<State>())
{
}

MessageCapper::~MessageCapper() = default;

MessageCapper* MessageCapper::instance()
{
    static auto* const capper = new MessageCapper;
    return capper;
}

void MessageCapper::logW(const std::string& message)
{
    if (state_->Passes(message))
        Log::SendLogMessage(message.c_str(), MessageSeverity::Warning);
}

void MessageCapper::SetLimit(int likeMessages)
{
    const std::lock_guard lock(state_->mutex);
    state_->limit = likeMessages;
}

void MessageCapper::Reset()
{
    const std::lock_guard lock(state_->mutex);
    state_->counts.clear();
}

} // namespace Veld::Quor::Core::Service
