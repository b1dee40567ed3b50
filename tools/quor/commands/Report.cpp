#include "quor/deck/DeckLanguage.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/WriteFiles.h"
#include "tools/quor/report/ComparisonJson.h"
#include "tools/quor/report/ReportPage.h"
#include "tools/quor/terminal/ProgressBar.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;

namespace {

struct ReportOptions {
    std::string deck;
    std::string other; ///< empty: none
    std::string output;
    DeckReadOptions read;
    bool isForced = false; // any file is replaced
};

std::optional<Decks::Deck> ReadForReport(
    const std::string& path, const ReportOptions& options, const Decks::DeckLanguage& language)
{
    auto deck = ReadDeckOrReport(
        path, OptionsFor(path, options.read), language, "the report lists them and may be incomplete");
    if (deck && !IsApartOrReport(options.output, *deck))
        return std::nullopt;
    return deck;
}

std::string NameOf(const std::string& deck)
{
    return std::filesystem::path(deck).filename().string();
}

std::string FolderOf(const std::string& deck)
{
    return std::filesystem::absolute(deck).parent_path().filename().string();
}

/// Short names that tell the decks apart: of their files, else of their folders.
std::pair<std::string, std::string> LabelsOf(const std::string& deck, const std::string& other)
{
    if (NameOf(deck) != NameOf(other))
        return {NameOf(deck), NameOf(other)};
    if (FolderOf(deck) != FolderOf(other))
        return {FolderOf(deck), FolderOf(other)};
    return {"A", "B"};
}

/// False, and reported, if the path is that of a file that is no earlier report, and not empty.
bool IsFree(const std::string& path)
{
    if (HeadOf(path).empty() || IsPageOf("report", path))
        return true;
    PrintError(fmt::format(
        "can't write '{}': it is a file, and no report that quor wrote; --force replaces it", path));
    return false;
}

int WriteReport(LoadedLanguage& language, const ReportOptions& options)
{
    const Decks::DeckLanguage deckLanguage(language.GetTable());
    const bool isOfTwo = !options.other.empty();
    const auto deck = ReadForReport(options.deck, options, deckLanguage);
    const auto otherDeck =
        deck && isOfTwo ? ReadForReport(options.other, options, deckLanguage) : std::nullopt;
    if (!deck || (isOfTwo && !otherDeck))
        return Failure;
    if (!options.isForced && !IsFree(options.output))
        return Failure;
    std::vector<ReportValues> values;
    nlohmann::ordered_json report = ReportJson(*deck, deckLanguage, options.deck, values);
    std::string title = NameOf(options.deck);
    if (isOfTwo) {
        nlohmann::ordered_json other = ReportJson(*otherDeck, deckLanguage, options.other, values);
        const auto labels = LabelsOf(options.deck, options.other);
        report["label"] = labels.first;
        other["label"] = labels.second;
        AddComparison(report, *deck, std::move(other), *otherDeck, values);
        title = labels.first + " and " + labels.second;
    }
    std::string page;
    {
        ProgressBar bar;
        page = ReportPage(
            title, report, values, [&bar](std::size_t done, std::size_t known) { bar.Show(done, known); });
    }
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
        "tables as plots, its wells, groups and schedule, and its findings. Or one on two decks, side by "
        "side.");
    AddDeckArgument(command, options->deck);
    AddReadOptions(command, options->read);
    command
        .add_option(
            "--compare", options->other, "Main file of another deck: the report shows both, and what differs")
        ->type_name("FILE");
    command.add_option("-o,--output", options->output, "File to write")->required()->type_name("FILE");
    command.add_flag(
        "--force", options->isForced, "Replace also a file that is no report; never one of the deck");
    command.footer("The page needs no network and no other file. An earlier report is written over.\n\n"
                   "Examples:\n"
                   "  quor report reservoir.data -o report.html\n"
                   "  quor report reservoir.data --simulator Dunmere --output report.html\n"
                   "  quor report old.data --compare new.data -o old-and-new.html");
    return {&command, [options](LoadedLanguage& language) { return WriteReport(language, *options); },
        [options] { return DocumentsFor(options->deck, options->read); }};
}

} // namespace Veld::Quor::Tools
