#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/contents/Dimensions.h"
#include "quor/deck/internal/rules/RuleSet.h"

#include <limits>
#include <string>

namespace Veld::Quor::Core::Decks {

/// What all checks of rules share. What it refers to must outlive them.
struct RuleContext {
    const RuleSet& rules;
    const DeckContents& deck; ///< its last keyword is the one that is checked
    Dimensions& dimensions;
    FindingReporter& reporter;

    const KeywordInstance& GetKeyword() const { return deck.keywords.back(); }
    /// The greatest number if the deck leaves the size out: simulators may count beyond its default.
    long long FindLimit(const SizeLimit& limit) const
    {
        const auto given = dimensions.FindGiven(limit.name);
        return given && !given->isDefault && given->value > 0 ? given->value
                                                              : std::numeric_limits<long long>::max();
    }
    const std::string& GetName() const { return deck.keywords.back().syntax->GetName(); }
};

} // namespace Veld::Quor::Core::Decks
