#pragma once

#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/RuleContext.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Reports what there is more of than the sizes of the deck allow: records, what one owner has, rows, values.
class MemberChecks {
public:
    MemberChecks(const RuleContext& context, NameNumbers& names)
        : context_(context)
        , names_(names)
        , counts_(context.rules.members.size())
    {
    }

    /// `position`: of the record.
    void Check(
        const RecordRules& rules, const Keywords::IKeywordRecordData& record, const ValuePosition& position);
    /// The tables of the last keyword of the deck.
    void CheckTables(const LengthRule& rule);

private:
    using Record = Keywords::IKeywordRecordData;

    /// What a rule counts. Owners and members are keys of records.
    struct Count {
        KeyTable<long long> ofOwner;
        KeyTable<std::uint64_t> members; // of owner and 64 members in a row: a bit for each that it has
        KeyTable<std::uint64_t> owners; // of members that have one owner
        KeywordLimit limit;
    };

    void CheckMember(const RecordRules::Member& rule, const Record& record, ValuePosition position);
    long long Add(const RecordRules::Member& rule, const Record& record, std::uint64_t owner);
    static bool Take(std::uint64_t owner, std::uint64_t member, Count& count);
    void ReportAbove(
        const FindingVoice& voice, const TextRange& range, const std::string& what, const SizeLimit& limit);

    RuleContext context_;
    NameNumbers& names_;
    std::vector<Count> counts_; // of each rule
};

} // namespace Veld::Quor::Core::Decks
