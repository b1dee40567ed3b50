#pragma once

#include "tools/deck/DeckText.h"
#include "tools/deck/Finding.h"
#include "tools/deck/KeywordValidity.h"
#include "tools/deck/Teller.h"
#include "tools/deck/Vocabulary.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Tools::Deck {

struct CheckOptions {
    Target target;
    std::size_t maxFindings = 200;
    DeckText::Progress progress = {};
    KnownFinding isKnown = {};
};

struct DeckReport {
    Findings findings; ///< in the order in which they were met
    std::size_t keywords = 0; ///< known ones outside of what is passed over, inclusions and the like left out
    std::size_t sections = 0; ///< different ones
    std::size_t files = 0; ///< different ones, the deck itself included
};

/// Reads the deck in `path` and lets go of all but its findings. Throws `SourceError` as `ReadDeck` does.
DeckReport CheckDeck(const std::string& path, const CheckOptions& options, Vocabulary& vocabulary);

} // namespace Veld::Quor::Tools::Deck
