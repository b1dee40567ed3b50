#include "tools/quor/settings/SettingInfo.h"

#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <string_view>

namespace Veld::Quor::Tools {

namespace {

using Options = Core::Decks::ReadOptions;

template <class T>
Settings::Words NamesOf()
{
    Settings::Words words;
    for (const auto& row : T::EnumInfos())
        words.push_back(row.text);
    return words;
}

std::vector<SettingInfo> MakeSettings()
{
    return {
        {"simulator", "--simulator", "NAME", "Simulator that runs the decks", &Settings::simulator, "any",
            NamesOf<Core::Keywords::SimulatorType>()},
        {"mode", "--mode", "NAME", "Mode of the simulator", &Settings::mode, "any",
            NamesOf<Core::Keywords::SimulatorModeType>()},
        {"decks", "", "PATTERN", "Decks of the project, which 'quor check' without a deck checks",
            &Settings::decks, "none"},
        {"rules", "--rules", "FILE", "Documents of own rules", &Settings::rules, "none"},
        {"syntax", "--syntax", "FILE",
            "Own documents of keywords, beside those of the language; a later one takes precedence",
            &Settings::syntax, "none"},
        {"syntax-folder", "--syntax-folder", "FOLDER", "The same for the .xml files of a folder, before them",
            &Settings::syntaxFolder, "none"},
        {"max-repeated-values", "--max-repeated-values", "N",
            "Maximum number of values that repeat counts such as 1000*0.2 make in a keyword, beyond 100 for "
            "each byte of the deck",
            &Settings::maxRepeatedValues, "50000000"},
        {"variables", "--set", "NAME=VALUE", "Values of the variables of decks, $NAME", &Settings::variables,
            "none", {}, &Options::SetVariable},
        {"aliases", "--path-alias", "NAME=FOLDER", "Folders that $NAME is in the names of included files",
            &Settings::aliases, "none", {}, &Options::SetPathAlias},
        {"check.select", "--select", "CODE", "Report the findings of these codes alone", &Settings::selected,
            "all"},
        {"check.ignore", "--ignore", "CODE", "Do not report the findings of these codes", &Settings::ignored,
            "none"},
        {"check.raise", "--raise", "CODE", "Report the findings of these codes as errors", &Settings::raised,
            "none"},
        {"check.fail-on", "--fail-on", "NAME", "Least severity of findings that the exit status reports",
            &Settings::failOn, "warning", {"error", "warning", "never"}},
        {"check.strict", "--strict", "", "Also report what simulators accept but a tidy deck doesn't have",
            &Settings::isStrict, "false"},
        {"check.max-findings", "--max-findings", "N",
            "Maximum number of findings printed for each deck; the others are only counted",
            &Settings::maxFindings, "200"},
        {"check.baseline", "--baseline", "FILE", "Hide the findings that are listed in this file",
            &Settings::baseline, "none"},
        {"format.normalize", "--normalize", "",
            "Rewrite all data: the shortest numbers, no needless quotes, repeats combined, no gaps between "
            "columns",
            &Settings::isNormalized, "false"},
    };
}

struct ValueTexts {
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::size_t value) const { return fmt::format("{}", value); }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(const Settings::Words& value) const
    {
        return fmt::format("{}", fmt::join(value, ", "));
    }
    std::string operator()(const Settings::Texts& value) const
    {
        Settings::Words words;
        for (const auto& [name, text] : value)
            words.push_back(fmt::format("{}={}", name, text));
        return (*this)(words);
    }
};

} // namespace

bool SettingInfo::IsPath() const
{
    return value == std::string_view("FILE") || value == std::string_view("FOLDER")
        || value == std::string_view("PATTERN") || setText == &Options::SetPathAlias;
}

bool SettingInfo::IsAdded() const
{
    return member == Member(&Settings::rules) || member == Member(&Settings::syntax)
        || member == Member(&Settings::ignored) || member == Member(&Settings::raised);
}

const std::vector<SettingInfo>& AllSettings()
{
    static const auto& settings = *new std::vector<SettingInfo>(MakeSettings());
    return settings;
}

const SettingInfo* FindSetting(const std::string& name)
{
    const auto& all = AllSettings();
    const auto found =
        std::find_if(all.begin(), all.end(), [&name](const SettingInfo& row) { return row.name == name; });
    return found == all.end() ? nullptr : &*found;
}

std::string PlainName(const std::string& name)
{
    return name.starts_with('$') ? name.substr(1) : name;
}

std::string TextOf(const SettingInfo& setting, const Settings& settings)
{
    return std::visit(
        [&settings](auto member) { return settings.*member ? ValueTexts()(*(settings.*member)) : ""; },
        setting.member);
}

} // namespace Veld::Quor::Tools
