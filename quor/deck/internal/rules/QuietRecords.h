#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/deck/internal/read/keyword/RecordWatch.h"
#include "quor/deck/internal/rules/NameChecks.h"
#include "quor/deck/internal/rules/RecordChecks.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/SettledNames.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Of most keywords of a schedule nothing is to be said: their records name what others have named, and no
/// two name the same. What can be seen in a record alone is looked at soon after it has been read, of a few
/// records at once and item by item, in half the time that it takes record by record; the rest when the list
/// ends.
class QuietRecords final : public RecordWatch {
public:
    /// All must outlive it.
    QuietRecords(NameNumbers& numbers, NameChecks& names, SettledNames& settled, RecordChecks& checks)
        : numbers_(numbers)
        , names_(names)
        , settled_(settled)
        , checks_(checks)
    {
    }

    /// The records of another list come. `rules.mayBeQuiet` must be true.
    void Begin(const RecordRules& rules);
    /// Whether nothing is to be said of any record of the list, which is then followed. If not, nothing has
    /// been done. The records of a keyword that has no text for its data have not been begun.
    bool Follow(const RecordRules& rules, const Keywords::IKeywordListData& list);

private:
    using Records = std::span<const Record* const>;

    void LookAt(Records records) override;
    bool FindNames(Records records);
    bool AreSettled(Records records);
    bool IsSettled(const Record& record);
    bool IsSettled(const RecordRules::Name& rule, const Record& record);
    bool AreMet(Records records) const;
    void FindDistinct(Records records);

    NameNumbers& numbers_;
    NameChecks& names_;
    SettledNames& settled_;
    RecordChecks& checks_;
    const RecordRules* rules_ = nullptr;
    bool isQuiet_ = true; // of all records so far nothing is to be said
    bool isSorted_ = true; // the number of each name is above that of the one before it
    std::uint32_t distinctOfAll_ = 0; // rules that are about each record, as in `NamedRecord`
    NamedRecords named_; // those of the list, while that is so
    std::vector<KeyOfParts> keys_; // of the last ones
};

} // namespace Veld::Quor::Core::Decks
