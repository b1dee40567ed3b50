#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/deck/internal/rules/ValueRange.h"
#include "quor/metadata/KeywordUtils.h"

#include <cstddef>

namespace Veld::Quor::Core::Decks {

inline bool IsRecord(const Keywords::IKeywordData& data)
{
    return Keywords::KeywordUtils::GetMDType(data.GetMD()) == Keywords::IKeywordDataMD::MDType::Record;
}

/// Calls `use` with each record of a list of records, and its index.
template <class Use>
void ForEachRecord(const Keywords::IKeywordData& list, const Use& use)
{
    const auto& records = static_cast<const Keywords::IKeywordListData&>(list);
    const auto size = static_cast<std::size_t>(records.GetSize());
    for (std::size_t i = 0; i < size; ++i)
        use(static_cast<const Keywords::IKeywordRecordData&>(
                *static_cast<const Keywords::IKeywordData*>(records.GetData(i))),
            i);
}

/// Calls `use` with what the rules say of a record, the record, and its position: `position`. The same then
/// with those within it.
template <class Use>
void WalkRecord(const RecordRules& rules, const Keywords::IKeywordRecordData& record,
    const ValuePosition& position, const Use& use)
{
    use(rules, record, position);
    for (const RecordRules& inner : rules.inner) {
        ValuePosition at = {position.element, inner.item, inner.slashes.has_value(),
            position.slashes + inner.slashes.value_or(0)};
        const auto walk = [&](const Keywords::IKeywordRecordData& one) { WalkRecord(inner, one, at, use); };
        const auto& data = *static_cast<const Keywords::IKeywordData*>(record.GetData(inner.item));
        if (IsRecord(data))
            walk(static_cast<const Keywords::IKeywordRecordData&>(data));
        else
            ForEachRecord(data, [&](const Keywords::IKeywordRecordData& one, std::size_t) {
                walk(one);
                ++at.slashes; // each of the list ends with one
            });
    }
}

/// The same with all records of a keyword whose data are a record or a list of records.
template <class Use>
void WalkRecords(const RecordRules& rules, const Keywords::IKeywordData& root, const Use& use)
{
    if (IsRecord(root))
        return WalkRecord(rules, static_cast<const Keywords::IKeywordRecordData&>(root), {}, use);
    ForEachRecord(root, [&](const Keywords::IKeywordRecordData& record, std::size_t i) {
        WalkRecord(rules, record, {i}, use);
    });
}

} // namespace Veld::Quor::Core::Decks
