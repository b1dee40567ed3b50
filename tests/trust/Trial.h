#pragma once

#include "tests/trust/Mistake.h"

#include "quor/deck/DeckLanguage.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Trust {

/// What a user is told of a mistake.
enum class Outcome { AtPlace, Elsewhere, Several, Silent };
constexpr std::size_t outcomeCount = 4;

struct Trial {
    Outcome outcome = Outcome::Silent;
    std::string text; ///< the deck, the changed lines, the findings; for people
};

/// Reads the deck with the mistake, and compares its findings with where they should be.
Trial Try(
    const SampleDeck& deck, const Mistake& mistake, bool isStrict, const Core::Decks::DeckLanguage& language);

} // namespace Veld::Quor::Trust
