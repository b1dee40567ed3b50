#include "tools/quor/DeckReading.h"

#include "quor/deck/SourceText.h"
#include "quor/variables/VariablesString.h"
#include "tools/quor/CommonOptions.h"
#include "tools/quor/FindingText.h"
#include "tools/quor/ProgressBar.h"
#include "tools/quor/Terminal.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

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

bool IsVariableName(const std::string& name)
{
    const Core::Keywords::VariablesString text('$' + name);
    return text.GetVariables() == std::vector<std::string>{'$' + name};
}

} // namespace

void AddReadOptions(CLI::App& command, Decks::ReadOptions& options)
{
    AddSimulatorOption(command, options.target.simulator);
    AddModeOption(command, options.target.mode);
    AddVariablesOption(command, options.variables);
}

void AddVariablesOption(CLI::App& command, Decks::VariableTexts& variables)
{
    const auto add = [&variables](const std::vector<std::string>& words) {
        for (const std::string& word : words) {
            const std::size_t sign = word.find('=');
            const std::size_t first = word.starts_with('$') ? 1 : 0;
            const std::string name = word.substr(first, sign - first);
            if (sign == std::string::npos || !IsVariableName(name))
                throw CLI::ValidationError("--set", fmt::format("'{}' is not in the form NAME=VALUE", word));
            variables['$' + name] = word.substr(sign + 1);
        }
        return true;
    };
    command.add_option("--set", add, "Value of the variable $NAME; can be repeated")
        ->type_name("NAME=VALUE")
        ->expected(1, 1'000'000)
        ->allow_extra_args(false);
}

std::unique_ptr<Decks::Deck> ReadDeckOrReport(const std::string& path, Decks::ReadOptions options,
    const Decks::DeckLanguage& deckLanguage, const char* consequence)
{
    std::unique_ptr<Decks::Deck> deck;
    try {
        ProgressBar bar;
        options.progress = [&bar](std::size_t done, std::size_t known) { bar.Show(done, known); };
        deck = Decks::ReadDeck(path, options, deckLanguage);
    } catch (const Decks::SourceError& error) {
        PrintError(fmt::format("can't read '{}': {}", path, error.what()));
        return nullptr;
    }
    if (const std::size_t errors = deck->findings.GetCount(Decks::Severity::Error); errors > 0)
        PrintAside(fmt::format("quor: {} has {}; run '{}' to list them; {}\n", MakePrintable(path),
            Plural(errors, "error"), CheckCommand(path, options.target), consequence));
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
