#include "quor/deck/DeckDifference.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/DifferenceJson.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
namespace fs = std::filesystem;
using namespace Core::Keywords;
using Decks::Change;
using nlohmann::ordered_json;

namespace {

struct DiffOptions {
    std::string decks[2];
    DeckReadOptions read;
    bool isStrict = false;
    bool isJson = false;
};

struct KindRow {
    char sign;
    const char* colour;
};
constexpr KindRow kinds[] = {{'~', "33"}, {'+', "32"}, {'-', "31"}};

const KindRow& RowOf(Change::Kind kind)
{
    return kinds[static_cast<std::size_t>(kind)];
}

/// Below the folder of the deck, which is named at the top; of the deck itself the line.
std::string PlaceText(char name, const Decks::Location& location, const std::string& deck)
{
    if (location.file == deck)
        return fmt::format("{} {}", name, location.line);
    const fs::path file = fs::path(location.file).lexically_proximate(fs::path(deck).parent_path());
    return fmt::format("{} {}:{}", name, MakePrintable(file.string()), location.line);
}

std::string LineText(const Change& change, const DiffOptions& options, bool isColoured)
{
    const KindRow& kind = RowOf(change.kind);
    std::string line = fmt::format("{} {}", kind.sign, change.keyword.empty() ? "report" : change.keyword);
    if (!change.identity.empty())
        line += ' ' + MakePrintable(change.identity);
    if (change.kind == Change::Kind::Changed)
        line += ": " + ItemText(change.item);
    std::string locations =
        change.before ? PlaceText('A', *change.before, NameOfDeck(options.decks[0], options.read.read)) : "";
    if (change.after)
        locations += (locations.empty() ? "" : ", ")
            + PlaceText('B', *change.after, NameOfDeck(options.decks[1], options.read.read));
    if (isColoured)
        line = fmt::format("\x1b[{}m{}\x1b[0m", kind.colour, line);
    return fmt::format("  {}   ({})\n", line, locations);
}

void PrintText(const Decks::Difference& difference, const DiffOptions& options)
{
    const bool isColoured = TakesColour();
    if (!difference.groups.empty())
        Print(
            fmt::format("A: {}\nB: {}\n", MakePrintable(options.decks[0]), MakePrintable(options.decks[1])));
    for (const Decks::ChangeGroup& group : difference.groups) {
        const std::string& section = SectionType::ToString(group.section);
        Print(fmt::format("{}{}{}\n", section.empty() ? "before the first section" : section,
            group.step.empty() ? "" : ", ", group.step));
        for (const Change& change : group.changes)
            Print(LineText(change, options, isColoured));
    }
    Print(fmt::format("{} changed, {} added, {} removed\n", difference.GetCount(Change::Kind::Changed),
        difference.GetCount(Change::Kind::Added), difference.GetCount(Change::Kind::Removed)));
}

void PrintJson(const Decks::Difference& difference, const DiffOptions& options)
{
    auto changes = ordered_json::array();
    for (const Decks::ChangeGroup& group : difference.groups) {
        for (const Change& change : group.changes) {
            ordered_json json = {{"section", TextOrNull(SectionType::ToString(group.section))},
                {"step", TextOrNull(group.step)}};
            json.update(ChangeJson(change));
            changes.push_back(std::move(json));
        }
    }
    Print(ToText(WithVersion({{"a", options.decks[0]}, {"b", options.decks[1]},
        {"equal", difference.groups.empty()}, {"counts", CountsJson(difference)}, {"changes", changes}})));
}

int Diff(LoadedLanguage& language, const DiffOptions& options)
{
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const auto a =
        ReadDeckOrReport(options.decks[0], OptionsFor(options.decks[0], options.read), deckLanguage);
    const auto b =
        ReadDeckOrReport(options.decks[1], OptionsFor(options.decks[1], options.read), deckLanguage);
    if (!a || !b)
        return Failure;
    const auto difference =
        Decks::Compare(*a, *b, Decks::ComparisonOptions().SetDefaultsDiffer(options.isStrict));
    if (options.isJson)
        PrintJson(difference, options);
    else
        PrintText(difference, options);
    return difference.groups.empty() ? Success : HasFindings;
}

} // namespace

Command MakeDiffCommand(CLI::App& application)
{
    const auto options = std::make_shared<DiffOptions>();
    CLI::App& command = *application.add_subcommand("diff",
        "Compares the data of two decks: by section, in SCHEDULE by date, keywords and records by their\n"
        "identifiers, and values by item.");
    command.add_option("A", options->decks[0], "Main file of the first deck")->required()->type_name("FILE");
    command.add_option("B", options->decks[1], "Main file of the second deck")->required()->type_name("FILE");
    AddReadOptions(command, options->read);
    command.add_flag("--strict", options->isStrict,
        "Report a difference between a defaulted value and the same value given explicitly");
    AddFormatOption(command, options->isJson);
    command.footer(
        "Comments, layout, inclusions and the order of different keywords don't matter. A value that is "
        "left\n"
        "to its default is the same as the default that is given, as the simulator has it, but not with\n"
        "--strict. Each change is a line: ~ changed, + only in B, - only in A. Its location is a line of "
        "the\n"
        "deck, or a file below the folder of the deck and its line. Of a table in which more than 3 rows "
        "differ,\n"
        "the first is shown.\n"
        "Exit status: 0 the decks are equal, 1 they differ, 2 a deck can't be read.\n\n"
        "Examples:\n"
        "  quor diff history.data forecast.data\n"
        "  quor diff old.data new.data --strict --format json");
    return {&command, [options](LoadedLanguage& language) { return Diff(language, *options); },
        [options] { return DocumentsFor(options->decks[0], options->read); }};
}

} // namespace Veld::Quor::Tools
