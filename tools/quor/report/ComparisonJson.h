#pragma once

#include "quor/deck/Deck.h"
#include "tools/quor/report/ReportJson.h"

#include <nlohmann/json_fwd.hpp>

#include <vector>

namespace Veld::Quor::Tools {

/// Adds the report on another deck to one, and what differs between the two. An array that both have alike is
/// kept once in `values`.
void AddComparison(nlohmann::ordered_json& report, const Core::Decks::Deck& deck,
    nlohmann::ordered_json other, const Core::Decks::Deck& otherDeck, std::vector<ReportValues>& values);

} // namespace Veld::Quor::Tools
