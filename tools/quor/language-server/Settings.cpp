#include "tools/quor/language-server/Settings.h"

#include "tools/quor/terminal/TextLayout.h"

namespace Veld::Quor::Tools::LanguageServer {

using namespace Core::Keywords;

namespace {

/// A word of an enumeration, without regard to case; the first of them, "any", for any other text.
template <class T>
typename T::Enum WordIn(const Json& json, typename T::Enum any)
{
    if (!json.is_string())
        return any;
    for (const auto& row : T::EnumInfos()) {
        if (ToLower(row.text) == ToLower(json.get<std::string>()))
            return row.value;
    }
    return any;
}

} // namespace

Settings SettingsIn(const Json& json)
{
    Settings settings;
    settings.target.simulator = WordIn<SimulatorType>(MemberOf(json, "simulator"), SimulatorType::Any);
    settings.target.mode = WordIn<SimulatorModeType>(MemberOf(json, "mode"), SimulatorModeType::Any);
    if (const Json& root = MemberOf(json, "root"); root.is_string())
        settings.root = root.get<std::string>();
    settings.isStrict = MemberOf(json, "strict") == true;
    for (const auto& [name, value] : MemberOf(json, "variables").items()) {
        if (value.is_string())
            settings.variables[name] = value.get<std::string>();
    }
    return settings;
}

} // namespace Veld::Quor::Tools::LanguageServer
