#pragma once

#include "quor/deck/Deck.h"

#include <nlohmann/json_fwd.hpp>

namespace Veld::Quor::Tools {

/// The lift tables of a deck, the last of each keyword and number: the words of its head, axes with their
/// nodes, and for each combination of nodes of the axes behind the first one the values along the first.
nlohmann::ordered_json LiftTables(const Core::Decks::Deck& deck, const Core::Decks::DeckLanguage& language);

} // namespace Veld::Quor::Tools
