#pragma once

#include "quor/deck/DeckDifference.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace Veld::Quor::Tools {

/// What has changed in an item, in a few words: of a list how many elements differ.
std::string ItemText(const Core::Decks::ItemChange& item);

nlohmann::ordered_json ChangeJson(const Core::Decks::Change& change);

/// The numbers of changes, by their kind.
nlohmann::ordered_json CountsJson(const Core::Decks::Difference& difference);

} // namespace Veld::Quor::Tools
