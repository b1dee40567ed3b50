#include "tools/quor/language-server/Session.h"

#include "tools/quor/language-server/Diagnostics.h"
#include "tools/quor/terminal/TextLayout.h"

#include <algorithm>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

Session::Session(
    LoadedLanguage& language, Settings given, Send send, Send ask, std::function<void(ReadResult)> report)
    : language_(language)
    , given_(std::move(given))
    , report_(std::move(report))
    , send_(std::move(send))
    , watches_(std::move(ask))
    , publications_(send_)
{
    StartReader();
}

const std::vector<std::pair<std::string, const IKeywordSyntax*>>& Session::GetKeywords()
{
    KeywordSyntaxEnumerator enumerator = GetTable().KeywordsEnumerator();
    while (keywordsAreMissing_ && enumerator.Next()) {
        const auto& [name, syntax] = *enumerator.Current();
        if (!name->ends_with('*'))
            keywords_.emplace_back(*name, syntax);
    }
    if (std::exchange(keywordsAreMissing_, false))
        std::stable_sort(keywords_.begin(), keywords_.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
    return keywords_;
}

void Session::SetClient(const Json& params)
{
    folders_ = FoldersIn(params);
    const Json& document = MemberAt(params, {"capabilities", "textDocument"});
    abilities_.hasSnippets = MemberAt(document, {"completion", "completionItem", "snippetSupport"}) == true;
    watches_.SetClient(params);
    SetSettings(MemberOf(params, "initializationOptions"));
}

void Session::SetSettings(const Json& settings)
{
    settings_ = SettingsIn(settings);
    settings_.given = Merge(settings_.given, given_);
    for (const std::string& error : settings_.errors)
        Notify("window/showMessage", {{"type", 2}, {"message", error}});
    for (auto deck = decks_.begin(); deck != decks_.end();) {
        const std::string path = (deck++)->first;
        Forget(path);
    }
    for (const auto& [uri, document] : documents_.GetAll())
        MarkChanged(document.GetKey());
}

void Session::Open(const std::string& uri, std::string text)
{
    const Document& document = documents_.Open(uri, std::move(text));
    const Places* const deck = FindDeck(document.GetKey());
    const auto file = deck ? deck->GetState().FindFile(document.GetKey()) : std::nullopt;
    if (!file || !deck->ShiftOf(*file).IsNone())
        MarkChanged(document.GetKey());
}

void Session::Change(const std::string& uri, const Json& changes)
{
    Document& document = documents_.Get(uri);
    for (const Json& change : changes)
        document.Change(change);
    MarkChanged(document.GetKey());
}

void Session::Close(const std::string& uri)
{
    const Document* const document = documents_.Find(uri);
    if (!document)
        return;
    const std::string key = document->GetKey();
    documents_.Close(uri);
    const Places* const deck = FindDeck(key);
    if (!deck)
        return;
    const DeckState& state = deck->GetState();
    const auto& files = documents_.GetAll();
    const bool isUsed = std::any_of(files.begin(), files.end(),
        [&state](const auto& other) { return state.FindFile(other.second.GetKey()).has_value(); });
    if (isUsed)
        MarkChanged(key); // the file may have another text
    else
        Forget(std::string(state.GetRoot()));
}

void Session::ChangeFolders(const Json& event)
{
    for (const Json& folder : event.at("removed"))
        std::erase(folders_, PathOfUri(folder.at("uri").get<std::string>()));
    for (const Json& folder : event.at("added"))
        folders_.push_back(PathOfUri(folder.at("uri").get<std::string>()));
}

void Session::ChangeFiles(const Json& changes)
{
    for (const Json& change : changes) {
        const std::string key = KeyOfPath(PathOfUri(change.at("uri").get<std::string>()));
        const bool isNew = MemberOf(change, "type") == 1 /* created */;
        if (documents_.FindKey(key))
            continue;
        for (const auto& [root, deck] : decks_) {
            if (DependsOn(deck->GetState(), key, isNew))
                toRead_[root] = deck->GetState().IsFragment() ? Reading::DeckOfFile : Reading::Deck;
        }
    }
}

/// The deck that has the file; one that is no fragment before others. Null if none is known.
const Places* Session::FindDeck(const std::string& key) const
{
    const Places* found = nullptr;
    for (const auto& [root, deck] : decks_) {
        if (deck->GetState().FindFile(key) && (!found || found->GetState().IsFragment()))
            found = deck.get();
    }
    return found;
}

void Session::MarkChanged(const std::string& key)
{
    bool isKnown = false;
    for (const auto& [root, deck] : decks_) {
        if (deck->GetState().FindFile(key) && !deck->GetState().IsFragment()) {
            toRead_[root] = Reading::Deck;
            isKnown = true;
        }
    }
    const Document* const document = documents_.FindKey(key);
    if (isKnown || !document)
        return;
    if (!settings_.root.empty() && decks_.count(settings_.root) == 0)
        toRead_[settings_.root] = Reading::Deck;
    else if (IsDeckItself(*document))
        toRead_[key] = Reading::Deck;
    else
        toRead_[key] = decks_.count(key) > 0 ? Reading::Fragment : Reading::DeckOfFile;
}

/// Whether a line begins with the keyword of the first section.
bool Session::IsDeckItself(const Document& document) const
{
    const std::string& first = SectionType::ToString(SectionType::RUNSPEC);
    const std::string_view text = document.GetText();
    for (std::size_t at = text.find(first); at != std::string_view::npos; at = text.find(first, at + 1)) {
        const std::size_t end = at + first.size();
        const bool isAlone = end == text.size() || text[end] == ' ' || text[end] == '\r' || text[end] == '\n';
        if (isAlone && (at == 0 || text[at - 1] == '\n'))
            return true;
    }
    return false;
}

void Session::Forget(const std::string& path)
{
    publications_.Publish(path, {});
    decks_.erase(path);
    toRead_.erase(path);
}

View Session::ViewOf(const std::string& uri)
{
    const Document& document = documents_.Get(uri);
    View view{&document, FindDeck(document.GetKey())};
    if (!view.places)
        return view;
    view.file = *view.GetState().FindFile(document.GetKey());
    view.shift = view.places->ShiftOf(view.file);
    view.mark = view.GetDeck().GetFiles().Get(view.file).text->GetMark().size();
    return view;
}

bool Session::MayBecomeFresh(const std::string& uri) const
{
    const auto document = documents_.GetAll().find(uri);
    if (document == documents_.GetAll().end())
        return false;
    return IsToCome(document->second.GetKey());
}

void Session::Take(ReadResult result)
{
    if (const auto job = pending_.find(result.path); job != pending_.end() && job->second == result.number)
        pending_.erase(job);
    if (!result.state) {
        TakeFailure(result);
        return;
    }
    const std::string root = result.state->GetRoot();
    ReportProject(result.state->GetProject());
    watches_.WatchDeck(*result.state);
    decks_[root] = std::make_unique<Places>(documents_, std::move(result.state));
    for (auto deck = decks_.begin(); deck != decks_.end();) {
        const std::string path = (deck++)->first;
        const bool isKnownNow = path != root && decks_[path]->GetState().IsFragment()
            && decks_[root]->GetState().FindFile(path).has_value();
        if (isKnownNow)
            Forget(path);
    }
    publications_.Publish(root, DiagnosticsOf(*decks_[root], explanations_));
    MarkUnread();
}

void Session::MarkUnread()
{
    for (const auto& [uri, document] : documents_.GetAll()) {
        if (!IsRead(document) && !IsToCome(document.GetKey()))
            MarkChanged(document.GetKey());
    }
}

/// Each error once, until there is another one.
void Session::ReportProject(const Project& project)
{
    std::string& told = told_[project.file];
    if (project.error != told && !project.error.empty())
        Notify("window/showMessage", {{"type", 2}, {"message", project.error}});
    told = project.error;
}

/// Whether a deck has the document, and was read from its text or what became of it.
bool Session::IsRead(const Document& document) const
{
    const Places* const deck = FindDeck(document.GetKey());
    return deck && deck->ShiftOf(*deck->GetState().FindFile(document.GetKey())).IsKnown();
}

/// Whether the deck of the file is to be read or being read.
bool Session::IsToCome(const std::string& key) const
{
    const auto isOpen = [this](const std::string& path) {
        return toRead_.count(path) > 0 || pending_.count(path) > 0;
    };
    const Places* const deck = FindDeck(key);
    if (!deck)
        return !toRead_.empty() || !pending_.empty();
    return isOpen(deck->GetState().GetRoot()) || isOpen(key);
}

void Session::TakeFailure(const ReadResult& result)
{
    Notify("window/showMessage", {{"type", 1}, {"message", result.error}});
    Forget(result.path);
    if (documents_.FindKey(result.path))
        return;
    if (result.path == settings_.root)
        settings_.root.clear(); // else each change would fail
    MarkUnread();
}

ReadJob Session::MakeJob(const std::string& path, Reading reading) const
{
    const auto source = std::make_shared<Decks::MemorySource>(std::make_shared<Decks::FileSource>());
    ReadJob job{path, reading, 0, folders_, settings_.given};
    for (const auto& [uri, document] : documents_.GetAll()) {
        source->Set(document.GetKey(), document.GetSource());
        job.versions[document.GetKey()] = document.GetVersion();
    }
    job.source = source;
    return job;
}

void Session::SubmitReads()
{
    for (const auto& [path, reading] : std::exchange(toRead_, {})) {
        ReadJob job = MakeJob(path, reading);
        job.number = ++jobs_;
        pending_[path] = job.number;
        reader_->Submit(std::move(job));
    }
}

void Session::StopReader()
{
    reader_.reset();
    pending_.clear();
    for (const auto& [root, deck] : std::exchange(decks_, {}))
        toRead_[root] = deck->GetState().IsFragment() ? Reading::DeckOfFile : Reading::Deck;
    keywords_.clear();
    keywordsAreMissing_ = true;
}

void Session::StartReader()
{
    reader_.emplace(GetTable(), report_);
    MarkUnread();
}

} // namespace Veld::Quor::Tools::LanguageServer
