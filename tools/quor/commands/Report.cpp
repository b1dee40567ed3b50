#include "quor/deck/DeckLanguage.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/WriteFiles.h"
#include "tools/quor/report/ReportPage.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

struct ReportOptions {
    std::string deck;
    std::string output;
    DeckReadOptions read;
};

int WriteReport(LoadedLanguage& language, const ReportOptions& options)
{
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const auto deck = ReadDeckOrReport(options.deck, OptionsFor(options.deck, options.read), deckLanguage,
        "the report lists them and may be incomplete");
    if (!deck || !IsApartOrReport(options.output, *deck))
        return Failure;
    std::vector<ReportValues> values;
    const nlohmann::ordered_json report = ReportJson(*deck, deckLanguage, options.deck, values);
    const std::string title = std::filesystem::path(options.deck).filename().string();
    const std::string page = ReportPage(title, report, values);
    if (!WriteFilesOrReport({{options.output, page}}))
        return Failure;
    constexpr double megabyte = 1e6;
    PrintAside(fmt::format(
        "{} ({:.1f} MB)\n", MakePrintable(options.output), static_cast<double>(page.size()) / megabyte));
    return Success;
}

} // namespace

Command MakeReportCommand(CLI::App& application)
{
    const auto options = std::make_shared<ReportOptions>();
    CLI::App& command = *application.add_subcommand("report",
        "Writes a report on a deck as one page for a browser: what the deck is, maps of its arrays, its\n"
        "tables as plots, its wells, groups and schedule, and its findings.");
    AddDeckArgument(command, options->deck);
    AddReadOptions(command, options->read);
    command.add_option("-o,--output", options->output, "File to write")->required()->type_name("FILE");
    command.footer("The page needs no network and no other file.\n\n"
                   "Examples:\n"
                   "  quor report reservoir.data -o report.html\n"
                   "  quor report reservoir.data --simulator Dunmere --output report.html");
    return {&command, [options](LoadedLanguage& language) { return WriteReport(language, *options); }};
}

} // namespace Veld::Quor::Tools
