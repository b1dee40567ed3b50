#pragma once

#include "quor/deck/Deck.h"

#include <cstddef>

namespace Veld::Quor::Tests {

/// Of each keyword of an editable deck, sets values to others, some alone and all at once, and expects that
/// they are read back, that the others stay, and that no other byte changes. `options`: those that the deck
/// was read with. Returns how many keywords have values.
std::size_t ExpectEachValueToBeChanged(const Core::Decks::Deck& deck,
    const Core::Decks::DeckLanguage& language, const Core::Decks::ReadOptions& options);

} // namespace Veld::Quor::Tests
