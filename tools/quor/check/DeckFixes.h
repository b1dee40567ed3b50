#pragma once

#include "quor/deck/Deck.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Tools {

/// What was fixed in a deck.
struct DeckFixes {
    std::size_t findings = 0;
    std::size_t files = 0;
};

/// Makes the changes that findings of the deck are fixed by, as long as there are such, and writes its files.
/// Nothing is written if the changed deck would have more errors. Throws `SourceError` if the deck can't be
/// read, `std::runtime_error`, and reported, if a file can't be written.
DeckFixes FixDeck(const std::string& path, const Core::Decks::ReadOptions& options,
    const Core::Decks::DeckLanguage& language);

} // namespace Veld::Quor::Tools
