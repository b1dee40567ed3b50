#pragma once

#include "tools/deck/Finding.h"
#include "tools/deck/KeywordValidity.h"
#include "tools/deck/Vocabulary.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Tools::Deck {

struct CheckOptions {
    Target target;
    std::size_t maxFindings = 200;
};

struct DeckReport {
    Findings findings; ///< in the order in which they were met
    std::size_t keywords = 0; ///< known ones outside of what is passed over
    std::size_t sections = 0; ///< different ones
    std::size_t files = 0; ///< different ones, the deck itself included
};

/// Follows the structure of the deck in `path`: sections, inclusions, skipped blocks, the end. The data
/// behind keywords aren't read. Throws `SourceError` if the deck itself can't be read; an included file that
/// can't is a finding.
DeckReport CheckDeck(const std::string& path, const CheckOptions& options, Vocabulary& vocabulary);

} // namespace Veld::Quor::Tools::Deck
