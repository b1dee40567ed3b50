#pragma once

#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/language-server/ClientSettings.h"
#include "tools/quor/language-server/DeckReader.h"
#include "tools/quor/language-server/Documents.h"
#include "tools/quor/language-server/Explanations.h"
#include "tools/quor/language-server/Places.h"
#include "tools/quor/language-server/Protocol.h"
#include "tools/quor/language-server/Publications.h"
#include "tools/quor/language-server/Watches.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// What a client says that it can do.
struct ClientAbilities {
    bool hasSnippets = false;
};

/// All that the server knows of one client: documents, decks, settings.
class Session {
public:
    /// `given`: what the command line says. `send` notifies the client, `ask` sends it a request whose answer
    /// doesn't matter; `report` is called on the thread that reads decks.
    Session(LoadedLanguage& language, Settings given, Send send, Send ask,
        std::function<void(ReadResult)> report);

    Core::Keywords::KeywordSyntaxTable& GetTable() { return language_.GetTable(); }
    /// The names of keywords that are offered, sorted, aliases among them; of several keywords of one name
    /// each.
    const std::vector<std::pair<std::string, const Core::Keywords::IKeywordSyntax*>>& GetKeywords();
    const ClientSettings& GetSettings() const { return settings_; }
    const ClientAbilities& GetAbilities() const { return abilities_; }
    Explanations& GetExplanations() { return explanations_; }

    // From the client.

    void SetClient(const Json& initializeParams);
    /// From `initializationOptions`, or from `settings.quor`. All decks are read again.
    void SetSettings(const Json& settings);
    void Open(const std::string& uri, std::string text);
    void Change(const std::string& uri, const Json& changes);
    void Close(const std::string& uri);
    void ChangeFolders(const Json& event);
    /// Asks the client for reports of files that change outside the editor.
    void StartWatching() { watches_.WatchFolders(); }
    /// Files that were changed outside the editor.
    void ChangeFiles(const Json& changes);

    // To the requests.

    /// Throws `RequestError` if the document isn't open.
    View ViewOf(const std::string& uri);
    /// The decks that were read, by path.
    const std::map<std::string, std::unique_ptr<Places>>& GetDecks() const { return decks_; }
    /// Whether the document is open, and its deck is to be read or being read.
    bool MayBecomeFresh(const std::string& uri) const;

    // For the loop of the server.

    void Take(ReadResult result);
    bool HasReads() const { return !toRead_.empty(); }
    /// Asks for what is to be read.
    void SubmitReads();
    /// Lets go of all that was made of the language; results that were reported before are to be dropped
    /// then.
    void StopReader();
    /// With the language as it is now: all decks are to be read again.
    void StartReader();
    void Notify(const std::string& method, Json params) { send_(method, std::move(params)); }

private:
    void TakeFailure(const ReadResult& result);
    void ReportProject(const Project& project);
    const Places* FindDeck(const std::string& key) const;
    bool IsRead(const Document& document) const;
    bool IsToCome(const std::string& key) const;
    void MarkChanged(const std::string& key);
    /// The documents that no deck has, or not as they are.
    void MarkUnread();
    void Forget(const std::string& path);
    ReadJob MakeJob(const std::string& path, Reading reading) const;
    bool IsDeckItself(const Document& document) const;

    LoadedLanguage& language_;
    Settings given_;
    std::function<void(ReadResult)> report_;
    Send send_;
    Watches watches_;
    Publications publications_;
    ClientSettings settings_;
    std::map<std::string, std::string> told_; // errors of settings, by settings file
    ClientAbilities abilities_;
    std::vector<std::pair<std::string, const Core::Keywords::IKeywordSyntax*>> keywords_;
    bool keywordsAreMissing_ = true;
    Explanations explanations_;
    std::vector<std::string> folders_;
    Documents documents_;
    std::map<std::string, std::unique_ptr<Places>> decks_; // by path of the root
    std::map<std::string, Reading> toRead_; // by path
    std::map<std::string, std::size_t> pending_; // the last job of each path that has no result yet
    std::size_t jobs_ = 0;
    std::optional<DeckReader> reader_; // last: its thread uses the others
};

} // namespace Veld::Quor::Tools::LanguageServer
