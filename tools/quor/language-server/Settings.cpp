#include "tools/quor/language-server/Settings.h"

#include "quor/deck/ReadOptions.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Veld::Quor::Tools::LanguageServer {

using namespace Core::Keywords;

namespace {

/// A word of an enumeration, without regard to case; any of them for no text, an empty one and "any".
template <class T>
typename T::Enum WordIn(const Json& json, const char* name, Settings& settings)
{
    const Json& member = MemberOf(json, name);
    const std::string word = member.is_string() ? member.get<std::string>() : "";
    for (const auto& row : T::EnumInfos()) {
        if (ToLower(row.text) == ToLower(word))
            return row.value;
    }
    if (!word.empty() && ToLower(word) != "any")
        settings.errors.push_back(
            fmt::format("the setting '{}' has an unknown name '{}', and is not used", name, word));
    return T::Any;
}

void SetVariable(const std::string& name, const std::string& value, Settings& settings)
{
    try {
        Core::Decks::ReadOptions().SetVariable(name, value);
        settings.variables[name] = value;
    } catch (const std::invalid_argument& error) {
        settings.errors.push_back(fmt::format("{} in the setting 'variables'; it is not used", error.what()));
    }
}

} // namespace

Settings SettingsIn(const Json& json)
{
    Settings settings;
    settings.target.simulator = WordIn<SimulatorType>(json, "simulator", settings);
    settings.target.mode = WordIn<SimulatorModeType>(json, "mode", settings);
    if (const Json& root = MemberOf(json, "root"); root.is_string())
        settings.root = root.get<std::string>();
    settings.isStrict = MemberOf(json, "strict") == true;
    for (const auto& [name, value] : MemberOf(json, "variables").items()) {
        if (value.is_string())
            SetVariable(name, value.get<std::string>(), settings);
    }
    return settings;
}

} // namespace Veld::Quor::Tools::LanguageServer
