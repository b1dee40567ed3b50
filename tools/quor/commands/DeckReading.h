#pragma once

#include "quor/deck/Deck.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// Adds the argument that names a deck. `path` must outlive the application.
void AddDeckArgument(CLI::App& command, std::string& path);
/// Adds the options with which a deck is read: simulator, mode, values of variables, the name of one that is
/// read from standard input, and the limit of repeats. `options` must outlive the application.
void AddReadOptions(CLI::App& command, Core::Decks::ReadOptions& options);
/// The same without simulator and mode.
void AddTextOptions(CLI::App& command, Core::Decks::ReadOptions& options);

/// Reads a deck, "-" from standard input, with a bar that tells how far that is. Empty, and reported, if it
/// can't be read.
std::optional<Core::Decks::Deck> ReadDeck(
    const std::string& path, Core::Decks::ReadOptions options, const Core::Decks::DeckLanguage& deckLanguage);

/// The same for a command that does something else than to check the deck: reports in a line if the deck has
/// errors, and what this means for the command.
std::optional<Core::Decks::Deck> ReadDeckOrReport(const std::string& path,
    const Core::Decks::ReadOptions& options, const Core::Decks::DeckLanguage& deckLanguage,
    const char* consequence = "the result may be incomplete");

/// "file:line"
std::string LocationText(const Core::Decks::Location& location);
nlohmann::ordered_json LocationJson(const Core::Decks::Location& location);

} // namespace Veld::Quor::Tools
