#include "quor/deck/internal/rules/RecordValues.h"

#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/rules/KeyTable.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <bit>
#include <string_view>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

const IKeywordDataMD& ItemMDOf(const IKeywordRecordData& record, const RuleItem& item)
{
    return *static_cast<const IKeywordRecordMD&>(*record.GetMD()).GetItemMD(item.index);
}

/// In a key, where an item may be left out.
constexpr std::uint64_t noValue = std::uint64_t(1) << 33;

void AddNumber(long long number, KeyOfParts& key)
{
    key.Add(static_cast<std::uint64_t>(number));
}

bool IsWhole(const RuleItem& item)
{
    return item.type == MDType::Integer || item.type == MDType::Choice;
}

/// False if it has no value.
bool AddItem(const IKeywordRecordData& record, const RuleItem& item, NameNumbers& names, KeyOfParts& key,
    bool& hasZero)
{
    if (item.type == MDType::String) {
        const auto& name = item.In<std::string>(record);
        if (name)
            key.Add(names.GetPart(*name));
        return name.HasValue();
    }
    if (IsWhole(item)) {
        const auto& number = item.In<int>(record);
        if (number)
            AddNumber(*number, key);
        hasZero = hasZero || (item.type == MDType::Integer && number && *number == 0);
        return number.HasValue();
    }
    if (!HasItem(record, item))
        return false;
    key.Add(item.type == MDType::Real ? std::bit_cast<std::uint64_t>(*item.In<double>(record))
                                      : KeyOfName(ValueText(record, item)));
    return true;
}

} // namespace

RuleItem FindRuleItem(const IKeywordDataMD& record, const std::string& name)
{
    const auto& items = static_cast<const IKeywordRecordMD&>(record);
    for (int i = 0; i < items.GetSize(); ++i) {
        if (items.GetItemMD(i)->GetName() == name)
            return {i, KeywordUtils::GetMDType(items.GetItemMD(i))};
    }
    return {};
}

ItemCondition FindCondition(const IKeywordDataMD& record, const RecordCondition& condition)
{
    if (condition.item.empty())
        return {};
    ItemCondition found = {&condition, FindRuleItem(record, condition.item), -1};
    if (found.item.type == MDType::Choice && !condition.word.empty()) {
        const auto& items = static_cast<const IKeywordRecordMD&>(record);
        found.choice = static_cast<const IKeywordChoiceMD*>(items.GetItemMD(found.item.index))
                           ->Match(condition.word)
                           .index;
    }
    return found;
}

bool HoldsOther(const ItemCondition& condition, const IKeywordRecordData& record)
{
    if (condition.rule->word.empty())
        return IsItemSet(record, condition.item);
    return HasItem(record, condition.item)
        && IsMatch(condition.rule->word, ValueText(record, condition.item));
}

bool HasItem(const IKeywordRecordData& record, const RuleItem& item)
{
    if (!item.IsThere())
        return false;
    if (IsWhole(item))
        return item.In<int>(record).HasValue();
    if (item.type == MDType::String)
        return item.In<std::string>(record).HasValue();
    if (item.type == MDType::Real)
        return item.In<double>(record).HasValue();
    return IsGiven(ItemValue(ItemMDOf(record, item), record.GetData(item.index)));
}

bool IsItemSet(const IKeywordRecordData& record, const RuleItem& item)
{
    if (item.type == MDType::Integer)
        return NumberOf(record, item) > 0;
    if (item.type == MDType::Real)
        return item.In<double>(record).ValueOr(0) != 0;
    return HasItem(record, item);
}

std::string ValueText(const IKeywordRecordData& record, const RuleItem& item)
{
    if (!item.IsThere())
        return "";
    if (item.type == MDType::String)
        return item.In<std::string>(record).ValueOr("");
    const IKeywordDataMD& md = ItemMDOf(record, item);
    return ToText(md, ItemValue(md, record.GetData(item.index)));
}

std::uint32_t NameNumbers::Find(std::uint32_t before, std::string_view name)
{
    const auto count = static_cast<std::uint32_t>(names_.size());
    const auto [number, isNew] = numbers_.Add(KeyOfName(name), count);
    if (isNew)
        names_.push_back({0, 0, 0});
    names_[*number].letters = FirstLetters(name);
    names_[*number].size = static_cast<std::uint32_t>(name.size());
    names_[before].next = *number;
    return *number;
}

RecordKey KeyOfRecord(const IKeywordRecordData& record, const std::vector<RuleItem>& items, std::size_t count,
    std::size_t required, NameNumbers& names)
{
    KeyOfParts key;
    RecordKey found;
    for (std::size_t i = 0; i < count; ++i) {
        if (AddItem(record, items[i], names, key, found.hasZero))
            continue;
        if (i < required)
            return found;
        key.Add(noValue);
        found.hasZero = true;
    }
    found.key = key.Get();
    found.isThere = true;
    return found;
}

/// A number without an end is a run of itself.
RecordKeys::RecordKeys(const IKeywordRecordData& record, const std::vector<RuleItem>& items,
    const RuleItem& last, std::size_t required, NameNumbers& names)
{
    constexpr long long longest = 1'000; // a longer run is a mistake that others report
    const bool isNumber = items.back().type == MDType::Integer;
    const long long number = isNumber ? NumberOf(record, items.back()) : 0;
    if (!isNumber || (!last.IsThere() && number < 1)) {
        key_ = KeyOfRecord(record, items, items.size(), required, names);
        end_ = key_.isThere ? 1 : 0;
        return;
    }
    key_ = KeyOfRecord(record, items, items.size() - 1, required, names);
    const long long first = std::max(number, 1LL);
    const long long end = (last.IsThere() ? NumberOf(record, last) : number) + 1;
    if (!key_.isThere || end - first > longest)
        return;
    first_ = static_cast<std::uint32_t>(first);
    end_ = static_cast<std::uint32_t>(std::max(end, first));
}

std::uint64_t KeyOfName(const IKeywordRecordData& record, const RuleItem& item, NameNumbers& names)
{
    if (!HasItem(record, item))
        return 0;
    if (item.type != MDType::String)
        return KeyOfName(ValueText(record, item));
    const std::string& name = *item.In<std::string>(record);
    return name.find_first_of("*?") == std::string::npos ? names.GetPart(name) : 0;
}

} // namespace Veld::Quor::Core::Decks
