#pragma once

#include "quor/deck/Deck.h"

#include <nlohmann/json_fwd.hpp>

namespace Veld::Quor::Tools {

/// The tables of numbers of a deck outside its grid and its schedule: for each keyword its columns, with
/// their roles, and for each region the rows.
nlohmann::ordered_json ReportTables(const Core::Decks::Deck& deck, const Core::Decks::DeckLanguage& language);

} // namespace Veld::Quor::Tools
