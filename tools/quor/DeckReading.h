#pragma once

#include "tools/deck/Deck.h"
#include "tools/deck/KeywordValidity.h"
#include "tools/deck/Vocabulary.h"

#include <nlohmann/json_fwd.hpp>

#include <memory>
#include <string>

namespace Veld::Quor::Tools {

/// Reads a deck for a command that asks what it holds, and tells in a line if the deck has errors. Null, and
/// told, if it can't be read.
std::unique_ptr<Deck::Deck> ReadForAnswers(
    const std::string& path, const Deck::Target& target, Deck::Vocabulary& vocabulary);

/// "file:line"
std::string PlaceText(const Deck::Place& place);
nlohmann::ordered_json PlaceJson(const Deck::Place& place);

} // namespace Veld::Quor::Tools
