#pragma once

#include "quor/deck/internal/read/Deck.h"
#include "quor/deck/internal/text/DeckFile.h"

#include <cstddef>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Where an element of the keyword's outermost list begins; the keyword itself if that isn't known.
TextRange RangeOf(const DeckKeyword& keyword, std::size_t element);

/// The places of ranges in any order, at the cost of one pass through the files.
std::vector<Location> LocationsOf(const DeckFiles& files, const std::vector<TextRange>& ranges);

} // namespace Veld::Quor::Core::Decks
