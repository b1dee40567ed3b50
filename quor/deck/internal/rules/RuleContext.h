#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/contents/Dimensions.h"
#include "quor/deck/internal/rules/RuleSet.h"

#include <cstddef>
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

/// The limit that a rule has at the last keyword of the deck, looked up once for each.
class KeywordLimit {
public:
    long long Get(const RuleContext& context, const SizeLimit& limit)
    {
        return Get(context, [&] { return context.FindLimit(limit); });
    }
    template <class Find>
    long long Get(const RuleContext& context, const Find& find)
    {
        if (keywords_ != context.deck.keywords.size()) {
            keywords_ = context.deck.keywords.size();
            limit_ = find();
        }
        return limit_;
    }

private:
    std::size_t keywords_ = 0; // of the deck, which has ever more, when it was looked up
    long long limit_ = 0;
};

} // namespace Veld::Quor::Core::Decks
