#pragma once

#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/PresenceChecks.h"
#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What rules of what is distinct need of a record whose name alone tells it apart.
struct NamedRecord {
    bool IsOf(std::size_t rule) const { return (distinct >> rule & 1) != 0; }

    std::uint32_t name; ///< its number
    std::uint32_t distinct; ///< the rules that are about it: the first is the lowest bit
    static_assert(std::numeric_limits<decltype(distinct)>::digits == RecordRules::mostQuiet);
};

/// All of a list.
using NamedRecords = std::vector<NamedRecord>;

/// A record of a list of the deck.
struct SeenRecord {
    std::uint32_t keyword;
    std::uint32_t element;
};

/// The last record of each name, by the number of the name, since a keyword of the deck.
class SeenNames {
public:
    /// What was before the keyword is forgotten; takes no time.
    void Begin(std::uint32_t keyword) { first_ = keyword + 1; }
    /// All numbers that are asked for from now on are below it.
    void Reserve(std::size_t size)
    {
        if (size > records_.size())
            records_.resize(std::max(size, 2 * records_.size()));
    }

    bool Has(std::uint32_t name) const { return records_[name].keyword >= first_; }
    SeenRecord Get(std::uint32_t name) const { return {records_[name].keyword - 1, records_[name].element}; }
    void Set(std::uint32_t name, const SeenRecord& record)
    {
        records_[name] = {record.keyword + 1, record.element};
    }
    void Remove(std::uint32_t name) { records_[name] = {}; }

private:
    std::vector<SeenRecord> records_; // their keywords counted from 1; 0: there is none
    std::uint32_t first_ = 1; // counted so
};

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
    /// Whether the record gives what is required of it, variables without a value aside.
    static bool AreMet(const RecordRules& rules, const Keywords::IKeywordRecordData& record);
    /// Whether none of all records of a keyword says what another has said. If one does, none has been
    /// followed. `areSorted`: the number of each name is above that of the one before it.
    bool AddDistinct(const RecordRules& rules, const NamedRecords& records, bool areSorted);

private:
    using Record = Keywords::IKeywordRecordData;

    /// Of a record that requires a keyword.
    struct Pending {
        const RequireRule* rule;
        std::uint32_t keyword;
        ValuePosition position;
    };

    void ReportMissing(const RecordRules::Requirement& requirement, ValuePosition position);
    bool IsSatisfied(const RequireRule& rule) const;
    std::size_t AddNames(const RecordRules& rules, std::size_t distinct, const NamedRecords& records);
    void RemoveNames(
        const RecordRules& rules, std::size_t distinct, const NamedRecords& records, std::size_t count);
    SeenRecord SeenAt(const ValuePosition& position) const
    {
        return {keyword_, static_cast<std::uint32_t>(position.element)};
    }
    void CheckKeys(const RecordRules::Distinct& rule, const Record& record, const ValuePosition& position);
    bool FollowRepeated(const RecordRules::Distinct& rule, const SeenRecord& first, const Record& record,
        const ValuePosition& position);

    RuleContext context_;
    const PresenceChecks& presence_;
    NameNumbers& names_;
    bool isSure_ = true;
    std::uint32_t keyword_ = 0; // the last of the deck
    std::uint32_t step_ = 0; // of that keyword
    // Of each rule: what is told apart by one name, and all else.
    std::vector<SeenNames> ofNames_;
    std::vector<KeyTable<SeenRecord>> ofKeys_;
    std::vector<Pending> pending_;
};

} // namespace Veld::Quor::Core::Decks
