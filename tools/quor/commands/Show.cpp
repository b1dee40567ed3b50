#include "quor/deck/DeckLanguage.h"
#include "quor/syntax/ICellPropertyInfo.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/SummaryFilter.h"
#include "tools/quor/findings/FindingCodes.h"
#include "tools/quor/manual/Browser.h"
#include "tools/quor/manual/Manual.h"
#include "tools/quor/settings/SettingOptions.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/KeywordFacts.h"
#include "tools/quor/tree/TreeJson.h"
#include "tools/quor/tree/TreeText.h"
#include "tools/quor/tree/ValidityTable.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

struct ShowOptions {
    std::vector<std::string> names;
    std::optional<UnitSystem::Enum> units;
    bool isJson = false;
    SettingSources sources;
    bool inBrowser = false;
};

/// A keyword and the spelling that led to it.
struct Found {
    std::string spelling;
    const IKeywordSyntax* syntax;
};

bool IsAlias(const Found& found)
{
    const auto& aliases = found.syntax->GetAliases();
    return found.spelling != found.syntax->GetName()
        && std::find(aliases.begin(), aliases.end(), found.spelling) != aliases.end();
}

/// How the spelling leads to the keyword: "name", "alias" or "wildcard".
const char* WayTo(const Found& found)
{
    if (found.spelling == found.syntax->GetName())
        return "name";
    return IsAlias(found) ? "alias" : "wildcard";
}

nlohmann::ordered_json ScopeJson(const IKeywordSyntax& syntax)
{
    if (!syntax.HasScope())
        return nullptr;
    auto ends = nlohmann::ordered_json::array();
    for (const IKeywordSyntax* end : syntax.GetScopeKeywords())
        ends.push_back({{"name", end->GetName()}, {"explicit", end == syntax.GetScopeSyntax()}});
    return {{"endKeywords", ends}};
}

nlohmann::ordered_json SummaryJson(const IKeywordSyntax& syntax)
{
    const ISummaryMnemonicInfo* const info = syntax.GetSummaryMnemonicInfo();
    return info ? CategoriesJson(*info) : nlohmann::ordered_json();
}

nlohmann::ordered_json CellJson(const IKeywordSyntax& syntax)
{
    const ICellPropertyInfo* const info = syntax.GetCellPropertyInfo();
    if (!info)
        return nullptr;
    return {{"property", info->GetPropertyName()}, {"components", info->HasComponents()},
        {"copyLayerAboveByDefault", info->CopyLayerAboveByDefault()},
        {"dualPorosityMatrixOnly", info->DualPorosityMatrixOnly()}};
}

/// Nothing for an empty value.
std::string Field(const char* label, const std::string& value)
{
    return value.empty() ? "" : Wrap(fmt::format("  {}: ", label), value, 4, GetWidth());
}

std::string RulesText(const Decks::DeckLanguage& language, const IKeywordSyntax& syntax)
{
    std::string text;
    for (const Decks::KeywordRule& rule : language.GetRules(syntax))
        text += Field("rule", rule.text);
    return text;
}

nlohmann::ordered_json RulesJson(const Decks::DeckLanguage& language, const IKeywordSyntax& syntax)
{
    auto rules = nlohmann::ordered_json::array();
    for (const Decks::KeywordRule& rule : language.GetRules(syntax))
        rules.push_back({{"kind", rule.kind}, {"what", rule.what}, {"item", rule.item}, {"text", rule.text}});
    return rules;
}

std::string KeywordText(
    const Found& found, std::optional<UnitSystem::Enum> units, const Decks::DeckLanguage& language)
{
    const IKeywordSyntax& syntax = *found.syntax;
    const std::string& name = syntax.GetName();
    const std::string documentation = syntax.GetDocumentationName();
    const char* const role = FindRoleText(syntax.GetDeckRole());
    std::string text = name + '\n';
    if (found.spelling != name)
        text += fmt::format("  found as: {}, by {}\n", found.spelling, WayTo(found));
    text += Field("description", syntax.GetDescription());
    text += Field("aliases", AliasList(syntax));
    text += Field("documented as", documentation == name ? "" : documentation);
    text += Field("marks", fmt::format("{}", fmt::join(MarksOf(syntax), ", ")));
    text += Field("role", role ? role : "");
    text += Field("comes after", fmt::format("{}", fmt::join(PrecedentsOf(syntax), ", ")));
    text += ValidityText(syntax, found.spelling);
    text += Field("scope", ScopeText(syntax));
    text += Field("summary", SummaryText(syntax));
    text += Field("cell property", CellText(syntax));
    text += RulesText(language, syntax);
    return text + TreeText(syntax, GetWidth(), units);
}

nlohmann::ordered_json KeywordJson(const Found& found, const Decks::DeckLanguage& language)
{
    const IKeywordSyntax& syntax = *found.syntax;
    const char* const role = FindRoleText(syntax.GetDeckRole());
    auto aliases = nlohmann::ordered_json::array();
    for (const std::string& alias : syntax.GetAliases())
        aliases.push_back({{"name", alias}, {"hidden", syntax.IsHidden(alias)}});
    nlohmann::ordered_json json = {{"name", syntax.GetName()}, {"foundAs", found.spelling},
        {"foundBy", WayTo(found)}, {"description", syntax.GetDescription()}, {"aliases", aliases},
        {"documentation", syntax.GetDocumentationName()}, {"wildcard", syntax.IsWildcard()},
        {"generic", syntax.IsGeneric()}, {"hidden", syntax.IsHidden()}, {"precedents", PrecedentsOf(syntax)}};
    json["role"] = role ? nlohmann::ordered_json(role) : nlohmann::ordered_json();
    json["validity"] = ValidityJson(syntax, found.spelling);
    json["identifierCount"] = syntax.GetIdentifierCount();
    json["scope"] = ScopeJson(syntax);
    json["summary"] = SummaryJson(syntax);
    json["cellProperty"] = CellJson(syntax);
    json["rules"] = RulesJson(language, syntax);
    json["data"] = TreeJson(syntax);
    return json;
}

void Append(std::vector<Found>& all, const std::string& spelling, KeywordSyntaxTable& table)
{
    for (const IKeywordSyntax* syntax : table.LookupAll(spelling))
        all.push_back({spelling, syntax});
}

void ReportUnknown(const std::string& name, const Decks::DeckLanguage& deckLanguage)
{
    if (!FindFindingCodes(name).empty())
        return PrintError(fmt::format("'{0}' is a finding code; run 'quor explain {0}'", name));
    const auto nearest = deckLanguage.FindNearest(name);
    PrintError(fmt::format("unknown keyword '{}'{}", name,
        nearest.empty() ? "" : fmt::format("; did you mean {}?", fmt::join(nearest, ", "))));
}

/// Writes the manual for this user and opens the pages of the keywords. False, and reported, if that fails.
bool OpenPages(LoadedLanguage& language, const std::vector<Found>& all)
{
    const std::string folder = FindManualFolder();
    if (folder.empty()) {
        PrintError("no folder for the pages: HOME and XDG_CACHE_HOME are not set");
        return false;
    }
    const Manual manual = MakeManual(language);
    if (!all.empty() && !WriteManual(manual, folder))
        return false;
    std::set<std::string> opened;
    bool isAll = true;
    for (const Found& found : all) {
        const auto address = manual.addresses.find(found.syntax->GetName());
        if (address == manual.addresses.end()) { // of a hidden keyword
            PrintError(fmt::format("the manual has no page for '{}'", found.spelling));
            isAll = false;
        } else if (opened.insert(address->second).second) {
            isAll = OpenInBrowser(folder + '/' + address->second) && isAll;
        }
    }
    return isAll;
}

int Show(LoadedLanguage& language, const ShowOptions& options)
{
    KeywordSyntaxTable& table = language.GetTable();
    const Decks::DeckLanguage deckLanguage(table);
    std::vector<Found> all;
    int status = Success;
    for (const std::string& name : options.names) {
        const std::size_t before = all.size();
        Append(all, name, table);
        if (all.size() == before)
            Append(all, ToUpper(name), table);
        if (all.size() == before) {
            ReportUnknown(name, deckLanguage);
            status = HasFindings;
        }
    }
    if (options.inBrowser)
        return OpenPages(language, all) ? status : static_cast<int>(Failure);
    if (options.isJson) {
        auto list = nlohmann::ordered_json::array();
        for (const Found& found : all)
            list.push_back(KeywordJson(found, deckLanguage));
        Print(ToText(WithVersion({{"keywords", list}})));
        return status;
    }
    for (const Found& found : all)
        Print((&found == &all.front() ? "" : "\n") + KeywordText(found, options.units, deckLanguage));
    return status;
}

} // namespace

Command MakeShowCommand(CLI::App& application)
{
    const auto options = std::make_shared<ShowOptions>();
    CLI::App& command =
        *application.add_subcommand("show", "Shows keywords with their validity, items and other metadata.");
    command.add_option("KEYWORD", options->names, "Names or aliases of keywords")->required();
    AddUnitsOption(command, options->units, "System of the units to show with the items; the default is all");
    AddFormatOption(command, options->isJson);
    command.add_flag("--browser", options->inBrowser, "Open the pages of the keywords in a browser")
        ->excludes("--units", "--format");
    AddSyntaxOptions(command, options->sources);
    command.footer(
        "Limits and defaults are in the units of the deck. With --units, defaults are converted; without\n"
        "it, one that is not the same amount in all systems is shown with its METRIC unit. JSON output\n"
        "has the units of all systems, and defaults in METRIC units.\n\n"
        "Examples:\n"
        "  quor show WELSPECS\n"
        "  quor show WCONPROD --units FIELD\n"
        "  quor show PORO PERMX --format json\n"
        "  quor show WCONPROD --browser");
    return {&command, [options](LoadedLanguage& language) { return Show(language, *options); },
        [options] { return DocumentsOf(SettingsOf("", options->sources)); }};
}

} // namespace Veld::Quor::Tools
