#include "tools/quor/language-server/Watches.h"

#include "quor/deck/FindingCodes.h"
#include "tools/quor/language-server/DeckSearch.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace Veld::Quor::Tools::LanguageServer {

namespace fs = std::filesystem;

namespace {

constexpr const char* anyName = "*";
constexpr const char* watchMethod = "workspace/didChangeWatchedFiles";

/// As a pattern that matches nothing else.
std::string PatternText(std::string_view path)
{
    std::string pattern;
    for (const char c : path)
        pattern += std::string_view("*?[]{}").find(c) == std::string_view::npos ? std::string(1, c)
                                                                                : fmt::format("[{}]", c);
    return pattern;
}

constexpr const char* settingsFile = "quor.toml";

bool MissesFile(const Core::Decks::Deck& deck)
{
    const Core::Decks::Findings& findings = deck.GetFindings();
    return std::any_of(findings.begin(), findings.end(), [](const Core::Decks::Finding& finding) {
        return finding.code == InfoOf(Core::Decks::Code::IncludeMissing).name;
    });
}

} // namespace

Watches::Watches(Send ask)
    : ask_(std::move(ask))
{
}

void Watches::SetClient(const Json& params)
{
    const Json& watching = MemberAt(params, {"capabilities", "workspace", "didChangeWatchedFiles"});
    isAble_ = MemberOf(watching, "dynamicRegistration") == true;
    hasRelativePatterns_ = MemberOf(watching, "relativePatternSupport") == true;
}

void Watches::WatchFolders()
{
    added_.push_back({{"globPattern", "**/quor.toml"}});
    Flush();
}

void Watches::WatchDeck(const DeckState& deck)
{
    for (std::uint32_t file = 0; file < deck.GetDeck().GetFiles().GetSize(); ++file)
        Add(fs::path(deck.KeyOf(file)).parent_path().string(), anyName);
    for (const std::string& file : deck.GetProject().GetFiles()) {
        const fs::path path(KeyOfPath(file));
        Add(path.parent_path().string(), path.filename().string());
    }
    Flush();
}

void Watches::Add(const std::string& folder, const std::string& name)
{
    if (!folder.empty() && known_.count({folder, anyName}) == 0 && known_.insert({folder, name}).second)
        added_.push_back({{"globPattern", PatternOf(folder, name)}});
}

Json Watches::PatternOf(const std::string& folder, const std::string& name) const
{
    const std::string pattern = name == anyName ? name : PatternText(name);
    if (hasRelativePatterns_)
        return {{"baseUri", UriOfPath(folder)}, {"pattern", pattern}};
    return PatternText(folder) + (folder.ends_with('/') ? "" : "/") + pattern;
}

void Watches::Flush()
{
    Json watchers = std::exchange(added_, Json::array());
    if (!isAble_ || watchers.empty())
        return;
    const Json registration = {{"id", fmt::format("watch-{}", ++registrations_)}, {"method", watchMethod},
        {"registerOptions", {{"watchers", std::move(watchers)}}}};
    ask_("client/registerCapability", {{"registrations", Json::array({registration})}});
}

bool DependsOn(const DeckState& deck, const std::string& key, bool isNew)
{
    const std::vector<std::string> settings = deck.GetProject().GetFiles();
    const auto isKey = [&key](const std::string& file) { return KeyOfPath(file) == key; };
    return deck.FindFile(key) || fs::path(key).filename() == settingsFile
        || (isNew && (deck.IsFragment() ? IsDeckName(key) : MissesFile(deck.GetDeck())))
        || std::any_of(settings.begin(), settings.end(), isKey);
}

} // namespace Veld::Quor::Tools::LanguageServer
