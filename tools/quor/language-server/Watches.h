#pragma once

#include "tools/quor/language-server/DeckState.h"
#include "tools/quor/language-server/Publications.h"

#include <set>
#include <string>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

/// Asks the client to report files that change on disk, if it can: those of decks and of their settings.
class Watches {
public:
    /// `ask` sends the client a request.
    explicit Watches(Send ask);

    void SetClient(const Json& initializeParams);
    /// Settings files in the folders of the client.
    void WatchFolders();
    /// The folders of the files of a deck, and its settings. Once asked for, what is watched stays so.
    void WatchDeck(const DeckState& deck);

private:
    void Add(const std::string& folder, const std::string& name);
    void Flush();
    Json PatternOf(const std::string& folder, const std::string& name) const;

    Send ask_;
    bool isAble_ = false;
    bool hasRelativePatterns_ = false;
    std::set<std::pair<std::string, std::string>> known_; // folder and name
    Json added_ = Json::array();
    int registrations_ = 0;
};

/// Whether the deck may be another one now that a file has changed: any settings file may be nearer than its
/// own, a new file the one that it misses, or the deck of a file without one.
bool DependsOn(const DeckState& deck, const std::string& key, bool isNew);

} // namespace Veld::Quor::Tools::LanguageServer
