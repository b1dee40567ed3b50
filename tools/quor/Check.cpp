#include "tools/deck/DeckCheck.h"
#include "tools/deck/SourceText.h"
#include "tools/deck/Vocabulary.h"
#include "tools/quor/Catalogue.h"
#include "tools/quor/Command.h"
#include "tools/quor/Conditions.h"
#include "tools/quor/FindingFormat.h"
#include "tools/quor/FindingJson.h"
#include "tools/quor/FindingText.h"
#include "tools/quor/Json.h"
#include "tools/quor/Program.h"
#include "tools/quor/Terminal.h"

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

using namespace Core::Keywords;
using Deck::DeckReport;

namespace {

struct CheckCommandOptions {
    std::vector<std::string> decks;
    Deck::CheckOptions check;
    FindingFormat format = FindingFormat::Text;
};

struct Result {
    std::string deck;
    DeckReport report;
};

void PrintText(const Result& result)
{
    const DeckReport& report = result.report;
    Print(FindingsText(report.findings));
    Print(fmt::format("{}: {} in {}, {}: {}\n",
        MakePrintable(std::filesystem::path(result.deck).filename().string()),
        Plural(report.keywords, "keyword"), Plural(report.sections, "section"), Plural(report.files, "file"),
        CountsText(report.findings)));
}

FindingSets FindingsOf(const std::vector<Result>& results)
{
    FindingSets sets;
    for (const Result& result : results)
        sets.push_back(&result.report.findings);
    return sets;
}

void PrintJson(const std::vector<Result>& results)
{
    auto decks = nlohmann::ordered_json::array();
    auto findings = nlohmann::ordered_json::array();
    for (const auto& [deck, report] : results) {
        decks.push_back({{"deck", deck}, {"keywords", report.keywords}, {"sections", report.sections},
            {"files", report.files}, {"clean", !report.findings.HasFault()}});
        for (const Deck::Finding& finding : report.findings.GetKept()) {
            nlohmann::ordered_json json = {{"deck", deck}};
            json.update(FindingJson(finding));
            findings.push_back(std::move(json));
        }
    }
    Print(ToText({{"decks", decks}, {"counts", CountsJson(FindingsOf(results))}, {"findings", findings}}));
}

void PrintHeader(Catalogue& catalogue)
{
    PrintAside(fmt::format("language: {} ({}), loaded in {} ms\n",
        Plural(catalogue.GetSyntaxes(true).size(), "keyword"), Catalogue::GetOrigin(),
        catalogue.GetLoadTime().count()));
}

/// Empty, and told, if the deck can't be read.
std::optional<Result> CheckOne(
    const std::string& deck, const Deck::CheckOptions& options, Deck::Vocabulary& vocabulary)
{
    try {
        return Result{deck, CheckDeck(deck, options, vocabulary)};
    } catch (const Deck::SourceError& error) {
        PrintError(fmt::format("can't read '{}': {}", deck, error.what()));
        return std::nullopt;
    }
}

/// What is told of all decks together.
void PrintEnd(const std::vector<Result>& results, FindingFormat format)
{
    if (format == FindingFormat::Json)
        PrintJson(results);
    else if (format != FindingFormat::Text) // text was printed deck by deck
        Print(FindingsText(format, FindingsOf(results), {}));
}

int Check(Catalogue& catalogue, const CheckCommandOptions& options)
{
    const bool isText = options.format == FindingFormat::Text;
    if (isText)
        PrintHeader(catalogue);
    Deck::Vocabulary vocabulary(catalogue.GetTable());
    std::vector<Result> results;
    bool isClean = true;
    for (const std::string& deck : options.decks) {
        auto result = CheckOne(deck, options.check, vocabulary);
        if (!result)
            continue;
        isClean = isClean && !result->report.findings.HasFault();
        if (isText)
            PrintText(*result);
        results.push_back(std::move(*result));
    }
    if (!results.empty())
        PrintEnd(results, options.format);
    if (results.size() < options.decks.size())
        return Failure;
    return isClean ? Success : HasFindings;
}

} // namespace

Command MakeCheckCommand(CLI::App& application)
{
    const auto options = std::make_shared<CheckCommandOptions>();
    CLI::App& command = *application.add_subcommand("check",
        "Reads decks and tells what is wrong: keywords, sections, included files, skipped blocks, and\n"
        "the data behind the keywords. Without a simulator or mode, a keyword is fine that is valid for "
        "any.");
    command.add_option("DECK", options->decks, "Files, each a deck of its own")->required();
    AddSimulatorOption(command, options->check.target.simulator);
    AddModeOption(command, options->check.target.mode);
    AddFindingFormatOption(command, options->format);
    AddMaxFindingsOption(command, options->check.maxFindings, " for each deck");
    command.footer("Examples:\n"
                   "  quor check reservoir.data --simulator Carrow\n"
                   "  quor check *.data --simulator Dunmere --mode Thermal --format json");
    return {&command, [options](Catalogue& catalogue) { return Check(catalogue, *options); }};
}

} // namespace Veld::Quor::Tools
