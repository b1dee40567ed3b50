#include "quor/deck/Portability.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"
#include "tools/quor/terminal/TextLayout.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;
using Decks::Loss;
using Decks::Unchecked;
using nlohmann::ordered_json;

namespace {

/// Among which is what could not be checked.
constexpr std::size_t mostPortFindings = 10'000;

struct PortCommandOptions {
    std::string deck;
    Decks::Target from;
    Decks::Target to;
    bool withLocations = false;
    DeckReadOptions read;
    bool isJson = false;
};

struct LossRow {
    const char* code; ///< stable, for programs to go by
    const char* heading;
};

const LossRow& RowOf(Loss::Kind kind)
{
    static constexpr LossRow rows[] = {{"keyword-not-valid", "keywords that are not valid"},
        {"item-not-valid", "values that are not accepted"},
        {"item-unsupported", "values that are accepted but ignored"},
        {"choice-not-valid", "choices that are not accepted"},
        {"choice-unsupported", "choices that are accepted but ignored"},
        {"no-default", "values that are required, because there is no default"},
        {"other-default", "defaulted values whose default differs"}};
    return rows[static_cast<std::size_t>(kind)];
}

std::string NameOf(const Loss& loss)
{
    std::string name = loss.keyword;
    if (!loss.item.empty())
        name += ' ' + MakePrintable(loss.item);
    if (loss.kind == Loss::Kind::KeywordNotValid)
        name += " in " + SectionType::ToString(loss.section);
    return loss.detail.empty() ? name : fmt::format("{}: {}", name, MakePrintable(loss.detail));
}

void PrintKind(const std::vector<const Loss*>& losses, bool withAll)
{
    Columns table({"", "times", withAll ? "at" : "first at"});
    std::vector<Columns::Row> rows;
    for (const Loss* const loss : losses) {
        rows.push_back({NameOf(*loss), fmt::format("{}", loss->count), LocationText(loss->first)});
        for (std::size_t i = 1; i < loss->locations.size(); ++i)
            rows.push_back({"", "", LocationText(loss->locations[i])});
    }
    for (Columns::Row& row : rows)
        table.Add(std::move(row));
    Print(fmt::format("{}\n{}", RowOf(losses.front()->kind).heading, table.GetHead(2)));
    for (std::size_t i = 0; i < rows.size(); ++i)
        Print(table.GetRow(i, 2, std::numeric_limits<std::size_t>::max()));
    Print("\n");
}

const char* KindText(Unchecked::Kind kind)
{
    static constexpr const char* texts[] = {"unknown-keyword", "file", "variable", "error"};
    return texts[static_cast<std::size_t>(kind)];
}

void PrintUnchecked(const std::vector<Unchecked>& unchecked)
{
    if (unchecked.empty())
        return;
    Columns table({"", "times", "first at"});
    for (const Unchecked& row : unchecked) {
        const bool isUnknown = row.kind == Unchecked::Kind::UnknownKeyword;
        table.Add({isUnknown ? fmt::format("unknown keyword {}", row.text) : row.text,
            fmt::format("{}", row.count), LocationText(row.first)});
    }
    Print(fmt::format("what could not be checked\n{}", table.GetHead(2)));
    for (std::size_t i = 0; i < unchecked.size(); ++i)
        Print(table.GetRow(i, 2, std::numeric_limits<std::size_t>::max()));
    Print("\n");
}

void PrintText(const std::vector<Loss>& losses, const std::vector<Unchecked>& unchecked,
    const PortCommandOptions& options)
{
    std::size_t count = 0;
    for (auto loss = losses.begin(); loss != losses.end();) {
        std::vector<const Loss*> ofKind;
        for (const auto kind = loss->kind; loss != losses.end() && loss->kind == kind; ++loss) {
            ofKind.push_back(&*loss);
            count += loss->count;
        }
        PrintKind(ofKind, options.withLocations);
    }
    PrintUnchecked(unchecked);
    const std::string target = Decks::NameOf(options.to);
    const std::string lost = losses.empty() ? fmt::format("nothing is lost for {}", target)
                                            : fmt::format("lost for {}: {} in {}", target,
                                                Plural(losses.size(), "feature"), Plural(count, "location"));
    Print(unchecked.empty() ? lost + "\n" : fmt::format("{}, as far as the deck could be checked\n", lost));
}

ordered_json LossJson(const Loss& loss)
{
    ordered_json json = {{"kind", RowOf(loss.kind).code}, {"keyword", loss.keyword},
        {"section", TextOrNull(SectionType::ToString(loss.section))}, {"item", TextOrNull(loss.item)},
        {"detail", TextOrNull(loss.detail)}, {"count", loss.count}, {"first", LocationJson(loss.first)}};
    for (const Decks::Location& location : loss.locations)
        json["places"].push_back(LocationJson(location));
    return json;
}

ordered_json TargetJson(const Decks::Target& target)
{
    if (target.simulator == SimulatorType::Any)
        return nullptr;
    return {{"simulator", SimulatorType::ToString(target.simulator)},
        {"mode", TextOrNull(SimulatorModeType::ToString(target.mode))}};
}

void PrintJson(const std::vector<Loss>& losses, const std::vector<Unchecked>& unchecked,
    const PortCommandOptions& options)
{
    auto array = ordered_json::array();
    for (const Loss& loss : losses)
        array.push_back(LossJson(loss));
    auto limits = ordered_json::array();
    for (const Unchecked& row : unchecked)
        limits.push_back({{"kind", KindText(row.kind)}, {"text", row.text}, {"count", row.count},
            {"first", LocationJson(row.first)}});
    Print(ToText(WithVersion({{"deck", options.deck}, {"from", TargetJson(options.from)},
        {"to", TargetJson(options.to)}, {"losses", array}, {"unchecked", limits}})));
}

/// False, and reported, if the simulator does not have the mode.
bool HasMode(const Decks::Target& target)
{
    if (target.simulator == SimulatorType::Any || SimulatorType::HasMode(target.simulator, target.mode))
        return true;
    PrintError(fmt::format("simulator '{}' has no mode '{}'", SimulatorType::ToString(target.simulator),
        SimulatorModeType::ToString(target.mode)));
    return false;
}

int Port(LoadedLanguage& language, const PortCommandOptions& options)
{
    if (!HasMode(options.from) || !HasMode(options.to))
        return Failure;
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    Decks::ReadOptions read =
        options.read.read; // Wanted: codes that are ignored are among what is not checked
    ApplyReading(SettingsOf(NameOfDeck(options.deck, read), options.read.settings), read);
    const auto deck = ReadDeckOrReport(
        options.deck, read.SetTarget(options.to).SetMaxFindings(mostPortFindings), deckLanguage);
    if (!deck)
        return Failure;
    const std::vector<Loss> losses = Decks::FindLosses(
        *deck, Decks::PortOptions().SetFrom(options.from).SetLocations(options.withLocations));
    const std::vector<Unchecked> unchecked = Decks::FindUnchecked(*deck);
    if (options.isJson)
        PrintJson(losses, unchecked, options);
    else
        PrintText(losses, unchecked, options);
    return losses.empty() ? Success : HasFindings;
}

} // namespace

Command MakePortCommand(CLI::App& application)
{
    const auto options = std::make_shared<PortCommandOptions>();
    CLI::App& command = *application.add_subcommand("port",
        "Reports what a deck loses on another simulator: keywords, values and choices that the simulator\n"
        "does not accept or ignores, and defaulted values whose default differs.");
    AddDeckArgument(command, options->deck);
    AddSimulatorOption(command, Into(options->to.simulator), "--to", "Target simulator");
    command.get_option("--to")->required();
    AddModeOption(command, Into(options->to.mode));
    AddSimulatorOption(command, Into(options->from.simulator), "--from", "Current simulator");
    AddModeOption(command, Into(options->from.mode), "--from-mode", "Mode of the current simulator");
    AddTextOptions(command, options->read);
    command.get_option("--from-mode")->needs("--from");
    command.add_flag("--all", options->withLocations, "List all locations of each loss, not only the first");
    AddFormatOption(command, options->isJson);
    command.footer(
        "Blocks that the simulator skips are not compared. Without --from, the deck is compared "
        "with what any\nsimulator accepts and with the defaults of the keywords. What --from does not accept "
        "or ignores is not a loss.\n"
        "What could not be checked is listed: unknown keywords, files that can't be read, variables without "
        "a "
        "value,\n"
        "and data with errors.\n"
        "Exit status: 0 nothing is lost, 1 something is lost, 2 the deck can't be read.\n\n"
        "Examples:\n"
        "  quor port reservoir.data --to Carrow\n"
        "  quor port reservoir.data --from Dunmere --to Sedge --mode Compositional --all");
    return {&command, [options](LoadedLanguage& language) { return Port(language, *options); },
        [options] { return DocumentsFor(options->deck, options->read); }};
}

} // namespace Veld::Quor::Tools
