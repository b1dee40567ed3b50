#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/deck/internal/rules/RecordChecks.h"
#include "quor/deck/internal/rules/RulePlans.h"

#include <cstdint>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Of most keywords of a schedule nothing is to be said: they name what others have named, and no two records
/// name the same. That is found for all records at once, item by item, in half the time that it takes record
/// by record.
class QuietRecords {
public:
    /// `settled`: the keys of names of which nothing is to be said. All must outlive it.
    QuietRecords(NameNumbers& numbers, const KeyTable<Nothing>& settled, RecordChecks& checks)
        : numbers_(numbers)
        , settled_(settled)
        , checks_(checks)
    {
    }

    /// Whether nothing is to be said of any record of the list, which is then followed. If not, nothing has
    /// been done. `rules.mayBeQuiet` must be true.
    bool Follow(const RecordRules& rules, const Keywords::IKeywordListData& list);

private:
    bool FindNames(const RuleItem& item, const Keywords::IKeywordListData& list);
    bool AreSettled(const RecordRules& rules);

    NameNumbers& numbers_;
    const KeyTable<Nothing>& settled_;
    RecordChecks& checks_;
    std::vector<NamedRecord> records_; // of the last list
    std::vector<std::vector<std::uint64_t>> last_; // of each record's rules, by name: the last settled key
};

} // namespace Veld::Quor::Core::Decks
