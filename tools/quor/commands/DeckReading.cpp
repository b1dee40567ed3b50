#include "tools/quor/commands/DeckReading.h"

#include "quor/deck/DeckSource.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/commands/StandardInput.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/ProgressBar.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <memory>
#include <stdexcept>
#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

std::string CheckCommand(const std::string& path, const Decks::Target& target)
{
    std::string command = "quor check " + MakePrintable(path);
    if (target.simulator != SimulatorType::Any)
        command += " --simulator " + SimulatorType::ToString(target.simulator);
    if (target.mode != SimulatorModeType::Any)
        command += " --mode " + SimulatorModeType::ToString(target.mode);
    return command;
}

void AddStandardInputOption(CLI::App& command, Decks::ReadOptions& options)
{
    options.SetSource(std::make_shared<StandardInput>());
    const auto setName = [&options](const std::string& name) {
        options.SetSource(std::make_shared<StandardInput>(name));
    };
    command
        .add_option_function<std::string>("--stdin-filename", setName,
            "Name of a deck that is read from standard input ('-'); its inclusions are relative to it")
        ->type_name("FILE");
}

void AddVariablesOption(CLI::App& command, Decks::ReadOptions& options)
{
    const auto add = [&options](const std::vector<std::string>& words) {
        for (const std::string& word : words) {
            const std::size_t sign = word.find('=');
            try {
                if (sign == std::string::npos)
                    throw std::invalid_argument(word);
                options.SetVariable(word.substr(0, sign), word.substr(sign + 1));
            } catch (const std::invalid_argument&) {
                throw CLI::ValidationError("--set", fmt::format("'{}' is not in the form NAME=VALUE", word));
            }
        }
        return true;
    };
    command.add_option("--set", add, "Value of the variable $NAME; can be repeated")
        ->type_name("NAME=VALUE")
        ->expected(1, 1'000'000)
        ->allow_extra_args(false);
}

} // namespace

void AddDeckArgument(CLI::App& command, std::string& path)
{
    command.add_option("DECK", path, "Main file of the deck; '-' is standard input")
        ->required()
        ->type_name("FILE");
}

void AddReadOptions(CLI::App& command, Decks::ReadOptions& options)
{
    AddSimulatorOption(command, [&options](SimulatorType::Enum value) { options.SetSimulator(value); });
    AddModeOption(command, [&options](SimulatorModeType::Enum value) { options.SetMode(value); });
    AddTextOptions(command, options);
}

void AddTextOptions(CLI::App& command, Decks::ReadOptions& options)
{
    AddStandardInputOption(command, options);
    AddVariablesOption(command, options);
    AddCountOption(command, "--max-repeated-values",
        "Maximum number of values that repeat counts such as 1000*0.2 make in a keyword, beyond 100 for each "
        "byte "
        "of the deck",
        options.GetMaxRepeatedValues(),
        [&options](std::size_t count) { options.SetMaxRepeatedValues(count); });
}

std::optional<Decks::Deck> ReadDeck(
    const std::string& path, Decks::ReadOptions options, const Decks::DeckLanguage& deckLanguage)
{
    try {
        ProgressBar bar;
        options.SetProgress([&bar](std::size_t done, std::size_t known) { bar.Show(done, known); });
        const std::string name = NameOfDeck(path, options);
        if (path != standardInputPath)
            options.SetSource(nullptr);
        return Decks::Deck::Read(name, deckLanguage, options);
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
            Plural(errors, "error"), CheckCommand(path, options.GetTarget()), consequence));
    return deck;
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
