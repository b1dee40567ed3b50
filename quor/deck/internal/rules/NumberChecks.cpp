#include "quor/deck/internal/rules/NumberChecks.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

const IKeywordDataMD& ItemMDOf(const IKeywordRecordData& record, int item)
{
    return *static_cast<const IKeywordRecordMD&>(*record.GetMD()).GetItemMD(item);
}

/// Of an item that is a whole number.
Optional<int> NumberOf(const IKeywordRecordData& record, int item)
{
    return *static_cast<const Optional<int>*>(record.GetData(item));
}

bool HasItem(const IKeywordRecordData& record, int item)
{
    return item >= 0 && IsGiven(ItemValue(ItemMDOf(record, item), record.GetData(item)));
}

} // namespace

TextRange NumberChecks::RangeOf(ValuePosition record, int item) const
{
    record.item = item;
    return FindValue(deck_, deck_.keywords.back(), record);
}

void NumberChecks::StartKeyword()
{
    for (std::size_t i = 0; i < sizes_.size(); ++i)
        sizes_[i] = dimensions_.FindWhole(rules_.indices[i].size);
}

void NumberChecks::CheckIndices(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position) const
{
    for (const RecordRules::Index& rule : rules.indices) {
        const Optional<int> number = NumberOf(record, rule.item);
        if (!number || HasItem(record, rule.unless))
            continue;
        const auto& most = sizes_[rule.rule];
        const std::string& size = rules_.indices[rule.rule].size;
        if (most && *number > *most)
            reporter_.Report(RangeOf(position, rule.item), Code::IndexOutside,
                fmt::format("{}: {} is {}, but {} is {}", deck_.keywords.back().syntax->GetName(),
                    ItemName(ItemMDOf(record, rule.item)), *number, size, *most),
                "", {}, FindSize(deck_, dimensions_, size));
    }
}

void NumberChecks::CheckOrders(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position) const
{
    for (const RecordRules::Order& rule : rules.orders) {
        const Optional<int> first = NumberOf(record, rule.first);
        const Optional<int> last = NumberOf(record, rule.last);
        if (first && last && *first > *last && *last > 0)
            reporter_.Report(RangeOf(position, rule.first), Code::IndexOrder,
                fmt::format("{}: {} is {}, but {} is {}", deck_.keywords.back().syntax->GetName(),
                    ItemName(ItemMDOf(record, rule.first)), *first, ItemName(ItemMDOf(record, rule.last)),
                    *last),
                "write the lower number first");
    }
}

void NumberChecks::CheckRegion(const RegionRule& rule) const
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const auto most = dimensions_.FindWhole(rule.size);
    if (!most || !IsListOf(keyword.data->GetMD(), IKeywordDataMD::MDType::Integer))
        return;
    const auto numbers = As<int>(static_cast<const IKeywordListData&>(*keyword.data));
    const auto highest = std::max_element(numbers.begin(), numbers.end());
    if (highest == numbers.end() || *highest <= *most)
        return;
    const auto cell = static_cast<std::size_t>(std::distance(numbers.begin(), highest));
    reporter_.Report(FindValue(deck_, keyword, {cell}), Code::RegionOutside,
        fmt::format("{}: number {} in cell {}, but {}, the number of {}, is {}", keyword.syntax->GetName(),
            *highest, cell + 1, rule.size, rule.what, *most),
        fmt::format("correct the number, or increase {}", rule.size), {},
        FindSize(deck_, dimensions_, rule.size));
}

void NumberChecks::CheckAssignments(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position) const
{
    for (const RecordRules::Assignment& item : rules.assignments) {
        const auto& array = *static_cast<const Optional<std::string>*>(record.GetData(item.array));
        const auto& value = *static_cast<const Optional<double>*>(record.GetData(item.value));
        const RegionRule* const rule = array && value ? FindRegion(ToUpper(*array)) : nullptr;
        const auto most = rule ? dimensions_.FindWhole(rule->size) : std::nullopt;
        if (most && *value > static_cast<double>(*most))
            reporter_.Report(RangeOf(position, item.value), Code::RegionOutside,
                fmt::format("{}: number {} for {}, but {}, the number of {}, is {}",
                    deck_.keywords.back().syntax->GetName(), *value, ToUpper(*array), rule->size, rule->what,
                    *most),
                fmt::format("correct the number, or increase {}", rule->size), {},
                FindSize(deck_, dimensions_, rule->size));
    }
}

/// Null if there is no rule for the array.
const RegionRule* NumberChecks::FindRegion(const std::string& array) const
{
    for (const RegionRule& rule : rules_.regions) {
        if (std::find(rule.arrays.begin(), rule.arrays.end(), array) != rule.arrays.end())
            return &rule;
    }
    return nullptr;
}

} // namespace Veld::Quor::Core::Decks
