#include "tools/deck/DeckCheck.h"
#include "tools/deck/SourceText.h"
#include "tools/deck/Vocabulary.h"
#include "tools/quor/Catalogue.h"
#include "tools/quor/Command.h"
#include "tools/quor/Conditions.h"
#include "tools/quor/Json.h"
#include "tools/quor/Program.h"
#include "tools/quor/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;
using Deck::DeckReport;
using Deck::Finding;
using Deck::Severity;

namespace {

struct CheckCommandOptions {
    std::vector<std::string> decks;
    Deck::CheckOptions check;
    bool isJson = false;
};

struct Result {
    std::string deck;
    DeckReport report;
};

/// Terminal sequences around coloured text; empty without colours.
class Colours {
public:
    explicit Colours(bool wanted)
        : wanted_(wanted)
    {
    }

    std::string Paint(const char* code, const std::string& text) const
    {
        return wanted_ ? fmt::format("\x1b[{}m{}\x1b[0m", code, text) : text;
    }
    static const char* CodeOf(Severity severity)
    {
        switch (severity) {
        case Severity::Error:
            return "1;31";
        case Severity::Warning:
            return "1;35";
        case Severity::Note:
            return "1;36";
        }
        return "0";
    }

private:
    bool wanted_;
};

/// The source line and, below it, the mark. Empty if the finding has no line to show.
std::string ExcerptText(const Finding& finding, const Colours& colours)
{
    if (finding.excerpt.empty())
        return "";
    const std::string excerpt = MakePrintable(finding.excerpt);
    const std::size_t offset = finding.place.column - finding.excerptColumn;
    std::string margin;
    for (std::size_t i = 0; i < offset; ++i)
        margin += excerpt[i] == '\t' ? '\t' : ' ';
    const std::size_t length = std::clamp<std::size_t>(finding.length, 1, excerpt.size() - offset);
    const std::string mark = '^' + std::string(length - 1, '~');
    return fmt::format("    {}\n    {}{}\n", excerpt, margin, colours.Paint("1;32", mark));
}

std::string FindingText(const Finding& finding, const Colours& colours)
{
    const std::string severity = colours.Paint(Colours::CodeOf(finding.severity), ToString(finding.severity));
    std::string text = fmt::format("{}:{}:{}: {}: {} [{}]\n", MakePrintable(finding.place.file),
        finding.place.line, finding.place.column, severity, MakePrintable(finding.message), finding.code);
    text += ExcerptText(finding, colours);
    if (!finding.hint.empty())
        text += fmt::format("  hint: {}\n", MakePrintable(finding.hint));
    for (const Deck::Place& place : finding.includedFrom)
        text += fmt::format("  included from {}:{}\n", MakePrintable(place.file), place.line);
    return text;
}

std::string Plural(std::size_t count, const char* word)
{
    return fmt::format("{} {}{}", count, word, count == 1 ? "" : "s");
}

std::string CountsText(const Deck::Findings& findings)
{
    std::vector<std::string> counts;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (findings.GetCount(severity) > 0)
            counts.push_back(Plural(findings.GetCount(severity), ToString(severity)));
    }
    if (!findings.HasFault())
        counts.insert(counts.begin(), "no findings");
    return fmt::format("{}", fmt::join(counts, ", "));
}

void PrintText(const Result& result)
{
    const Colours colours(TakesColour());
    const DeckReport& report = result.report;
    for (const Finding& finding : report.findings.GetKept())
        Print(FindingText(finding, colours));
    if (const std::size_t omitted = report.findings.GetOmittedCount(); omitted > 0)
        Print(fmt::format("{} more; --max-findings sets how many are told\n", Plural(omitted, "finding")));
    Print(fmt::format("{}: {} in {}, {}: {}\n",
        MakePrintable(std::filesystem::path(result.deck).filename().string()),
        Plural(report.keywords, "keyword"), Plural(report.sections, "section"), Plural(report.files, "file"),
        CountsText(report.findings)));
}

nlohmann::ordered_json FindingJson(const std::string& deck, const Finding& finding)
{
    auto includedFrom = nlohmann::ordered_json::array();
    for (const Deck::Place& place : finding.includedFrom)
        includedFrom.push_back({{"file", place.file}, {"line", place.line}, {"column", place.column}});
    return {{"deck", deck}, {"code", finding.code}, {"severity", ToString(finding.severity)},
        {"file", finding.place.file}, {"line", finding.place.line}, {"column", finding.place.column},
        {"length", finding.length}, {"message", finding.message}, {"hint", finding.hint},
        {"includedFrom", includedFrom}};
}

void PrintJson(const std::vector<Result>& results)
{
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;
    std::size_t omitted = 0;
    auto decks = nlohmann::ordered_json::array();
    auto findings = nlohmann::ordered_json::array();
    for (const auto& [deck, report] : results) {
        errors += report.findings.GetCount(Severity::Error);
        warnings += report.findings.GetCount(Severity::Warning);
        notes += report.findings.GetCount(Severity::Note);
        omitted += report.findings.GetOmittedCount();
        decks.push_back({{"deck", deck}, {"keywords", report.keywords}, {"sections", report.sections},
            {"files", report.files}, {"clean", !report.findings.HasFault()}});
        for (const Finding& finding : report.findings.GetKept())
            findings.push_back(FindingJson(deck, finding));
    }
    Print(ToText({{"dataRead", false}, {"decks", decks},
        {"counts", {{"errors", errors}, {"warnings", warnings}, {"notes", notes}, {"omitted", omitted}}},
        {"findings", findings}}));
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

int Check(Catalogue& catalogue, const CheckCommandOptions& options)
{
    if (!options.isJson)
        PrintHeader(catalogue);
    Deck::Vocabulary vocabulary(catalogue.GetTable());
    std::vector<Result> results;
    bool isClean = true;
    for (const std::string& deck : options.decks) {
        auto result = CheckOne(deck, options.check, vocabulary);
        if (!result)
            continue;
        isClean = isClean && !result->report.findings.HasFault();
        if (!options.isJson)
            PrintText(*result);
        results.push_back(std::move(*result));
    }
    if (!results.empty()) {
        if (options.isJson)
            PrintJson(results);
        else
            Print("The data behind the keywords are not read yet, so nothing is said of them.\n");
    }
    if (results.size() < options.decks.size())
        return Failure;
    return isClean ? Success : HasFindings;
}

} // namespace

Command MakeCheckCommand(CLI::App& application)
{
    const auto options = std::make_shared<CheckCommandOptions>();
    CLI::App& command = *application.add_subcommand("check",
        "Checks the structure of decks: keywords, sections, included files, skipped blocks. The data behind\n"
        "keywords are not read yet. Without a simulator or mode, a keyword is fine that is valid for any.");
    command.add_option("DECK", options->decks, "Files, each a deck of its own")->required();
    AddSimulatorOption(command, options->check.target.simulator);
    AddModeOption(command, options->check.target.mode);
    AddFormatOption(command, options->isJson);
    command
        .add_option("--max-findings", options->check.maxFindings,
            "How many findings are told for each deck; the others are counted")
        ->check(CLI::NonNegativeNumber)
        ->type_name("N")
        ->capture_default_str()
        ->take_last();
    command.footer("Examples:\n"
                   "  quor check reservoir.data --simulator Carrow\n"
                   "  quor check *.data --simulator Dunmere --mode Thermal --format json");
    return {&command, [options](Catalogue& catalogue) { return Check(catalogue, *options); }};
}

} // namespace Veld::Quor::Tools
