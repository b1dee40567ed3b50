#pragma once

#include "quor/deck/Deck.h"
#include "tools/quor/settings/SettingSources.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// What a command line says of reading decks.
struct DeckReadOptions {
    Core::Decks::ReadOptions read; ///< what is no setting
    SettingSources settings;
};

/// Adds the argument that names a deck. `path` must outlive the application.
void AddDeckArgument(CLI::App& command, std::string& path);
/// Adds the options with which a deck is read: simulator, mode, values of variables, path aliases, the
/// settings file, the name of one that is read from standard input, the section of one that is a part of a
/// deck, and the limit of repeats. `options` must
/// outlive the application.
void AddReadOptions(CLI::App& command, DeckReadOptions& options);
/// The same without simulator and mode.
void AddTextOptions(CLI::App& command, DeckReadOptions& options);

/// With what a deck of the command line is read, its settings included. Throws `SettingsError`.
Core::Decks::ReadOptions OptionsFor(const std::string& path, const DeckReadOptions& options);

/// The documents with which the language is loaded for it. Throws `SettingsError`.
std::vector<std::string> DocumentsFor(const std::string& path, const DeckReadOptions& options);

/// Adds the option that lets findings quote files outside the folder of the deck; without it they don't.
void AddShowOutsideOption(CLI::App& command, Core::Decks::ReadOptions& options);
/// Says so if one of the findings would quote such a file.
void PrintHiddenText(const Core::Decks::Findings& findings, const Core::Decks::Deck& deck);

/// Reads a deck, "-" from standard input, with a bar that tells how far that is. Empty, and reported, if it
/// can't be read.
std::optional<Core::Decks::Deck> ReadDeck(const std::string& path, const Core::Decks::ReadOptions& options,
    const Core::Decks::DeckLanguage& deckLanguage);

/// The same, but throws `SourceError` if it can't be read.
Core::Decks::Deck ReadDeckOrThrow(const std::string& path, Core::Decks::ReadOptions options,
    const Core::Decks::DeckLanguage& deckLanguage, bool withProgress = true);

/// Reads the deck of that name from the source of the options.
Core::Decks::Deck ReadSourceOrThrow(const std::string& name, Core::Decks::ReadOptions options,
    const Core::Decks::DeckLanguage& deckLanguage, bool withProgress);

/// As `ReadDeck`, for a command that does something else than to check the deck: reports in a line if the
/// deck has errors, and what this means for the command.
std::optional<Core::Decks::Deck> ReadDeckOrReport(const std::string& path,
    const Core::Decks::ReadOptions& options, const Core::Decks::DeckLanguage& deckLanguage,
    const char* consequence = "the result may be incomplete");

/// The command that lists the findings of a deck that was read with the options; texts show it in single
/// quotes.
std::string CheckCommand(const std::string& path, const Core::Decks::ReadOptions& options);

/// "file:line"
std::string LocationText(const Core::Decks::Location& location);
nlohmann::ordered_json LocationJson(const Core::Decks::Location& location);

} // namespace Veld::Quor::Tools
