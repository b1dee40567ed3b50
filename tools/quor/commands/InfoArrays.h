#pragma once

#include "quor/deck/DeckSummary.h"
#include "tools/quor/terminal/TextLayout.h"

#include <nlohmann/json_fwd.hpp>

#include <vector>

namespace Veld::Quor::Tools {

/// What the keywords that work on arrays make of them: rows for people, below `ArrayHead`.
std::vector<Columns::Row> ArrayRows(const Core::Decks::DeckSummary& summary);
Columns::Row ArrayHead();
nlohmann::ordered_json ArraysJson(const Core::Decks::DeckSummary& summary);

} // namespace Veld::Quor::Tools
