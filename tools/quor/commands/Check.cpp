#include "quor/deck/Deck.h"
#include "quor/deck/FindingCodes.h"
#include "tools/quor/commands/CheckStatistics.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/findings/Baseline.h"
#include "tools/quor/findings/FindingFormat.h"
#include "tools/quor/findings/FindingJson.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

/// How many findings are looked at to find those that are alike.
constexpr std::size_t mostFolded = 100'000;

struct CheckCommandOptions {
    std::vector<std::string> decks;
    std::vector<std::string> rules; // files
    Decks::ReadOptions read;
    std::size_t maxFindings = 200;
    bool isStrict = false;
    bool isAll = false; // each finding, not one for all that are alike
    bool hasStatistics = false; // counts in place of findings
    FindingFormat format = FindingFormat::Text;
    std::string baseline; // empty: none
    std::string newBaseline; // likewise
};

/// What is kept of a deck.
struct Result {
    std::string deck;
    Decks::Findings findings;
    std::vector<Fix> fixes; // of each finding
    std::size_t keywords;
    std::size_t sections;
    std::size_t files;
};

void PrintText(const Result& result)
{
    Print(FindingsText(result.findings));
    Print(fmt::format("{}: {} in {}, {}: {}\n",
        MakePrintable(std::filesystem::path(result.deck).filename().string()),
        Plural(result.keywords, "keyword"), Plural(result.sections, "section"), Plural(result.files, "file"),
        CountsText(result.findings)));
}

FindingSets FindingsOf(const std::vector<Result>& results)
{
    FindingSets sets;
    for (const Result& result : results)
        sets.emplace_back(result.findings, &result.fixes);
    return sets;
}

void PrintJson(const std::vector<Result>& results)
{
    auto decks = nlohmann::ordered_json::array();
    auto findings = nlohmann::ordered_json::array();
    for (const Result& result : results) {
        decks.push_back({{"deck", result.deck}, {"keywords", result.keywords}, {"sections", result.sections},
            {"files", result.files}, {"clean", result.findings.IsClean()}});
        for (std::size_t i = 0; i < result.fixes.size(); ++i) {
            nlohmann::ordered_json json = {{"deck", result.deck}};
            json.update(FindingJson(result.findings.GetKept()[i], result.fixes[i]));
            findings.push_back(std::move(json));
        }
    }
    Print(ToText({{"decks", decks}, {"counts", CountsJson(FindingsOf(results))}, {"findings", findings}}));
}

void PrintHeader(LoadedLanguage& language)
{
    PrintAside(fmt::format("language: {} ({}), loaded in {} ms\n",
        Plural(language.GetSyntaxes(true).size(), "keyword"), LoadedLanguage::GetOrigin(),
        language.GetLoadTime().count()));
}

Result ResultOf(const std::string& deck, const Decks::Deck& read, const CheckCommandOptions& options)
{
    Decks::Findings findings =
        options.isAll ? read.GetFindings() : read.GetFindings().Fold(options.maxFindings);
    std::vector<Fix> fixes = FixesOf(findings, read.GetFiles());
    return {deck, std::move(findings), std::move(fixes), read.GetSize(), read.GetSectionCount(),
        read.GetFileCount()};
}

/// Prints the end of the report on all decks.
void PrintEnd(const std::vector<Result>& results, FindingFormat format)
{
    if (format == FindingFormat::Json)
        PrintJson(results);
    else if (format != FindingFormat::Text) // text was printed deck by deck
        Print(FindingsText(format, FindingsOf(results), Decks::Codes()));
}

/// An empty one if none is asked for; no value, and reported, if it can't be read.
std::optional<Baseline> ReadBaseline(const std::string& path)
{
    try {
        return path.empty() ? Baseline() : Baseline::Read(path);
    } catch (const std::runtime_error& error) {
        PrintError(fmt::format("can't read the baseline '{}': {}", path, error.what()));
        return std::nullopt;
    }
}

/// False, and reported, if it can't be written.
bool WriteBaseline(const std::string& path, const Baseline& baseline)
{
    try {
        WriteFile(path, baseline.ToText());
        PrintAside(fmt::format(
            "baseline: {} written to '{}'\n", Plural(baseline.GetCount(), "finding"), MakePrintable(path)));
        return true;
    } catch (const OutputError& error) {
        PrintError(fmt::format("can't write the baseline '{}': {}", path, error.what()));
        return false;
    }
}

/// Of the decks that can be read. What they have is added to `baseline` if a new one is to be written.
std::vector<Result> CheckAll(LoadedLanguage& language, const CheckCommandOptions& options, Baseline& baseline)
{
    const Decks::DeckLanguage deckLanguage(language.GetTable(), options.rules);
    std::vector<Result> results;
    for (const std::string& path : options.decks) {
        const std::string deck = NameOfDeck(path, options.read);
        Baseline::Counts counts;
        Decks::ReadOptions read = options.read;
        read.SetMaxFindings(options.isAll ? options.maxFindings : std::max(options.maxFindings, mostFolded));
        read.SetStrict(options.isStrict);
        if (!options.newBaseline.empty())
            read.SetKnownFinding(Baseline::MakeRecorder(deck, counts));
        else if (!options.baseline.empty())
            read.SetKnownFinding(baseline.MakeFilter(deck));
        const auto readDeck = ReadDeck(path, std::move(read), deckLanguage);
        if (!readDeck)
            continue;
        baseline.Add(counts);
        results.push_back(ResultOf(deck, *readDeck, options));
        if (options.format == FindingFormat::Text)
            PrintText(results.back());
    }
    return results;
}

int CountAll(LoadedLanguage& language, const CheckCommandOptions& options)
{
    if (options.format != FindingFormat::Text && options.format != FindingFormat::Json) {
        PrintError("--statistics needs --format text or json");
        return Failure;
    }
    if (options.format == FindingFormat::Text)
        PrintHeader(language);
    const Decks::DeckLanguage deckLanguage(language.GetTable(), options.rules);
    CheckStatistics statistics;
    bool isComplete = true;
    for (const std::string& deck : options.decks) {
        const auto read = ReadDeck(deck,
            Decks::ReadOptions(options.read).SetMaxFindings(mostFolded).SetStrict(options.isStrict),
            deckLanguage);
        isComplete = isComplete && read;
        if (read)
            statistics.Add(*read);
    }
    Print(options.format == FindingFormat::Json ? ToText(statistics.ToJson()) : statistics.ToText());
    return !isComplete ? Failure : statistics.IsClean() ? Success : HasFindings;
}

int Check(LoadedLanguage& language, const CheckCommandOptions& options)
{
    if (options.hasStatistics)
        return CountAll(language, options);
    std::optional<Baseline> baseline = ReadBaseline(options.baseline);
    if (!baseline)
        return Failure;
    if (options.format == FindingFormat::Text)
        PrintHeader(language);
    const std::vector<Result> results = CheckAll(language, options, *baseline);
    if (!results.empty())
        PrintEnd(results, options.format);
    if (results.size() < options.decks.size())
        return Failure;
    if (!options.newBaseline.empty() && !WriteBaseline(options.newBaseline, *baseline))
        return Failure;
    const bool isClean = std::all_of(
        results.begin(), results.end(), [](const Result& result) { return result.findings.IsClean(); });
    return isClean ? Success : HasFindings;
}

void AddSummaryOptions(CLI::App& command, CheckCommandOptions& options)
{
    CLI::Option* const baseline =
        command.add_option("--baseline", options.baseline, "Hide the findings that are listed in this file")
            ->type_name("FILE")
            ->take_last();
    command
        .add_option("--write-baseline", options.newBaseline,
            "Write all findings to this file, for use with --baseline")
        ->type_name("FILE")
        ->take_last()
        ->excludes(baseline);
    command
        .add_flag("--statistics", options.hasStatistics,
            "Count the findings of all decks by code and keyword, each with its first location")
        ->excludes("--baseline")
        ->excludes("--write-baseline");
}

} // namespace

Command MakeCheckCommand(CLI::App& application)
{
    const auto options = std::make_shared<CheckCommandOptions>();
    CLI::App& command = *application.add_subcommand("check",
        "Checks decks and reports errors in keywords, sections, included files, skipped blocks and keyword\n"
        "data. Without --simulator and --mode, a keyword is accepted if any simulator and mode accepts it.");
    command.add_option("DECK", options->decks, "Main files of the decks to check")
        ->required()
        ->type_name("FILE");
    AddReadOptions(command, options->read);
    AddFindingFormatOption(command, options->format);
    AddMaxFindingsOption(command, options->maxFindings, " for each deck");
    command
        .add_option("--rules", options->rules,
            "Check the rules of this file too; docs/writing-rules.md explains them")
        ->type_name("FILE")
        ->allow_extra_args(false);
    command.add_flag(
        "--strict", options->isStrict, "Also report what simulators accept but a tidy deck doesn't have");
    command.add_flag("--all", options->isAll, "Report each finding, also where many in a file are alike");
    AddSummaryOptions(command, *options);
    command.footer(
        "A comment in a deck hides findings: '-- quor: off CODE, CODE' hides those on its line, or on the\n"
        "next line if the comment is alone on its line; '-- quor: begin-off CODE' hides all up to\n"
        "'-- quor: end-off CODE'. Without a code it hides all findings; 'quor explain' lists the codes.\n"
        "Invalid comments are reported, but not in a file above 1 MiB in which nothing\n"
        "else is found.\n"
        "Exit status: 0 no errors and no warnings, 1 errors or warnings, 2 a file can't be read.\n\n"
        "Examples:\n"
        "  quor check reservoir.data --simulator Carrow\n"
        "  quor check *.data --simulator Dunmere --mode Thermal --format json\n"
        "  quor check reservoir.data --write-baseline known.json\n"
        "  quor check reservoir.data --baseline known.json\n"
        "  quor check decks/*/*.data --statistics");
    return {&command, [options](LoadedLanguage& language) { return Check(language, *options); }};
}

} // namespace Veld::Quor::Tools
