#include "tools/quor/settings/SettingSources.h"

#include "quor/deck/FindingCodes.h"
#include "quor/foundation/service/Directory.h"
#include "tools/quor/settings/SettingInfo.h"
#include "tools/quor/settings/SettingsFile.h"
#include "tools/quor/terminal/FileOutput.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace fs = std::filesystem;
using namespace Core::Keywords;

std::string SettingsFileOf(const std::string& deck, const SettingSources& sources)
{
    if (sources.isWithoutFile)
        return {};
    return sources.file.empty() ? FindSettingsFile(deck) : sources.file;
}

Settings SettingsOf(const std::string& deck, const SettingSources& sources)
{
    const std::string file = SettingsFileOf(deck, sources);
    return Merge(sources.given, file.empty() ? Settings() : ReadSettingsFile(file));
}

namespace {

/// Each file once: where its last path is, since later documents take precedence.
std::vector<std::string> LastOfEach(std::vector<std::string> files)
{
    std::set<FileStamp> known;
    std::vector<std::string> kept;
    for (auto file = files.rbegin(); file != files.rend(); ++file) {
        if (known.insert(StampOf(*file)).second)
            kept.push_back(std::move(*file));
    }
    std::reverse(kept.begin(), kept.end());
    return kept;
}

/// Of the system; 0 if there is none. Kept, since an exception for which there is no memory makes another
/// one.
int AccessErrorOf(const std::string& path, int mode)
{
    return ::access(path.c_str(), mode) == 0 ? 0 : errno;
}

} // namespace

std::vector<std::string> DocumentsOf(const Settings& settings)
{
    std::vector<std::string> files;
    if (settings.syntaxFolder) {
        const std::string& folder = *settings.syntaxFolder;
        for (const std::string& name :
            Core::Service::Directory(folder).Find("\\.xml$", true, false, true, true, false))
            files.push_back((fs::path(folder) / name).string());
        if (const int error = files.empty() ? AccessErrorOf(folder + '/', R_OK | X_OK) : 0; error != 0)
            throw SettingsError(fmt::format(
                "can't read the folder '{}': {}", folder, std::generic_category().message(error)));
        if (files.empty())
            throw SettingsError(fmt::format("no document in the folder '{}'; expected .xml files", folder));
    }
    const Settings::Words others = settings.syntax.value_or(Settings::Words());
    files.insert(files.end(), others.begin(), others.end());
    for (const std::string& file : files) {
        const bool isFolder = AccessErrorOf(file + '/', F_OK) == 0;
        if (const int error = isFolder ? EISDIR : AccessErrorOf(file, R_OK); error != 0)
            throw SettingsError(fmt::format(
                "can't read the document '{}': {}", file, std::generic_category().message(error)));
    }
    return LastOfEach(std::move(files));
}

void ApplyReading(const Settings& settings, Decks::ReadOptions& options)
{
    if (settings.simulator)
        options.SetSimulator(SimulatorType::FromString(*settings.simulator));
    if (settings.mode)
        options.SetMode(SimulatorModeType::FromString(*settings.mode));
    if (settings.maxRepeatedValues)
        options.SetMaxRepeatedValues(*settings.maxRepeatedValues);
    for (const auto& [name, text] : settings.variables.value_or(Settings::Texts()))
        options.SetVariable(name, text);
    for (const auto& [name, path] : settings.aliases.value_or(Settings::Texts()))
        options.SetPathAlias(name, path);
}

void ApplyCodes(const Settings& settings, Decks::ReadOptions& options)
{
    options.SetStrict(settings.isStrict.value_or(false));
    for (const std::string& code : settings.selected.value_or(Settings::Words()))
        options.SelectCode(code);
    for (const std::string& code : settings.raised.value_or(Settings::Words()))
        options.SetSeverity(code, Decks::Severity::Error);
    for (const std::string& code : settings.ignored.value_or(Settings::Words()))
        options.SetSeverity(code, std::nullopt);
}

void CheckCodes(const Settings& settings, const Decks::DeckLanguage& language)
{
    std::vector<std::string> known = language.GetOwnCodes();
    for (const Decks::CodeInfo& code : Decks::Codes())
        known.emplace_back(code.name);
    for (const SettingInfo& setting : AllSettings()) {
        const auto* const member = std::get_if<std::optional<Settings::Words> Settings::*>(&setting.member);
        if (!member || std::strcmp(setting.value, "CODE") != 0)
            continue;
        for (const std::string& code : (settings.**member).value_or(Settings::Words())) {
            if (std::find(known.begin(), known.end(), code) != known.end())
                continue;
            const auto nearest = Decks::FindNearest(known, code);
            const std::string& origin = settings.origins.at(setting.name);
            throw SettingsError(fmt::format("{}: unknown finding code '{}'{}",
                origin == commandLine ? setting.option : fmt::format("{}: {}", origin, setting.name), code,
                nearest.empty() ? "" : fmt::format("; did you mean {}?", fmt::join(nearest, ", "))));
        }
    }
}

} // namespace Veld::Quor::Tools
