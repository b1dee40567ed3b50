#pragma once

#include "quor/deck/ReadOptions.h"
#include "tools/quor/settings/Settings.h"

#include <string>
#include <variant>
#include <vector>

namespace Veld::Quor::Tools {

/// The origin of what the command line says.
inline constexpr const char* commandLine = "command line";

/// One setting: how it is named in a settings file and on a command line, and what it means.
struct SettingInfo {
    using Member = std::variant<std::optional<bool> Settings::*, std::optional<std::size_t> Settings::*,
        std::optional<std::string> Settings::*, std::optional<Settings::Words> Settings::*,
        std::optional<Settings::Texts> Settings::*>;
    using SetText = Core::Decks::ReadOptions& (
        Core::Decks::ReadOptions::*)(const std::string&, const std::string&);

    const char* name; ///< in the file; what is before a dot is the table that it is in
    const char* option; ///< of the command line; empty: it has none
    const char* value; ///< NAME, FILE, PATTERN, CODE, N; in texts for people
    const char* help;
    Member member;
    const char* without; ///< what holds if nothing is said
    Settings::Words words = {}; ///< one of which it is; empty: any
    SetText setText = nullptr; ///< of variables and the like: where they go

    /// Whether it names files: in a settings file they are relative to the folder of that file.
    bool IsPath() const;
    /// Whether what the command line says is added to what the file says.
    bool IsAdded() const;
};

/// All settings, in the order in which they are shown.
const std::vector<SettingInfo>& AllSettings();

/// The setting of the name; null if there is none.
const SettingInfo* FindSetting(const std::string& name);

/// The name without the "$" that it may begin with.
std::string PlainName(const std::string& name);

/// The value as text; empty if nothing is said of it.
std::string TextOf(const SettingInfo& setting, const Settings& settings);

} // namespace Veld::Quor::Tools
