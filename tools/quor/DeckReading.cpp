#include "tools/quor/DeckReading.h"

#include "tools/deck/SourceText.h"
#include "tools/quor/FindingText.h"
#include "tools/quor/Terminal.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

std::string CheckCommand(const std::string& path, const Deck::Target& target)
{
    std::string command = "quor check " + MakePrintable(path);
    if (target.simulator != SimulatorType::Any)
        command += " --simulator " + SimulatorType::ToString(target.simulator);
    if (target.mode != SimulatorModeType::Any)
        command += " --mode " + SimulatorModeType::ToString(target.mode);
    return command;
}

} // namespace

std::unique_ptr<Deck::Deck> ReadForAnswers(
    const std::string& path, const Deck::Target& target, Deck::Vocabulary& vocabulary)
{
    Deck::ReadOptions options;
    options.target = target;
    std::unique_ptr<Deck::Deck> deck;
    try {
        deck = Deck::ReadDeck(path, options, vocabulary);
    } catch (const Deck::SourceError& error) {
        PrintError(fmt::format("can't read '{}': {}", path, error.what()));
        return nullptr;
    }
    if (const std::size_t errors = deck->findings.GetCount(Deck::Severity::Error); errors > 0)
        PrintAside(fmt::format("quor: {} has {}, told by '{}'; the answer may lack what they hide\n",
            MakePrintable(path), Plural(errors, "error"), CheckCommand(path, target)));
    return deck;
}

std::string PlaceText(const Deck::Place& place)
{
    return fmt::format("{}:{}", MakePrintable(place.file), place.line);
}

nlohmann::ordered_json PlaceJson(const Deck::Place& place)
{
    return {{"file", place.file}, {"line", place.line}};
}

} // namespace Veld::Quor::Tools
