#pragma once

#include "quor/deck/internal/rules/NameChecks.h"
#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"

#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Follows which keywords a deck has: reports those that are missing, that exclude one another, and that are
/// repeated.
class PresenceChecks {
public:
    PresenceChecks(const RuleContext& context, const NameChecks& names)
        : context_(context)
        , names_(names)
    {
    }

    /// The last keyword of the deck.
    void Follow(const KeywordRules& rules);
    /// No keyword of the deck was missed. `required`: keywords that records require, so that the run fails
    /// without them.
    void EndDeck(const std::set<std::string>& required);
    /// Whether the keyword, or another one for the same purpose, was reported as missing.
    bool IsReported(const std::string& name) const { return reported_.count(name) > 0; }
    const std::set<std::string>& GetReported() const { return reported_; }
    /// One of the keywords was reported as missing by another check.
    void Excuse(const std::set<std::string>& names) { reported_.insert(names.begin(), names.end()); }
    /// Whether the deck is no part of one.
    bool IsWholeDeck() const;
    /// Whether the deck has the first of what a whole one has: what comes before a part of a deck isn't
    /// known.
    bool IsBegun() const { return !context_.rules.whole.empty() && FindFirst(context_.rules.whole.front()); }
    /// Whether the deck has the keyword up to now, or an operation makes the array of that name.
    bool Has(const std::string& name) const;

private:
    void ReportRepeated(const KeywordInstance& first, const OnceRule& rule);
    void ReportConflict(const ExclusiveRule& rule);
    bool IsEmpty(const KeywordInstance& section) const;
    bool IsMissing(const NeedRule& rule) const;
    void ReportMissing(const std::vector<const NeedRule*>& rules, const std::set<std::string>& required);
    const KeywordInstance* FindFirst(const std::string& name) const;

    RuleContext context_;
    const NameChecks& names_;
    std::unordered_map<const Keywords::IKeywordSyntax*, std::uint32_t> first_; // keyword of each
    std::set<std::string> reported_; // as missing
    std::unordered_map<const ExclusiveRule*, std::uint32_t> exclusive_; // the one that is there
};

} // namespace Veld::Quor::Core::Decks
