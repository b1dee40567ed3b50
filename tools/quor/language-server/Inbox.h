#pragma once

#include "tools/quor/language-server/DeckReader.h"
#include "tools/quor/language-server/Protocol.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <set>
#include <string>
#include <variant>

namespace Veld::Quor::Tools::LanguageServer {

/// A message that is no JSON.
struct BadMessage { };
/// The client is gone.
struct EndOfMessages { };

/// What the server does next.
using Event = std::variant<Json, ReadResult, BadMessage, EndOfMessages>;

/// What threads put for the main one, in its order.
class Inbox {
public:
    void Push(Event event);
    /// Waits until there is one.
    Event Pop();
    bool IsEmpty();
    /// Drops the decks that were read and are still to be taken.
    void DropResults();
    /// Whether the client has cancelled the request, which may not have come up yet.
    bool IsCancelled(const Json& id);
    /// The request has been answered.
    void Forget(const Json& id);

private:
    std::mutex mutex_;
    std::condition_variable filled_;
    std::deque<Event> events_;
    std::set<std::string> cancelled_; // numbers of requests, as JSON
};

} // namespace Veld::Quor::Tools::LanguageServer
