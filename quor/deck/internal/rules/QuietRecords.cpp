#include "quor/deck/internal/rules/QuietRecords.h"

#include <algorithm>
#include <string>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

bool QuietRecords::Follow(const RecordRules& rules, const IKeywordListData& list)
{
    return FindNames(rules.nameTexts.front(), list) && AreSettled(rules) && checks_.AreMet(rules, records_)
        && checks_.AddDistinct(rules, records_);
}

/// False if a record has none.
bool QuietRecords::FindNames(const RuleItem& item, const IKeywordListData& list)
{
    numbers_.Forget();
    records_.resize(static_cast<std::size_t>(list.GetSize()));
    for (std::size_t i = 0; i < records_.size(); ++i) {
        const auto* const data = static_cast<const IKeywordData*>(list.GetData(i));
        const auto& record = static_cast<const IKeywordRecordData&>(*data);
        const auto& name = item.In<std::string>(record);
        if (!name)
            return false;
        records_[i] = {&record, numbers_.Get(*name)};
    }
    return true;
}

/// Most are as those of the name before them. Names come in the same order again, so that these are next to
/// each other, which they aren't among all that are settled.
bool QuietRecords::AreSettled(const RecordRules& rules)
{
    last_.resize(std::max(last_.size(), rules.number + 1));
    std::vector<std::uint64_t>& last = last_[rules.number];
    last.resize(std::max(last.size(), numbers_.GetSize()));
    return std::all_of(records_.begin(), records_.end(), [&](const NamedRecord& record) {
        KeyOfParts key;
        key.Add(rules.number);
        key.Add(NameNumbers::PartOf(record.name));
        AddConditions(rules, *record.record, key);
        if (last[record.name] != key.Get() && !settled_.Has(key.Get()))
            return false;
        last[record.name] = key.Get();
        return true;
    });
}

} // namespace Veld::Quor::Core::Decks
