#include "tools/quor/check/CheckReport.h"
#include "tools/quor/check/CheckRun.h"
#include "tools/quor/check/CheckStatistics.h"
#include "tools/quor/check/ProjectDecks.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/LoadedLanguage.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/commands/WriteFiles.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/settings/SettingOptions.h"
#include "tools/quor/terminal/FileOutput.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <new>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace {

/// The deck whose settings the run begins with.
std::string FirstOf(const CheckOptions& options)
{
    return !options.root.empty() ? options.root : options.decks.empty() ? "" : options.decks.front();
}

void PrintHeader(LoadedLanguage& language, const CheckOptions& options)
{
    PrintAside(fmt::format("language: {} ({}), loaded in {} ms\n",
        Plural(language.GetSyntaxes(true).size(), "keyword"), LoadedLanguage::GetOrigin(),
        language.GetLoadTime().count()));
    const std::string file = SettingsFileOf(FirstOf(options), options.read.settings);
    if (!file.empty())
        PrintAside(fmt::format("settings: {}\n", MakePrintable(file)));
}

/// Whether the path may become a baseline: there is no file, an empty one, or a baseline, be it broken.
bool MayBeBaseline(const std::string& path)
{
    const std::string head = HeadOf(path);
    const auto has = [&head](const char* text) { return head.find(text) != std::string::npos; };
    return head.empty() || (head.front() == '{' && has("\"version\"") && has("\"findings\""));
}

/// False, and reported, if it can't be written.
bool WriteBaseline(const std::string& path, const Baseline& baseline, const std::vector<std::string>& decks)
{
    std::error_code error;
    for (const std::string& deck : decks) {
        if (!std::filesystem::equivalent(path, deck, error))
            continue;
        PrintError(fmt::format("can't write the baseline '{}': it is a deck", path));
        return false;
    }
    if (!MayBeBaseline(path)) {
        PrintError(fmt::format("can't write the baseline '{}': it is a file, and no baseline", path));
        return false;
    }
    try {
        WriteFile(path, baseline.ToText());
        PrintAside(fmt::format(
            "baseline: {} written to '{}'\n", Plural(baseline.GetCount(), "finding"), MakePrintable(path)));
        return true;
    } catch (const OutputError& failure) {
        PrintError(fmt::format("can't write the baseline '{}': {}", path, failure.what()));
        return false;
    }
}

int CheckAll(const CheckOptions& options, CheckReport& report)
{
    LoadedLanguage language(DocumentsFor(FirstOf(options), options.read));
    if (options.format == FindingFormat::Text && !options.isQuiet)
        PrintHeader(language, options);
    Baseline baseline;
    const std::vector<std::string> decks = DecksOf(options);
    CheckDecks(language, options, decks, [&](DeckResult result) {
        baseline.Add(result.known);
        report.Add(std::move(result));
    });
    report.End();
    if (report.GetStatus() != Failure && !options.newBaseline.empty()
        && !WriteBaseline(options.newBaseline, baseline, decks))
        return Failure;
    return report.GetStatus();
}

int CountAll(const CheckOptions& options)
{
    LoadedLanguage language(DocumentsFor(FirstOf(options), options.read));
    const bool isText = options.format == FindingFormat::Text;
    if (isText && !options.isQuiet)
        PrintHeader(language, options);
    CheckStatistics statistics;
    ExitStatus status = Success;
    CheckDecks(language, options, DecksOf(options), [&](const DeckResult& result) {
        status = Worse(status, result.status);
        if (result.failure.empty())
            statistics.Add(result.tally);
        else
            PrintError(result.failure);
    });
    Print(isText ? statistics.ToText() : ToText(statistics.ToJson()));
    return status;
}

/// What is wrong with options that don't go together; empty: nothing.
std::string ObjectionTo(const CheckOptions& options)
{
    const auto& decks = options.decks;
    const bool hasInput = std::find(decks.begin(), decks.end(), standardInputPath) != decks.end();
    if (options.isFixing && hasInput)
        return "the deck from standard input can't be fixed; leave out --fix";
    if (!options.root.empty() && decks.empty())
        return "no file of the deck to check; expected files with --root";
    if (!options.root.empty() && hasInput
        && NameOfDeck(standardInputPath, options.read.read) == standardInputName)
        return "--root needs --stdin-filename: which file of the deck standard input is";
    return {};
}

int Check(const CheckOptions& options)
{
    if (const std::string objection = ObjectionTo(options); !objection.empty()) {
        PrintError(objection);
        return Failure;
    }
    if (options.hasStatistics) {
        if (options.format == FindingFormat::Text || options.format == FindingFormat::Json)
            return CountAll(options);
        PrintError("--statistics needs --format text or json");
        return Failure;
    }
    CheckReport report(options.format, options.isQuiet);
    try {
        return CheckAll(options, report);
    } catch (const std::bad_alloc&) {
        report.AddFailure("out of memory");
    } catch (const std::exception& error) { // of the language, the settings, the rules or the baseline
        report.AddFailure(error.what());
    }
    if (options.format != FindingFormat::Text)
        report.End();
    return Failure;
}

void AddReportOptions(CLI::App& command, CheckOptions& options)
{
    AddFindingFormatOption(command, options.format,
        {FindingFormat::Text, FindingFormat::Json, FindingFormat::Jsonl, FindingFormat::Sarif,
            FindingFormat::JUnit, FindingFormat::Gcc, FindingFormat::GitHub});
    command.add_flag(
        "--quiet", options.isQuiet, "Print findings and errors alone, without a line for each deck");
    command.add_flag("--all", options.isAll, "Report each finding, also where many in a file are alike");
    command
        .add_option("--write-baseline", options.newBaseline,
            "Write all findings to this file, for use with --baseline")
        ->type_name("FILE")
        ->take_last()
        ->excludes("--baseline");
    command
        .add_flag("--fix", options.isFixing,
            "Fix in the files what is certain, such as a missing slash, and report the rest")
        ->excludes("--write-baseline")
        ->excludes("--deck-folder");
    command
        .add_flag("--statistics", options.hasStatistics,
            "Count the findings of all decks by code and keyword, each with its first location")
        ->excludes("--write-baseline");
}

std::size_t CoreCount()
{
    return std::max(1U, std::thread::hardware_concurrency());
}

void AddRunOptions(CLI::App& command, CheckOptions& options)
{
    options.jobs = CoreCount();
    const auto setJobs = [&options](std::size_t jobs) { options.jobs = jobs == 0 ? CoreCount() : jobs; };
    AddCountOption(
        command, "--jobs", "How many decks are checked at once; 0, as without it: one a core", 0, setJobs);
    command
        .add_option("--resume", options.resumeFile,
            "Keep results in this file until all decks are checked; a run that was ended continues there")
        ->type_name("FILE")
        ->take_last();
}

constexpr const char* checkDetails =
    "DECK is the main file of a deck, a folder, which stands for the .data files in it and below, or a\n"
    "pattern in quotes, such as 'cases/**/*.data'. Without DECK the decks of the project are checked, which\n"
    "'decks' in quor.toml names; 'quor settings' prints all settings.\n"
    "A comment in a deck hides findings: '-- quor: off CODE, CODE' hides those on its line, or on the\n"
    "next line if the comment is alone on its line; '-- quor: begin-off CODE' hides all up to\n"
    "'-- quor: end-off CODE'. Without a code it hides all findings; 'quor explain' lists the codes.\n"
    "Invalid comments are reported, but not in a file above 1 MiB in which nothing\n"
    "else is found.\n"
    "Exit status: 0 no errors and no warnings, 1 errors, 2 invalid usage, or something can't be read, 3\n"
    "warnings and no errors. With --fail-on error it is 0 for warnings, with --fail-on never also for "
    "errors.\n\n"
    "Examples:\n"
    "  quor check reservoir.data --simulator Carrow\n"
    "  quor check *.data --simulator Dunmere --mode Thermal --format json\n"
    "  quor check reservoir.data --write-baseline known.json\n"
    "  quor check reservoir.data --baseline known.json\n"
    "  quor check reservoir.data --ignore unclosed-list,fluid-trend --fail-on error\n"
    "  quor check decks --statistics\n"
    "  quor check include/wells.inc --root reservoir.data\n"
    "  quor check include/wells.inc --section SCHEDULE";

} // namespace

Command MakeCheckCommand(CLI::App& application)
{
    const auto options = std::make_shared<CheckOptions>();
    CLI::App& command = *application.add_subcommand("check",
        "Checks decks and reports errors in keywords, sections, included files, skipped blocks and keyword\n"
        "data. Without --simulator and --mode, a keyword is accepted if any simulator and mode accepts it.");
    command.add_option("DECK", options->decks, "Decks to check; without any, those of the project")
        ->type_name("FILE");
    command
        .add_option("--root", options->root,
            "The deck that includes the files to check: it is read, and the findings of these files are "
            "reported alone")
        ->type_name("FILE")
        ->take_last();
    AddReadOptions(command, options->read);
    AddShowOutsideOption(command, options->read.read);
    AddSettingOptions(command, options->read.settings.given,
        {"rules", "check.select", "check.ignore", "check.raise", "check.strict", "check.fail-on",
            "check.max-findings", "check.baseline"});
    AddReportOptions(command, *options);
    AddRunOptions(command, *options);
    command.get_option("--root")->excludes(
        "--section", "--deck-folder", "--write-baseline", "--fix", "--resume");
    command.footer(checkDetails);
    Command made{&command, {}};
    made.runAlone = [options] { return Check(*options); };
    return made;
}

} // namespace Veld::Quor::Tools
