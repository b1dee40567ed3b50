#pragma once

#include "quor/deck/internal/read/Deck.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Core::Decks {

struct DeckReport {
    Findings findings; ///< in the order in which they were met
    std::size_t keywords = 0; ///< known ones outside of what is passed over, inclusions and the like left out
    std::size_t sections = 0; ///< different ones
    std::size_t files = 0; ///< different ones, the deck itself included
};

/// Reads the deck in `path` and lets go of all but its findings. Throws `SourceError` as `ReadDeck` does.
DeckReport CheckDeck(const std::string& path, const ReadOptions& options, const DeckLanguage& language);

} // namespace Veld::Quor::Core::Decks
