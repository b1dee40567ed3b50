#include "tools/quor/commands/DeckReading.h"

#include "quor/deck/DeckSource.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/StampedFiles.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/settings/SettingOptions.h"
#include "tools/quor/terminal/ProgressBar.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

/// A path as a word of a command line, where single quotes are around the command.
std::string CommandWord(const std::string& path)
{
    std::string text = MakePrintable(path);
    const bool isPlain = std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c >= 0x80
            || std::string_view("%+,-./:=@_").find(static_cast<char>(c)) != std::string_view::npos;
    });
    if (isPlain)
        return text;
    std::string word = "\"";
    for (const char c : text)
        word.append(std::string_view("\"$`\\").find(c) == std::string_view::npos ? "" : "\\").push_back(c);
    return word + '"';
}

void AddStandardInputOption(CLI::App& command, Decks::ReadOptions& options)
{
    const auto input = std::make_shared<StandardInput>();
    options.SetSource(input);
    command
        .add_option_function<std::string>(
            "--stdin-filename", [input](const std::string& name) { input->SetName(name); },
            "Name of a deck that is read from standard input ('-'); its inclusions are relative to it")
        ->type_name("FILE");
    command
        .add_option_function<std::string>(
            "--deck-folder", [input](const std::string& folder) { input->SetDeckFolder(folder); },
            "Read the deck as if it was in this folder, so that its inclusions are found there")
        ->type_name("FOLDER");
}

} // namespace

void AddDeckArgument(CLI::App& command, std::string& path)
{
    command.add_option("DECK", path, "Main file of the deck; '-' is standard input")
        ->required()
        ->type_name("FILE");
}

void AddReadOptions(CLI::App& command, DeckReadOptions& options)
{
    AddSettingOptions(command, options.settings.given, {"simulator", "mode"});
    AddTextOptions(command, options);
}

void AddTextOptions(CLI::App& command, DeckReadOptions& options)
{
    AddStandardInputOption(command, options.read);
    AddSectionOption(
        command, [&options](SectionType::Enum section) { options.read.SetSection(section); },
        "Read a file that a deck includes as if it was the deck: as a part of this section");
    AddSettingOptions(command, options.settings.given,
        {"variables", "aliases", "max-repeated-values", "syntax", "syntax-folder"});
    AddSettingsFileOptions(command, options.settings);
    command.add_flag_callback(
        "--confined", [&options] { options.read.SetConfined(true); },
        "Don't read files outside the folder of the deck, such as a deck of a stranger may include");
}

void AddShowOutsideOption(CLI::App& command, Decks::ReadOptions& options)
{
    options.SetOutsideTextShown(false);
    command.add_flag_callback(
        "--show-outside", [&options] { options.SetOutsideTextShown(true); },
        "Quote the text of included files that are outside the folder of the deck too");
}

void PrintHiddenText(const Decks::Findings& findings, const Decks::Deck& deck)
{
    const auto isHidden = [&deck](const Decks::Finding& finding) {
        return deck.GetFiles().Get(finding.range.file).isOutside;
    };
    if (!deck.GetOptions().IsOutsideTextShown() && std::any_of(findings.begin(), findings.end(), isHidden))
        PrintAside(
            "quor: the text of files outside the folder of the deck is not shown; use --show-outside to "
            "show it\n");
}

Decks::ReadOptions OptionsFor(const std::string& path, const DeckReadOptions& options)
{
    Decks::ReadOptions read = options.read;
    const Settings settings = SettingsOf(NameOfDeck(path, read), options.settings);
    ApplyReading(settings, read);
    ApplyCodes(settings, read);
    return read;
}

std::vector<std::string> DocumentsFor(const std::string& path, const DeckReadOptions& options)
{
    return DocumentsOf(SettingsOf(NameOfDeck(path, options.read), options.settings));
}

Decks::Deck ReadDeckOrThrow(const std::string& path, Decks::ReadOptions options,
    const Decks::DeckLanguage& deckLanguage, bool withProgress)
{
    const std::string name = NameOfDeck(path, options);
    if (path != standardInputPath)
        options.SetSource(name == path
                ? std::make_shared<StampedFiles>()
                : std::shared_ptr<const Decks::DeckSource>(std::make_shared<MovedDeck>(name, path)));
    return ReadSourceOrThrow(name, std::move(options), deckLanguage, withProgress);
}

Decks::Deck ReadSourceOrThrow(const std::string& name, Decks::ReadOptions options,
    const Decks::DeckLanguage& deckLanguage, bool withProgress)
{
    ProgressBar bar;
    if (withProgress)
        options.SetProgress([&bar](std::size_t done, std::size_t known) { bar.Show(done, known); });
    return Decks::Deck::Read(name, deckLanguage, options);
}

std::optional<Decks::Deck> ReadDeck(
    const std::string& path, const Decks::ReadOptions& options, const Decks::DeckLanguage& deckLanguage)
{
    try {
        return ReadDeckOrThrow(path, options, deckLanguage);
    } catch (const Decks::SourceError& error) {
        PrintError(error.what());
        return std::nullopt;
    }
}

std::optional<Decks::Deck> ReadDeckOrReport(const std::string& path, const Decks::ReadOptions& options,
    const Decks::DeckLanguage& deckLanguage, const char* consequence)
{
    std::optional<Decks::Deck> deck = ReadDeck(path, options, deckLanguage);
    const std::size_t errors = deck ? deck->GetFindings().GetCount(Decks::Severity::Error) : 0;
    if (errors > 0)
        PrintAside(fmt::format("quor: {} has {}; run '{}' to list them; {}\n", MakePrintable(path),
            Plural(errors, "error"), CheckCommand(path, options), consequence));
    return deck;
}

std::string CheckCommand(const std::string& path, const Decks::ReadOptions& options)
{
    const Decks::Target& target = options.GetTarget();
    std::string command = "quor check " + CommandWord(path);
    if (options.GetSection() != SectionType::None)
        command += " --section " + SectionType::ToString(options.GetSection());
    if (target.simulator != SimulatorType::Any)
        command += " --simulator " + SimulatorType::ToString(target.simulator);
    if (target.mode != SimulatorModeType::Any)
        command += " --mode " + SimulatorModeType::ToString(target.mode);
    return command;
}

std::string LocationText(const Decks::Location& location)
{
    return fmt::format("{}:{}", MakePrintable(location.file), location.line);
}

nlohmann::ordered_json LocationJson(const Decks::Location& location)
{
    return {{"file", location.file}, {"line", location.line}};
}

} // namespace Veld::Quor::Tools
