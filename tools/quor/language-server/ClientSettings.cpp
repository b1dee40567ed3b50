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

void Refuse(const std::string& name, const char* expected, ClientSettings& settings)
{
    settings.errors.push_back(
        fmt::format("the setting '{}' has an invalid value, and is not used; expected {}", name, expected));
}

/// Empty if there is none, and, reported, if it is no text.
std::string TextIn(const Json& json, const char* name, ClientSettings& settings)
{
    const Json& member = MemberOf(json, name);
    if (!member.is_string() && !member.is_null())
        Refuse(name, "a text", settings);
    return member.is_string() ? member.get<std::string>() : "";
}

/// One of the words of a setting, without regard to case; nothing for no text, an empty one and "any".
std::optional<std::string> WordIn(const Json& json, const char* name, ClientSettings& settings)
{
    const std::string word = TextIn(json, name, settings);
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

/// A whole number is written as one.
void SetVariables(const Json& variables, ClientSettings& settings)
{
    if (!variables.is_object()) {
        if (!variables.is_null())
            Refuse("variables", "an object", settings);
        return;
    }
    for (const auto& [name, value] : variables.items()) {
        if (value.is_string())
            SetVariable(name, value.get<std::string>(), settings);
        else if (value.is_number_integer())
            SetVariable(name, value.dump(), settings);
        else
            Refuse("variables." + name, "a text or a whole number", settings);
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
    if (!json.is_object() && !json.is_null())
        settings.errors.emplace_back("the settings are no object, and are not used");
    settings.given.simulator = WordIn(json, "simulator", settings);
    settings.given.mode = WordIn(json, "mode", settings);
    settings.root = TextIn(json, "root", settings);
    const Json& strict = MemberOf(json, "strict");
    if (strict == true) // an editor that has no other default sends false
        settings.given.isStrict = true;
    else if (!strict.is_boolean() && !strict.is_null())
        Refuse("strict", "true or false", settings);
    SetVariables(MemberOf(json, "variables"), settings);
    return settings;
}

} // namespace Veld::Quor::Tools::LanguageServer
