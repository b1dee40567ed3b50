#pragma once

#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Reports records that match none of those that define what they are about: a completion that a well doesn't
/// have, a segment that nothing defines.
///
/// What refers is kept as the deck is read; what defines is looked at in the end, and only if something
/// refers.
class MatchChecks {
public:
    explicit MatchChecks(const RuleContext& context)
        : context_(context)
        , references_(context.rules.matches.size())
        , definitions_(context.rules.matches.size())
        , isLost_(context.rules.matches.size())
    {
    }

    /// `position`: of a record of the last keyword of the deck.
    void Follow(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);
    /// A keyword with such records could not be read.
    void Lose(const RecordRules& rules);

    bool HasReferences() const;
    /// Of a record of any keyword, once all were followed.
    void Define(const RecordRules& rules, const Keywords::IKeywordRecordData& record);
    void EndDeck();

private:
    using Range = std::pair<long long, long long>; // 0 and 0: any number
    using Ranges = std::array<Range, mostMatchNumbers>;
    struct Reference {
        const RecordRules::Match* match;
        const Keywords::IKeywordRecordData* record;
        std::uint32_t keyword;
        ValuePosition position;
        Ranges ranges;
    };

    static Ranges RangesOf(const RecordRules::Match& match, const Keywords::IKeywordRecordData& record);
    bool Refers(const MatchRule& rule, const RecordRules::Match& match,
        const Keywords::IKeywordRecordData& record) const;
    const std::string& OwnerOf(const RecordRules::Match& match, const Keywords::IKeywordRecordData& record);
    void Report(const std::string& owner, const MatchRule& rule, const Reference& reference);

    RuleContext context_;
    // Of each rule, by the name of the owner in upper case.
    std::vector<std::unordered_map<std::string, std::vector<Reference>>> references_;
    std::vector<std::unordered_map<std::string, std::vector<Ranges>>> definitions_;
    std::vector<bool> isLost_;
    std::string owner_; // of the last record with one
};

} // namespace Veld::Quor::Core::Decks
