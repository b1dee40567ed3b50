#include "tools/quor/DeckReading.h"

#include "tools/deck/SourceText.h"
#include "tools/quor/FindingText.h"
#include "tools/quor/ProgressBar.h"
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
    const std::string& path, Deck::ReadOptions options, Deck::Vocabulary& vocabulary, const char* consequence)
{
    std::unique_ptr<Deck::Deck> deck;
    try {
        ProgressBar bar;
        options.progress = [&bar](std::size_t done, std::size_t known) { bar.Show(done, known); };
        deck = Deck::ReadDeck(path, options, vocabulary);
    } catch (const Deck::SourceError& error) {
        PrintError(fmt::format("can't read '{}': {}", path, error.what()));
        return nullptr;
    }
    if (const std::size_t errors = deck->findings.GetCount(Deck::Severity::Error); errors > 0)
        PrintAside(fmt::format("quor: {} has {}, told by '{}'; {}\n", MakePrintable(path),
            Plural(errors, "error"), CheckCommand(path, options.target), consequence));
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
