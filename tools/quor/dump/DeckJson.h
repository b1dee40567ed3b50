#pragma once

#include "quor/deck/Deck.h"

#include <functional>
#include <string>
#include <string_view>

namespace Veld::Quor::Tools {

/// Gives the deck as JSON to `take`, part by part: its keywords with their sections and data. Of records the
/// items that the deck gives; null for an element of a list that is left to its default. A text that is no
/// UTF-8 is an object whose member "latin1" has its bytes as characters.
void DumpDeck(const Core::Decks::Deck& deck, const std::string& name,
    const std::function<void(std::string_view)>& take);

} // namespace Veld::Quor::Tools
