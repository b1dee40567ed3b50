#pragma once

#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/PresenceChecks.h"
#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Reports records that leave out what they require, and records of one keyword that say the same thing
/// twice.
class RecordChecks {
public:
    RecordChecks(const RuleContext& context, const PresenceChecks& presence, NameKeys& names)
        : context_(context)
        , presence_(presence)
        , names_(names)
        , seen_(context.rules.distinct.size())
    {
    }

    /// A keyword was missed: which of them the deck has is no longer known.
    void Lose() { isSure_ = false; }
    /// The keywords that records require and that the deck doesn't have so far.
    std::set<std::string> GetMissing() const;
    /// Reports what records require and the deck doesn't have, but for what the needs of the deck have said.
    void EndDeck();
    /// To be called before the records of a keyword are checked.
    void StartKeyword();
    /// `position`: of the record.
    /// @{
    void CheckRequirements(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);
    void CheckDistinct(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);
    /// @}

private:
    using Record = Keywords::IKeywordRecordData;

    /// Of a record that requires a keyword.
    struct Pending {
        const RequireRule* rule;
        std::uint32_t keyword;
        ValuePosition position;
    };
    /// A record that has a key.
    struct Seen {
        std::uint32_t keyword;
        std::uint32_t element;
    };

    void CheckRequirement(
        const RecordRules::Requirement& requirement, const Record& record, ValuePosition position);
    bool IsSatisfied(const RequireRule& rule) const;
    void CheckOneDistinct(
        const RecordRules::Distinct& rule, const Record& record, const ValuePosition& position);
    bool CheckKey(const RecordRules::Distinct& rule, std::uint64_t key, const Record& record,
        const ValuePosition& position);
    void ReportRepeated(const RecordRules::Distinct& rule, const Seen& first, const Record& record,
        const ValuePosition& position);

    RuleContext context_;
    const PresenceChecks& presence_;
    NameKeys& names_;
    bool isSure_ = true;
    std::uint32_t step_ = 0; // of the last keyword
    std::vector<KeyTable<Seen>> seen_; // of each rule
    std::vector<Pending> pending_;
};

} // namespace Veld::Quor::Core::Decks
