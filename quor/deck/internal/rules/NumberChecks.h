#pragma once

#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Reports numbers beyond the sizes along which they count, of the last keyword of the deck.
class NumberChecks {
public:
    explicit NumberChecks(const RuleContext& context)
        : context_(context)
        , sizes_(context.rules.indices.size())
    {
    }

    /// The sizes are those where the last keyword of the deck is: to be called before its records are
    /// checked.
    void StartKeyword();
    /// `position`: of the record. Whether a number was reported.
    bool CheckIndices(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);
    void CheckOrders(const RecordRules& rules, const Keywords::IKeywordRecordData& record,
        const ValuePosition& position) const;
    void CheckRegion(const RegionRule& rule);
    void CheckAssignments(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);

private:
    struct Size {
        std::size_t keyword = 0; // for which it was looked up
        long long limit = 0;
    };

    long long LimitOf(std::size_t number);
    const RegionRule* FindRegion(const std::string& array) const;
    TextRange RangeOf(ValuePosition record, const RuleItem& item) const;

    RuleContext context_;
    std::vector<Size> sizes_; // of each rule of indices
    std::size_t keyword_ = 0; // how many were checked
};

} // namespace Veld::Quor::Core::Decks
