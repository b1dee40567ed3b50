#pragma once

#include "quor/deck/TextRange.h"
#include "quor/deck/internal/read/Deck.h"

#include <cstddef>

namespace Veld::Quor::Core::Decks {

/// Where an element of the keyword's outermost list begins; the keyword itself if that isn't known.
TextRange RangeOf(const DeckKeyword& keyword, std::size_t element);

} // namespace Veld::Quor::Core::Decks
