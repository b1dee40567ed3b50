#include "quor/deck/DeckKeyword.h"
#include "quor/deck/DeckSummary.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/InfoArrays.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/SummaryJson.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/UnitTexts.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;
using nlohmann::ordered_json;

namespace {

struct InfoOptions {
    std::string deck;
    DeckReadOptions read;
    bool withAllWells = false;
    bool withAllProperties = false;
    bool isJson = false;
};

constexpr std::size_t indent = 2;
constexpr std::size_t fewRows = 20;

std::string Dashed(const std::string& text)
{
    return text.empty() ? "-" : MakePrintable(text);
}

std::string SectionName(SectionType::Enum section)
{
    return section == SectionType::None ? "(before the first)" : SectionType::ToString(section);
}

void PrintTable(const std::string& heading, const Columns& table, std::size_t rows)
{
    Print(fmt::format("\n{}\n{}", heading, table.GetHead(indent)));
    for (std::size_t i = 0; i < rows; ++i)
        Print(table.GetRow(i, indent, std::numeric_limits<std::size_t>::max()));
}

/// `option`: what gives all the rows.
void PrintSomeRows(
    const char* noun, std::vector<Columns::Row> rows, Columns::Row head, bool withAll, const char* option)
{
    if (rows.empty())
        return;
    const std::size_t count = rows.size();
    const std::size_t shown = withAll ? count : std::min(count, fewRows);
    Columns table(std::move(head));
    for (std::size_t i = 0; i < shown; ++i)
        table.Add(std::move(rows[i]));
    PrintTable(Plural(count, noun), table, shown);
    if (shown < count)
        Print(fmt::format("  {} more; use {} to list all\n", count - shown, option));
}

void PrintFiles(const Decks::DeckSummary& summary)
{
    constexpr std::size_t deepest = 20;
    Columns table({"file", "bytes", "keywords"});
    for (const Decks::FileSummary& file : summary.files)
        table.Add({std::string(2 * std::min(file.depth, deepest), ' ') + MakePrintable(file.name),
            fmt::format("{}", file.bytes), fmt::format("{}", file.keywords)});
    PrintTable("files", table, summary.files.size());
}

void PrintSections(const Decks::DeckSummary& summary)
{
    Columns table({"section", "keywords", "from"});
    for (const Decks::SectionSummary& row : summary.sections)
        table.Add({SectionName(row.section), fmt::format("{}", row.keywords), LocationText(row.location)});
    PrintTable("sections", table, summary.sections.size());
}

void PrintRunspec(const Decks::DeckSummary& summary)
{
    Columns table({"keyword", "sizes"});
    for (const Decks::SizeSummary& row : summary.sizes) {
        std::vector<std::string> sizes;
        for (const auto& [item, value] : row.sizes)
            sizes.push_back(fmt::format("{} {}", item, value));
        table.Add({row.keyword, fmt::format("{}", fmt::join(sizes, ", "))});
    }
    if (!summary.sizes.empty())
        PrintTable("sizes", table, summary.sizes.size());
    Print("\n");
    if (!summary.options.empty())
        Print(Wrap("options: ", fmt::format("{}", fmt::join(summary.options, " ")), indent, GetWidth()));
    Print(fmt::format("units: {}\n", summary.units.empty() ? "METRIC (default)" : summary.units));
}

void PrintTime(const Decks::DeckSummary& summary)
{
    const std::string start = Decks::DateText(summary.start);
    const std::string end = Decks::DateText(summary.end);
    Print(fmt::format("time: {} to {}, {}\n", start.empty() ? "no start date" : start,
        end.empty() ? "no end date" : end, Plural(summary.reports, "report step")));
}

void PrintWells(const Decks::DeckSummary& summary, bool withAll)
{
    std::vector<Columns::Row> rows;
    for (const Decks::Well& well : summary.wells)
        rows.push_back({MakePrintable(well.name), Dashed(well.group), Dashed(well.control),
            fmt::format("{}", well.completions), Dashed(Decks::DateText(well.since))});
    PrintSomeRows("well", std::move(rows), {"name", "group", "last control", "completions", "since"}, withAll,
        "--wells");
}

void PrintGroups(const Decks::DeckSummary& summary, bool withAll)
{
    constexpr std::size_t deepest = 20;
    std::vector<Columns::Row> rows;
    for (const Decks::Group& group : summary.groups)
        rows.push_back({std::string(2 * std::min(group.depth, deepest), ' ') + MakePrintable(group.name),
            fmt::format("{}", group.wells)});
    PrintSomeRows("group", std::move(rows), {"name", "wells"}, withAll, "--wells");
}

void PrintProperties(const Decks::DeckSummary& summary, bool withAll)
{
    std::vector<Columns::Row> rows;
    for (const Decks::PropertySummary& row : summary.properties) {
        const auto number = [&row](double Decks::PropertySummary::Range::*member) {
            return row.range ? fmt::format("{:.6g}", *row.range.*member) : "-";
        };
        const std::string unknown = row.unknown > 0 ? fmt::format(" ({} unknown)", row.unknown) : "";
        rows.push_back({row.keyword, fmt::format("{}{}", row.count, unknown),
            fmt::format("{}", row.defaulted), number(&Decks::PropertySummary::Range::least),
            number(&Decks::PropertySummary::Range::mean), number(&Decks::PropertySummary::Range::greatest),
            Dashed(UnitText(row.measurement, UnitSystem::FromString(summary.units))),
            LocationText(row.location)});
    }
    PrintSomeRows("cell property definition", std::move(rows),
        {"keyword", "values", "defaulted", "min", "mean", "max", "unit", "at"}, withAll, "--properties");
}

void PrintVariables(const Decks::DeckSummary& summary)
{
    if (summary.variables.empty())
        return;
    Columns table({"name", "used in"});
    for (const Decks::VariableSummary& row : summary.variables)
        table.Add({MakePrintable(row.name), fmt::format("{}", fmt::join(row.uses, ", "))});
    PrintTable(Plural(summary.variables.size(), "variable"), table, summary.variables.size());
}

void PrintText(const Decks::DeckSummary& summary, const InfoOptions& options)
{
    Print(fmt::format("title: {}\n", Dashed(summary.title)));
    PrintFiles(summary);
    PrintSections(summary);
    PrintRunspec(summary);
    PrintTime(summary);
    PrintWells(summary, options.withAllWells);
    PrintGroups(summary, options.withAllWells);
    PrintProperties(summary, options.withAllProperties);
    PrintSomeRows(
        "computed array", ArrayRows(summary), ArrayHead(), options.withAllProperties, "--properties");
    PrintVariables(summary);
}

int Info(LoadedLanguage& language, const InfoOptions& options)
{
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const auto deck = ReadDeckOrReport(options.deck, OptionsFor(options.deck, options.read), deckLanguage);
    if (!deck)
        return Failure;
    const Decks::DeckSummary summary = Decks::Summarize(*deck);
    if (options.isJson)
        Print(ToText(WithVersion(SummaryJson(summary, options.deck))));
    else
        PrintText(summary, options);
    return Success;
}

} // namespace

Command MakeInfoCommand(CLI::App& application)
{
    const auto options = std::make_shared<InfoOptions>();
    CLI::App& command = *application.add_subcommand("info",
        "Summarizes a deck: files, sections, sizes, dates, wells, groups, and for each cell property the\n"
        "number, minimum, mean and maximum of its values.");
    AddDeckArgument(command, options->deck);
    AddReadOptions(command, options->read);
    command.add_flag("--wells", options->withAllWells, "List all wells and groups, not the first 20");
    command.add_flag(
        "--properties", options->withAllProperties, "List all cell properties, not the first 20");
    AddFormatOption(command, options->isJson);
    command.footer("A well's completions are the cells in which it was ever completed. The mean excludes "
                   "defaulted values.\nComputed arrays are those that keywords set, copy, add to, multiply "
                   "or limit, cell by cell, in their boxes\n"
                   "and regions: what they come to at the end of the deck.\nJSON output lists everything.\n\n"
                   "Examples:\n"
                   "  quor info reservoir.data\n"
                   "  quor info reservoir.data --wells\n"
                   "  quor info reservoir.data --simulator Dunmere --format json");
    return {&command, [options](LoadedLanguage& language) { return Info(language, *options); },
        [options] { return DocumentsFor(options->deck, options->read); }};
}

} // namespace Veld::Quor::Tools
