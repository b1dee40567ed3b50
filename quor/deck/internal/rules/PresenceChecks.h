#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/rules/NameChecks.h"
#include "quor/deck/internal/rules/RulePlans.h"

#include <cstdint>
#include <string>
#include <unordered_map>

namespace Veld::Quor::Core::Decks {

/// Follows which keywords a deck has: reports those that are missing, that exclude one another, and that are
/// repeated.
class PresenceChecks {
public:
    PresenceChecks(
        const RuleSet& rules, const DeckContents& deck, const NameChecks& names, FindingReporter& reporter)
        : rules_(rules)
        , deck_(deck)
        , names_(names)
        , reporter_(reporter)
    {
    }

    /// The last keyword of the deck.
    void Follow(const KeywordRules& rules);
    /// No keyword of the deck was missed.
    void EndDeck();
    /// Whether the deck is no part of one.
    bool IsWholeDeck() const;

private:
    void ReportRepeated(const KeywordInstance& keyword, const KeywordInstance& first);
    void ReportConflict(const KeywordInstance& keyword, const ExclusiveRule& rule);
    bool IsEmpty(const KeywordInstance& section) const;
    void CheckNeed(const NeedRule& rule);
    bool Has(const std::string& name) const;
    const KeywordInstance* FindFirst(const std::string& name) const;

    const RuleSet& rules_;
    const DeckContents& deck_;
    const NameChecks& names_;
    FindingReporter& reporter_;
    std::unordered_map<const Keywords::IKeywordSyntax*, std::uint32_t> first_; // keyword of each
    std::unordered_map<const ExclusiveRule*, std::uint32_t> exclusive_; // the one that is there
};

} // namespace Veld::Quor::Core::Decks
