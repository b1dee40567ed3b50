#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/deck/Dimensions.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Reports numbers beyond the sizes along which they count, of the last keyword of the deck.
class NumberChecks {
public:
    NumberChecks(const RuleSet& rules, const DeckContents& deck, const Dimensions& dimensions,
        FindingReporter& reporter)
        : rules_(rules)
        , deck_(deck)
        , dimensions_(dimensions)
        , reporter_(reporter)
        , sizes_(rules.indices.size())
    {
    }

    /// The sizes are those where the last keyword of the deck is: to be called before its records are
    /// checked.
    void StartKeyword();
    /// `position`: of the record.
    void CheckIndices(const RecordRules& rules, const Keywords::IKeywordRecordData& record,
        const ValuePosition& position) const;
    void CheckOrders(const RecordRules& rules, const Keywords::IKeywordRecordData& record,
        const ValuePosition& position) const;
    void CheckRegion(const RegionRule& rule) const;
    void CheckAssignments(const RecordRules& rules, const Keywords::IKeywordRecordData& record,
        const ValuePosition& position) const;

private:
    const RegionRule* FindRegion(const std::string& array) const;
    TextRange RangeOf(ValuePosition record, int item) const;

    const RuleSet& rules_;
    const DeckContents& deck_;
    const Dimensions& dimensions_;
    FindingReporter& reporter_;
    std::vector<std::optional<long long>> sizes_; // of each rule of indices; empty if it isn't known
};

} // namespace Veld::Quor::Core::Decks
