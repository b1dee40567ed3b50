#include "quor/syntax/KeywordSyntaxUtils.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/LanguageOrigin.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/NameFilter.h"
#include "tools/quor/commands/SummaryFilter.h"
#include "tools/quor/settings/SettingOptions.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/Measurements.h"
#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/UnitTexts.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

struct ListOptions {
    SectionType::Enum section = SectionType::None; // none asked for
    SimulatorType::Enum simulator = SimulatorType::Any;
    SimulatorModeType::Enum mode = SimulatorModeType::Any;
    std::string text;
    bool cellsOnly = false;
    std::optional<MDType::Enum> type;
    std::string measurement; // empty: none asked for
    bool measurementsOnly = false; // and not the keywords
    SummaryFilter summary;
    NameFilter names;
    bool withHidden = false;
    bool countsOnly = false;
    bool isJson = false;
    SettingSources sources;

    bool AsksForValidity() const
    {
        return section != SectionType::None || simulator != SimulatorType::Any
            || mode != SimulatorModeType::Any;
    }
};

bool IsValid(const IKeywordSyntax& syntax, const ListOptions& options)
{
    for (int i = 0; i < SectionType::Count; ++i) {
        const auto section = static_cast<SectionType::Enum>(i);
        const bool isAsked = options.section == SectionType::None || options.section == section;
        if (isAsked
            && KeywordSyntaxUtils::IsValid(
                syntax, syntax.GetName(), section, options.simulator, options.mode))
            return true;
    }
    return false;
}

bool HoldsText(const IKeywordSyntax& syntax, const std::string& upperText)
{
    const auto holds = [&upperText](const std::string& text) {
        return ToUpper(text).find(upperText) != std::string::npos;
    };
    const auto& aliases = syntax.GetAliases();
    return holds(syntax.GetName()) || holds(syntax.GetDescription())
        || std::any_of(aliases.begin(), aliases.end(), holds);
}

bool CarriesWhatIsAsked(const IKeywordSyntax& syntax, const ListOptions& options)
{
    return (!options.cellsOnly || syntax.GetCellPropertyInfo())
        && (!options.type || ValueTypeOf(syntax) == *options.type)
        && (options.measurement.empty() || HasMeasurement(syntax, options.measurement))
        && options.summary.Admits(syntax.GetSummaryMnemonicInfo());
}

LoadedLanguage::Syntaxes Select(LoadedLanguage& language, const ListOptions& options)
{
    LoadedLanguage::Syntaxes syntaxes = language.GetSyntaxes(options.withHidden);
    const std::string upperText = ToUpper(options.text);
    std::erase_if(syntaxes, [&](const IKeywordSyntax* syntax) {
        return (options.AsksForValidity() && !IsValid(*syntax, options)) || !HoldsText(*syntax, upperText)
            || !CarriesWhatIsAsked(*syntax, options);
    });
    return syntaxes;
}

/// Three and more neighbours as "GRID..SOLUTION".
std::string SectionsText(const IKeywordSyntax& syntax)
{
    const auto sections = syntax.GetValidSections();
    if (sections.size() == SectionType::Count)
        return "all";
    std::string text;
    for (auto first = sections.begin(); first != sections.end();) {
        auto last = first;
        while (last + 1 != sections.end() && *(last + 1) == *last + 1)
            ++last;
        if (last - first < 2)
            last = first;
        text += (text.empty() ? "" : ",") + SectionType::ToString(*first);
        if (last != first)
            text += ".." + SectionType::ToString(*last);
        first = last + 1;
    }
    return text.empty() ? "none" : text;
}

void PrintText(const LoadedLanguage::Syntaxes& syntaxes)
{
    constexpr std::size_t widestSections = 24;
    std::size_t nameWidth = 0;
    std::size_t sectionsWidth = 0;
    for (const IKeywordSyntax* syntax : syntaxes) {
        nameWidth = std::max(nameWidth, syntax->GetName().size());
        sectionsWidth = std::max(sectionsWidth, std::min(widestSections, SectionsText(*syntax).size()));
    }
    const std::size_t width = GetWidth();
    for (const IKeywordSyntax* syntax : syntaxes) {
        const std::string line = fmt::format("{:{}}  {:{}}  {}", syntax->GetName(), nameWidth,
            SectionsText(*syntax), sectionsWidth, syntax->GetDescription());
        Print(Cut(MakePrintable(line), width) + '\n');
    }
}

std::vector<std::string> SectionNames(const std::vector<SectionType::Enum>& sections)
{
    std::vector<std::string> names;
    for (const SectionType::Enum section : sections)
        names.push_back(SectionType::ToString(section));
    return names;
}

void PrintJson(const LoadedLanguage::Syntaxes& syntaxes)
{
    auto list = nlohmann::ordered_json::array();
    for (const IKeywordSyntax* syntax : syntaxes) {
        auto& row = list.emplace_back();
        row = {{"name", syntax->GetName()}, {"aliases", syntax->GetAliases()},
            {"sections", SectionNames(syntax->GetValidSections())}, {"hidden", syntax->IsHidden()},
            {"description", syntax->GetDescription()}, {"type", TypeWord(ValueTypeOf(*syntax))}};
        if (const auto* info = syntax->GetSummaryMnemonicInfo())
            row["summary"] = CategoriesJson(*info);
    }
    Print(ToText(WithVersion({{"keywords", list}})));
}

void PrintMeasurements(const MeasurementCounts& counts, const ListOptions& options)
{
    if (options.countsOnly) {
        Print(fmt::format("{}\n", counts.size()));
    } else if (options.isJson) {
        auto list = nlohmann::ordered_json::array();
        for (const auto& [measurement, count] : counts)
            list.push_back(
                {{"measurement", measurement}, {"keywords", count}, {"units", UnitsJson(measurement)}});
        Print(ToText(WithVersion({{"measurements", list}})));
    } else {
        Columns::Row head = {"measurement", "keywords"};
        AppendSystems(head);
        Columns table(head);
        for (const auto& [measurement, count] : counts) {
            Columns::Row row = {measurement, fmt::format("{:>8}", count)};
            AppendUnits(measurement, row);
            table.Add(row);
        }
        Print(counts.empty() ? "" : table.GetHead(0));
        for (std::size_t i = 0; i < counts.size(); ++i)
            Print(table.GetRow(i, 0, GetWidth()));
    }
    if (counts.empty())
        PrintAside("no keyword with a measurement matches all options\n");
}

/// Puts the measurement asked for as the documents spell it. False, and reported, if no keyword uses it.
bool ResolveMeasurement(LoadedLanguage& language, ListOptions& options)
{
    const MeasurementCounts counts = CountMeasurements(language.GetSyntaxes(true));
    if (const std::string* measurement = FindMeasurement(options.measurement, counts)) {
        options.measurement = *measurement;
        return true;
    }
    const auto nearest = FindNearestMeasurements(options.measurement, counts);
    PrintError(fmt::format("--measurement: unknown measurement '{}'{}", options.measurement,
        nearest.empty() ? "" : fmt::format("; did you mean {}?", fmt::join(nearest, ", "))));
    PrintAside("'quor list --measurements' lists all measurements\n");
    return false;
}

/// False, and reported, if there is no such kind of names.
bool SelectByNames(LoadedLanguage& language, const NameFilter& filter, LoadedLanguage::Syntaxes& syntaxes)
{
    const Core::Decks::DeckLanguage deckLanguage(language.GetTable());
    std::erase_if(
        syntaxes, [&](const IKeywordSyntax* syntax) { return !filter.Admits(deckLanguage, *syntax); });
    return filter.Check(deckLanguage);
}

int List(LoadedLanguage& language, ListOptions options)
{
    if (!options.measurement.empty() && !ResolveMeasurement(language, options))
        return Failure;
    LoadedLanguage::Syntaxes syntaxes = Select(language, options);
    if (!options.names.IsEmpty() && !SelectByNames(language, options.names, syntaxes))
        return Failure;
    if (options.measurementsOnly) {
        PrintMeasurements(CountMeasurements(syntaxes), options);
        return Success;
    }
    if (options.countsOnly)
        Print(fmt::format("{}\n", syntaxes.size()));
    else if (options.isJson)
        PrintJson(syntaxes);
    else
        PrintText(syntaxes);
    if (syntaxes.empty())
        PrintAside("no keyword matches all options\n");
    if (!options.isJson)
        PrintAside(OriginText(language));
    return Success;
}

} // namespace

Command MakeListCommand(CLI::App& application)
{
    const auto options = std::make_shared<ListOptions>();
    CLI::App& command = *application.add_subcommand(
        "list", "Lists the keywords that match all options: name, sections, description.");
    AddSectionOption(command, Into(options->section));
    AddSimulatorOption(command, Into(options->simulator));
    AddModeOption(command, Into(options->mode));
    command.add_option("--text", options->text, "Text in the name, an alias or the description, in any case")
        ->take_last();
    command.add_flag(
        "--cell", options->cellsOnly, "List cell properties: keywords with a value for each cell");
    AddTypeOption(command, options->type);
    command
        .add_option("--measurement", options->measurement,
            "Measurement of a real value of the keyword; --measurements lists all")
        ->type_name("NAME")
        ->take_last();
    AddSummaryOptions(command, options->summary);
    AddNameOptions(command, options->names);
    command.add_flag("--hidden", options->withHidden, "List hidden keywords too");
    command.add_flag("--measurements", options->measurementsOnly,
        "List the measurements that those keywords use, with the number of keywords and the units");
    command.add_flag("--count", options->countsOnly, "Print only the number of rows");
    AddFormatOption(command, options->isJson);
    AddSyntaxOptions(command, options->sources);
    command.footer(
        "The type of a table of records is record, of a list of lists list, and of a keyword without "
        "data none.\n"
        "The categories are those of summary vectors.\n\n"
        "Examples:\n"
        "  quor list --section SCHEDULE --simulator Carrow\n"
        "  quor list --cell --measurement permeability\n"
        "  quor list --entity Well --flow Production --function Rate\n"
        "  quor list --defines well\n"
        "  quor list --text saturation --format json");
    return {&command, [options](LoadedLanguage& language) { return List(language, *options); },
        [options] { return DocumentsOf(SettingsOf("", options->sources)); }};
}

} // namespace Veld::Quor::Tools
