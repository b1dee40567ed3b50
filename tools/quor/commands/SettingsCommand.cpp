#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/settings/SettingInfo.h"
#include "tools/quor/settings/SettingOptions.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <limits>
#include <memory>
#include <string>

namespace Veld::Quor::Tools {

using nlohmann::ordered_json;

namespace {

struct SettingsOptions {
    std::string deck; // empty: the current folder
    SettingSources sources;
    bool isJson = false;
};

/// One value, and where it is from.
struct SettingRow {
    std::string name;
    std::string value;
    std::string origin;
    const char* help;
};

/// A row for each setting, and one for each entry of a table.
std::vector<SettingRow> RowsOf(const Settings& settings)
{
    std::vector<SettingRow> rows;
    for (const SettingInfo& setting : AllSettings()) {
        const auto* const texts = std::get_if<std::optional<Settings::Texts> Settings::*>(&setting.member);
        const auto origin = settings.origins.find(setting.name);
        if (origin == settings.origins.end())
            rows.push_back({setting.name, setting.without, "default", setting.help});
        else if (!texts)
            rows.push_back({setting.name, TextOf(setting, settings), origin->second, setting.help});
        else {
            for (const auto& [name, text] : *(settings.**texts)) {
                const std::string whole = fmt::format("{}.{}", setting.name, name);
                rows.push_back({whole, text, settings.origins.at(whole), setting.help});
            }
        }
    }
    return rows;
}

void PrintText(const std::string& file, const std::vector<SettingRow>& rows)
{
    Print(file.empty() ? "no settings file\n\n" : fmt::format("settings of {}\n\n", MakePrintable(file)));
    Columns table({"setting", "value", "from", ""});
    for (const SettingRow& row : rows)
        table.Add({row.name, row.value, row.origin, ""});
    Print(table.GetHead(0));
    for (std::size_t i = 0; i < rows.size(); ++i)
        Print(table.GetRow(i, 0, std::numeric_limits<std::size_t>::max()));
}

void PrintJson(const std::string& file, const std::vector<SettingRow>& rows)
{
    auto settings = ordered_json::array();
    for (const SettingRow& row : rows)
        settings.push_back(
            {{"name", row.name}, {"value", row.value}, {"origin", row.origin}, {"description", row.help}});
    Print(ToText(WithVersion({{"file", TextOrNull(file)}, {"settings", settings}})));
}

int ShowSettings(const SettingsOptions& options)
{
    const std::string file = SettingsFileOf(options.deck, options.sources);
    const std::vector<SettingRow> rows = RowsOf(SettingsOf(options.deck, options.sources));
    if (options.isJson)
        PrintJson(file, rows);
    else
        PrintText(file, rows);
    return Success;
}

} // namespace

Command MakeSettingsCommand(CLI::App& application)
{
    const auto options = std::make_shared<SettingsOptions>();
    CLI::App& command = *application.add_subcommand("settings",
        "Prints the settings that hold for a deck, and where each is from: the settings file quor.toml in\n"
        "the folder of the deck or the nearest above it, the command line, or the default.");
    command.add_option("DECK", options->deck, "Main file of a deck; without it, the current folder")
        ->type_name("FILE");
    AddSettingsFileOptions(command, options->sources);
    AddSettingOptions(command, options->sources.given,
        {"simulator", "mode", "rules", "syntax", "syntax-folder", "max-repeated-values", "variables",
            "aliases", "check.select", "check.ignore", "check.raise", "check.fail-on", "check.strict",
            "check.max-findings", "check.baseline", "format.normalize"});
    AddFormatOption(command, options->isJson);
    command.footer(
        "The command line takes precedence over the file. Its --rules, --syntax, --ignore and --raise\n"
        "are added to those of the file; what it selects is not ignored. Paths in the file are relative to "
        "its folder.\n\n"
        "An example of a quor.toml:\n"
        "  simulator = \"Carrow\"\n"
        "  decks = [\"cases/*.data\"]\n"
        "  rules = [\"company.xml\"]\n"
        "  [variables]\n"
        "  CASE = \"base\"\n"
        "  [check]\n"
        "  ignore = [\"unclosed-list\"]\n"
        "  fail-on = \"error\"\n"
        "Exit status: 0 success, 2 the settings file has an error or can't be read.");
    Command made{&command, {}};
    made.runAlone = [options] { return ShowSettings(*options); };
    return made;
}

} // namespace Veld::Quor::Tools
