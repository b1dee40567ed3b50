#pragma once

#include "tools/deck/Deck.h"
#include "tools/deck/DeckFile.h"

#include <cstddef>
#include <vector>

namespace Veld::Quor::Tools::Deck {

/// Where an element of the keyword's outermost list begins; the keyword itself if that isn't known.
Spot SpotOf(const DeckKeyword& keyword, std::size_t element);

/// The places of spots in any order, at the cost of one pass through the files.
std::vector<Place> PlacesOf(const DeckFiles& files, const std::vector<Spot>& spots);

} // namespace Veld::Quor::Tools::Deck
