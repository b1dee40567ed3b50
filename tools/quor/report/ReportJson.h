#pragma once

#include "quor/deck/Deck.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// The values of an array of cells, as many as the grid has; NaN: not known.
using ReportValues = std::vector<float>;

/// What a report shows of a deck. The values of its arrays, which are many, are appended to `values`.
nlohmann::ordered_json ReportJson(const Core::Decks::Deck& deck, const Core::Decks::DeckLanguage& language,
    const std::string& path, std::vector<ReportValues>& values);

} // namespace Veld::Quor::Tools
