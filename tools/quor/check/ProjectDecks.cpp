#include "tools/quor/check/ProjectDecks.h"

#include "quor/foundation/service/Directory.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <filesystem>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <fnmatch.h>

namespace Veld::Quor::Tools {

namespace fs = std::filesystem;

namespace {

using Paths = std::vector<std::string>;

constexpr const char* anyFolders = "**";

std::vector<fs::path> EntriesOf(const fs::path& folder)
{
    std::vector<fs::path> entries;
    for (const std::string& name : Core::Service::Directory(folder.string()).GetNames())
        entries.push_back(folder / name);
    return entries;
}

/// Not through links, which may lead back.
bool IsFolder(const fs::path& path)
{
    std::error_code error;
    return fs::is_directory(fs::symlink_status(path, error));
}

/// Adds what the parts of a pattern from `part` on match below `folder`.
void Match(const fs::path& folder, const fs::path& pattern, fs::path::const_iterator part, Paths& matches)
{
    if (part == pattern.end()) {
        matches.push_back(folder.string());
        return;
    }
    const auto next = std::next(part);
    const std::string name = part->string();
    if (name == anyFolders)
        Match(folder, pattern, next, matches);
    else if (name.find_first_of("*?[") == std::string::npos) {
        std::error_code error;
        if (fs::exists(folder / name, error))
            Match(folder / name, pattern, next, matches);
        return;
    }
    for (const fs::path& entry : EntriesOf(folder)) {
        if (name == anyFolders && IsFolder(entry))
            Match(entry, pattern, part, matches);
        else if (name != anyFolders && ::fnmatch(name.c_str(), entry.filename().c_str(), FNM_PERIOD) == 0)
            Match(entry, pattern, next, matches);
    }
}

void AddDecksBelow(const fs::path& folder, Paths& decks)
{
    for (const fs::path& entry : EntriesOf(folder)) {
        if (IsFolder(entry))
            AddDecksBelow(entry, decks);
        else if (ToLower(entry.extension().string()) == ".data")
            decks.push_back(entry.string());
    }
}

/// A pattern that matches nothing stays as it is: a file that can't be read.
Paths Expand(const std::string& given)
{
    std::error_code error;
    Paths paths;
    if (given == standardInputPath || fs::exists(given, error))
        paths = {given};
    else {
        const fs::path pattern(given);
        Match({}, pattern, pattern.begin(), paths);
    }
    if (paths.empty())
        return {given};
    Paths decks;
    for (const std::string& path : paths) {
        if (path.empty() || fs::is_directory(path, error)) // the current folder, which "**" matches
            AddDecksBelow(path, decks);
        else
            decks.push_back(path);
    }
    if (decks.empty())
        throw std::runtime_error(paths.front() == given
                ? fmt::format("no deck in the folder '{}'; expected .data files", given)
                : fmt::format("no deck in the folders that '{}' matches; expected .data files", given));
    return decks;
}

/// What two paths of one file have in common. The name stays: a link has inclusions of its own.
std::string IdentityOf(const std::string& deck)
{
    std::error_code error;
    const fs::path path(deck);
    const fs::path folder = fs::canonical(path.has_parent_path() ? path.parent_path() : ".", error);
    return error || deck == standardInputPath ? deck : (folder / path.filename()).string();
}

} // namespace

std::vector<std::string> DecksOf(const CheckOptions& options)
{
    Settings::Words given = options.decks;
    if (given.empty()) {
        const std::string file = SettingsFileOf("", options.read.settings);
        if (file.empty())
            throw std::runtime_error("no deck; expected decks, or a quor.toml that has them ('decks')");
        given = SettingsOf("", options.read.settings).decks.value_or(Settings::Words());
        if (given.empty())
            throw std::runtime_error(fmt::format("no deck; expected decks, or 'decks' in '{}'", file));
    }
    return DecksOf(given);
}

std::vector<std::string> DecksOf(const std::vector<std::string>& given)
{
    Paths decks;
    std::set<std::string> known;
    for (const std::string& path : given) {
        for (std::string& deck : Expand(path)) {
            if (known.insert(IdentityOf(deck)).second)
                decks.push_back(std::move(deck));
        }
    }
    return decks;
}

} // namespace Veld::Quor::Tools
