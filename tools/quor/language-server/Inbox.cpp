#include "tools/quor/language-server/Inbox.h"

#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

namespace {

std::string TextOfId(const Json& id)
{
    return id.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace

void Inbox::Push(Event event)
{
    {
        const std::lock_guard lock(mutex_);
        if (const Json* const message = std::get_if<Json>(&event);
            message && MemberOf(*message, "method") == "$/cancelRequest")
            cancelled_.insert(TextOfId(MemberAt(*message, {"params", "id"})));
        events_.push_back(std::move(event));
    }
    filled_.notify_one();
}

Event Inbox::Pop()
{
    std::unique_lock lock(mutex_);
    filled_.wait(lock, [this] { return !events_.empty(); });
    Event event = std::move(events_.front());
    events_.pop_front();
    return event;
}

bool Inbox::IsEmpty()
{
    const std::lock_guard lock(mutex_);
    return events_.empty();
}

void Inbox::DropResults()
{
    const std::lock_guard lock(mutex_);
    std::erase_if(events_, [](const Event& event) { return std::holds_alternative<ReadResult>(event); });
}

bool Inbox::IsCancelled(const Json& id)
{
    const std::lock_guard lock(mutex_);
    return cancelled_.count(TextOfId(id)) > 0;
}

void Inbox::Forget(const Json& id)
{
    const std::lock_guard lock(mutex_);
    cancelled_.erase(TextOfId(id));
}

} // namespace Veld::Quor::Tools::LanguageServer
