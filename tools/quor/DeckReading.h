#pragma once

#include "tools/deck/Deck.h"
#include "tools/deck/KeywordValidity.h"
#include "tools/deck/Vocabulary.h"

#include <nlohmann/json_fwd.hpp>

#include <memory>
#include <string>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// Adds the options that tell for what a deck is read: simulator, mode, and values of variables. `options`
/// must outlive the application.
void AddReadOptions(CLI::App& command, Deck::ReadOptions& options);
void AddVariablesOption(CLI::App& command, Deck::VariableTexts& variables);

/// Reads a deck for a command that does something else than to check it, with a bar that tells how far that
/// is. Tells in a line if the deck has errors, and what this means for the command. Null, and told, if it
/// can't be read.
std::unique_ptr<Deck::Deck> ReadForAnswers(const std::string& path, Deck::ReadOptions options,
    Deck::Vocabulary& vocabulary, const char* consequence = "the answer may lack what they hide");

/// "file:line"
std::string PlaceText(const Deck::Place& place);
nlohmann::ordered_json PlaceJson(const Deck::Place& place);

} // namespace Veld::Quor::Tools
