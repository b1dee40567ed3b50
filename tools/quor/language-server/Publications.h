#pragma once

#include "tools/quor/language-server/Protocol.h"

#include <functional>
#include <map>
#include <string>

namespace Veld::Quor::Tools::LanguageServer {

/// Notifies the client.
using Send = std::function<void(const std::string& method, Json params)>;

/// The diagnostics that the client has been sent.
class Publications {
public:
    explicit Publications(Send send)
        : send_(std::move(send))
    {
    }

    /// Those of a deck, by URI, in place of its earlier ones. Sends what has changed: a file of several decks
    /// has the diagnostics of all.
    void Publish(const std::string& root, std::map<std::string, Json> byUri);

private:
    Json AllOf(const std::string& uri) const;

    Send send_;
    std::map<std::string, std::map<std::string, Json>> published_; // by root and URI
};

} // namespace Veld::Quor::Tools::LanguageServer
