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

/// Names files from the folder of their deck on: who reads the page has another folder.
void NameFilesFromFolder(nlohmann::ordered_json& json, const std::string& deck);

} // namespace Veld::Quor::Tools
