#include "quor/deck/internal/rules/RecordValues.h"

#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/rules/NameTable.h"
#include "quor/deck/internal/text/TextHash.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <string_view>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

template <class T>
const Service::Optional<T>& ItemOf(const IKeywordRecordData& record, const RuleItem& item)
{
    return *static_cast<const Service::Optional<T>*>(record.GetData(item.index));
}

const IKeywordDataMD& ItemMDOf(const IKeywordRecordData& record, const RuleItem& item)
{
    return *static_cast<const IKeywordRecordMD&>(*record.GetMD()).GetItemMD(item.index);
}

void AddText(std::string_view text, TextHash& hash)
{
    for (const char c : text)
        hash.Add(c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c);
    hash.Add('\n');
}

void AddNumber(long long number, TextHash& hash)
{
    for (int shift = 0; shift < 32; shift += 8)
        hash.Add(static_cast<char>((number >> shift) & 0xFF));
}

bool IsWhole(const RuleItem& item)
{
    return item.type == MDType::Integer || item.type == MDType::Choice;
}

/// False if it has no value.
bool AddItem(const IKeywordRecordData& record, const RuleItem& item, TextHash& hash, bool& hasZero)
{
    if (!HasItem(record, item))
        return false;
    if (item.type == MDType::String) {
        AddText(*ItemOf<std::string>(record, item), hash);
    } else if (IsWhole(item)) {
        const int number = *ItemOf<int>(record, item);
        hasZero = hasZero || (number == 0 && item.type == MDType::Integer);
        AddNumber(number, hash);
    } else {
        AddText(ValueText(record, item), hash);
    }
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
    if (found.item.type == MDType::Choice) {
        const auto& items = static_cast<const IKeywordRecordMD&>(record);
        found.choice = static_cast<const IKeywordChoiceMD*>(items.GetItemMD(found.item.index))
                           ->Match(condition.word)
                           .index;
    }
    return found;
}

bool Holds(const ItemCondition& condition, const IKeywordRecordData& record)
{
    if (!condition.rule)
        return true;
    if (condition.rule->word.empty())
        return IsItemSet(record, condition.item);
    if (condition.choice >= 0)
        return ItemOf<int>(record, condition.item).ValueOr(-1) == condition.choice;
    return HasItem(record, condition.item)
        && IsMatch(condition.rule->word, ValueText(record, condition.item));
}

long long NumberOf(const IKeywordRecordData& record, const RuleItem& item)
{
    return ItemOf<int>(record, item).ValueOr(0);
}

bool HasItem(const IKeywordRecordData& record, const RuleItem& item)
{
    if (!item.IsThere())
        return false;
    if (IsWhole(item))
        return ItemOf<int>(record, item).HasValue();
    if (item.type == MDType::String)
        return ItemOf<std::string>(record, item).HasValue();
    return IsGiven(ItemValue(ItemMDOf(record, item), record.GetData(item.index)));
}

bool IsItemSet(const IKeywordRecordData& record, const RuleItem& item)
{
    if (!HasItem(record, item))
        return false;
    if (item.type == MDType::Integer)
        return NumberOf(record, item) > 0;
    return item.type != MDType::Real || *ItemOf<double>(record, item) != 0;
}

std::string ValueText(const IKeywordRecordData& record, const RuleItem& item)
{
    if (!item.IsThere())
        return "";
    const IKeywordDataMD& md = ItemMDOf(record, item);
    return ToText(md, ItemValue(md, record.GetData(item.index)));
}

RecordKeys::RecordKeys(const IKeywordRecordData& record, const std::vector<RuleItem>& items,
    const RuleItem& last, std::size_t required)
{
    TextHash hash;
    const std::size_t single = items.size() - (last.IsThere() ? 1 : 0);
    for (std::size_t i = 0; i < single; ++i) {
        if (AddItem(record, items[i], hash, hasZero))
            continue;
        if (i < required)
            return;
        AddText("*", hash);
        hasZero = true;
    }
    if (!last.IsThere()) {
        keys.push_back(hash.Get());
        return;
    }
    constexpr long long longest = 1'000; // a longer run is a mistake that others report
    const long long first = std::max(NumberOf(record, items.back()), 1LL);
    const long long end = NumberOf(record, last);
    for (long long at = first; at <= end && end - first < longest; ++at) {
        TextHash key = hash;
        AddNumber(at, key);
        keys.push_back(key.Get());
    }
}

std::uint64_t KeyOfName(const IKeywordRecordData& record, const RuleItem& item)
{
    if (!HasItem(record, item))
        return 0;
    TextHash hash;
    if (item.type == MDType::String) {
        const std::string& name = *ItemOf<std::string>(record, item);
        if (name.find_first_of("*?") != std::string::npos)
            return 0;
        AddText(name, hash);
    } else {
        AddText(ValueText(record, item), hash);
    }
    return hash.Get();
}

} // namespace Veld::Quor::Core::Decks
