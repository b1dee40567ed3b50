#pragma once

#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Reports numbers beyond the sizes along which they count, of the last keyword of the deck.
class NumberChecks {
public:
    explicit NumberChecks(const RuleContext& context)
        : context_(context)
        , limits_(context.rules.indices.size())
        , arrays_(context.rules.indices.size())
    {
    }

    /// `position`: of the record. Whether a number was reported.
    bool CheckIndices(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);
    void CheckOrders(const RecordRules& rules, const Keywords::IKeywordRecordData& record,
        const ValuePosition& position) const;
    /// The numbers of the list that the last keyword of the deck carries.
    void CheckElements(const std::vector<std::size_t>& rules);
    void CheckRegion(const RegionRule& rule);
    /// The last keyword of the deck is an array.
    void FollowArray(const std::vector<std::size_t>& rules);
    /// Nobody knows which numbers an array of that name has.
    void LoseArray(const std::string& name);
    /// The last keyword of the deck has the sizes of a local grid. `name`: its item.
    void FollowGrid(const Keywords::IKeywordRecordData& record, const RuleItem& name);
    void CheckAssignments(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);

private:
    /// A local grid.
    struct Grid {
        std::uint32_t keyword; // that has its sizes
        std::unordered_map<std::string, long long> sizes;
    };
    /// What the arrays of a rule have.
    struct Arrays {
        std::vector<std::uint32_t> keywords; // of which it is to be found out
        long long greatest = 0;
    };

    long long LimitOf(std::size_t number);
    bool CheckIndexOfGrid(
        const RecordRules::Index& index, const Keywords::IKeywordRecordData& record, const ValuePosition& at);
    long long GreatestOf(Arrays& arrays) const;
    void CheckRegionNumber(const RegionRule& rule, const std::string& array, double value,
        const ValuePosition& record, int item);
    void CheckLimits(const std::string& array, double value, const ValuePosition& record, int item);
    const RegionRule* FindRegion(const std::string& array) const;
    bool IsArrayOf(const IndexRule& rule, const std::string& name) const;
    TextRange RangeOf(ValuePosition record, const RuleItem& item) const;

    RuleContext context_;
    std::vector<KeywordLimit> limits_; // of each rule of indices
    std::vector<Arrays> arrays_; // of each rule of indices
    std::unordered_map<std::string, Grid> grids_; // by name in upper case
};

} // namespace Veld::Quor::Core::Decks
