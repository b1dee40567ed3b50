#include "tools/quor/language-server/ClientSettings.h"

#include "quor/deck/ReadOptions.h"
#include "tools/quor/settings/SettingInfo.h"
#include "tools/quor/settings/SettingSources.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace Veld::Quor::Tools::LanguageServer {

namespace {

/// One of the words of a setting, without regard to case; nothing for no text, an empty one and "any".
std::optional<std::string> WordIn(const Json& json, const char* name, ClientSettings& settings)
{
    const Json& member = MemberOf(json, name);
    const std::string word = member.is_string() ? member.get<std::string>() : "";
    const Settings::Words& known = FindSetting(name)->words;
    const auto found = std::find_if(known.begin(), known.end(),
        [&word](const std::string& one) { return ToLower(one) == ToLower(word); });
    if (found != known.end())
        return *found;
    if (!word.empty() && ToLower(word) != "any")
        settings.errors.push_back(
            fmt::format("the setting '{}' has an unknown name '{}', and is not used", name, word));
    return std::nullopt;
}

void SetVariable(const std::string& name, const std::string& value, ClientSettings& settings)
{
    try {
        Core::Decks::ReadOptions().SetVariable(name, value);
        if (!settings.given.variables)
            settings.given.variables.emplace();
        settings.given.variables->insert_or_assign(PlainName(name), value);
    } catch (const std::invalid_argument& error) {
        settings.errors.push_back(fmt::format("{} in the setting 'variables'; it is not used", error.what()));
    }
}

} // namespace

Core::Decks::Target ClientSettings::GetTarget() const
{
    Core::Decks::ReadOptions options;
    ApplyReading(given, options);
    return options.GetTarget();
}

ClientSettings SettingsIn(const Json& json)
{
    ClientSettings settings;
    settings.given.simulator = WordIn(json, "simulator", settings);
    settings.given.mode = WordIn(json, "mode", settings);
    if (const Json& root = MemberOf(json, "root"); root.is_string())
        settings.root = root.get<std::string>();
    if (MemberOf(json, "strict") == true) // an editor that has no other default sends false
        settings.given.isStrict = true;
    for (const auto& [name, value] : MemberOf(json, "variables").items()) {
        if (value.is_string())
            SetVariable(name, value.get<std::string>(), settings);
    }
    return settings;
}

} // namespace Veld::Quor::Tools::LanguageServer
