#include "tools/quor/commands/DeckReading.h"

#include "quor/deck/DeckSource.h"
#include "tools/quor/commands/CommonOptions.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/ProgressBar.h"
#include "tools/quor/terminal/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

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

} // namespace

void AddReadOptions(CLI::App& command, Decks::ReadOptions& options)
{
    AddSimulatorOption(command, [&options](SimulatorType::Enum value) { options.SetSimulator(value); });
    AddModeOption(command, [&options](SimulatorModeType::Enum value) { options.SetMode(value); });
    AddVariablesOption(command, options);
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

std::optional<Decks::Deck> ReadDeckOrReport(const std::string& path, Decks::ReadOptions options,
    const Decks::DeckLanguage& deckLanguage, const char* consequence)
{
    std::optional<Decks::Deck> deck;
    try {
        ProgressBar bar;
        options.SetProgress([&bar](std::size_t done, std::size_t known) { bar.Show(done, known); });
        deck = Decks::Deck::Read(path, deckLanguage, options);
    } catch (const Decks::SourceError& error) {
        PrintError(error.what());
        return std::nullopt;
    }
    if (const std::size_t errors = deck->GetFindings().GetCount(Decks::Severity::Error); errors > 0)
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
