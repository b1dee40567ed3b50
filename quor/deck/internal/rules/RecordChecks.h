#pragma once

#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/PresenceChecks.h"
#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A record of a list, and the number of its name.
struct NamedRecord {
    const Keywords::IKeywordRecordData* record;
    std::uint32_t name;
};

/// All of a list.
using NamedRecords = std::vector<NamedRecord>;

/// Reports records that leave out what they require, and records of one keyword that say the same thing
/// twice.
class RecordChecks {
public:
    RecordChecks(const RuleContext& context, const PresenceChecks& presence, NameNumbers& names)
        : context_(context)
        , presence_(presence)
        , names_(names)
        , ofNames_(context.rules.distinct.size())
        , ofKeys_(context.rules.distinct.size())
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
    /// The same of all records of a keyword, where `rules.mayBeQuiet`: whether none is to be reported.
    /// @{
    bool AreMet(const RecordRules& rules, const NamedRecords& records) const;
    /// If one is to be reported, none has been followed.
    bool AddDistinct(const RecordRules& rules, const NamedRecords& records);
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

    bool IsMet(const RecordRules::Requirement& requirement, const Record& record) const;
    void ReportMissing(const RecordRules::Requirement& requirement, ValuePosition position);
    bool IsSatisfied(const RequireRule& rule) const;
    std::size_t AddNames(const RecordRules::Distinct& rule, const NamedRecords& records);
    void RemoveNames(const RecordRules::Distinct& rule, const NamedRecords& records, std::size_t count);
    Seen SeenAt(const ValuePosition& position) const
    {
        return {keyword_, static_cast<std::uint32_t>(position.element)};
    }
    void CheckKeys(const RecordRules::Distinct& rule, const Record& record, const ValuePosition& position);
    bool Replace(
        const RecordRules::Distinct& rule, Seen& seen, const Record& record, const ValuePosition& position);
    void ReportRepeated(const RecordRules::Distinct& rule, const Seen& first, const Record& record,
        const ValuePosition& position);

    RuleContext context_;
    const PresenceChecks& presence_;
    NameNumbers& names_;
    bool isSure_ = true;
    std::uint32_t keyword_ = 0; // the last of the deck
    std::uint32_t step_ = 0; // of that keyword
    // Of each rule: what is told apart by one name, and all else.
    std::vector<NumberTable<Seen>> ofNames_;
    std::vector<KeyTable<Seen>> ofKeys_;
    std::vector<Pending> pending_;
};

} // namespace Veld::Quor::Core::Decks
