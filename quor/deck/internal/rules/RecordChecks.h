#pragma once

#include "quor/deck/internal/rules/PresenceChecks.h"
#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Reports records that leave out what they require, and records of one keyword that say the same thing
/// twice.
class RecordChecks {
public:
    RecordChecks(const RuleContext& context, const PresenceChecks& presence)
        : context_(context)
        , presence_(presence)
        , seen_(context.rules.distinct.size())
    {
    }

    /// A keyword was missed: which of them the deck has is no longer known.
    void Lose() { isSure_ = false; }
    /// To be called before the records of a keyword are checked.
    void StartKeyword();
    /// `position`: of the record.
    void Check(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);

private:
    using Record = Keywords::IKeywordRecordData;

    void CheckRequirement(
        const RecordRules::Requirement& requirement, const Record& record, ValuePosition position) const;
    void CheckDistinct(
        const RecordRules::Distinct& rule, const Record& record, const ValuePosition& position);

    RuleContext context_;
    const PresenceChecks& presence_;
    bool isSure_ = true;
    std::vector<std::unordered_map<std::uint64_t, std::size_t>>
        seen_; // of each rule: the record with the key
};

} // namespace Veld::Quor::Core::Decks
