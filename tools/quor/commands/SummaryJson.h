#pragma once

#include "quor/deck/DeckSummary.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace Veld::Quor::Tools {

/// What a deck is, as `quor info --format json` prints it. `deck`: the path that was asked for.
nlohmann::ordered_json SummaryJson(const Core::Decks::DeckSummary& summary, const std::string& deck);

} // namespace Veld::Quor::Tools
