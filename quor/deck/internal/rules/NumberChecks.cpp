#include "quor/deck/internal/rules/NumberChecks.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/rules/ItemSelections.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

std::string NameOfItem(const IKeywordRecordData& record, const RuleItem& item)
{
    return ItemName(*static_cast<const IKeywordRecordMD&>(*record.GetMD()).GetItemMD(item.index));
}

} // namespace

TextRange NumberChecks::RangeOf(ValuePosition record, const RuleItem& item) const
{
    record.item = item.index;
    return FindValue(context_.deck, context_.GetKeyword(), record);
}

void NumberChecks::StartKeyword()
{
    ++keyword_;
}

/// Looked up when a rule first applies to the keyword.
long long NumberChecks::LimitOf(std::size_t number)
{
    Size& size = sizes_[number];
    if (size.keyword != keyword_)
        size = {keyword_, context_.dimensions.FindLimit(context_.rules.indices[number].size)};
    return size.limit;
}

/// One finding for each size: a range that is outside has both its ends there.
bool NumberChecks::CheckIndices(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position)
{
    std::size_t reported = sizes_.size();
    for (const RecordRules::Index& index : rules.indices) {
        const long long number = NumberOf(record, index.item);
        const long long most = LimitOf(index.number);
        if (number <= most || index.number == reported || HasItem(record, index.unless))
            continue;
        const IndexRule& rule = context_.rules.indices[index.number];
        reported = index.number;
        context_.reporter.ReportAs(rule.voice, RangeOf(position, index.item), Code::IndexOutside,
            fmt::format("{}: {} is {}, but {} is {}", context_.GetName(), NameOfItem(record, index.item),
                number, rule.size, most),
            "", {}, FindSize(context_.deck, context_.dimensions, rule.size));
    }
    return reported != sizes_.size();
}

void NumberChecks::CheckOrders(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position) const
{
    for (const RecordRules::Order& order : rules.orders) {
        const long long first = NumberOf(record, order.first);
        const long long last = NumberOf(record, order.last);
        if (first > last && last > 0)
            context_.reporter.ReportAs(order.rule->voice, RangeOf(position, order.first), Code::IndexOrder,
                fmt::format("{}: {} is {}, but {} is {}", context_.GetName(), NameOfItem(record, order.first),
                    first, NameOfItem(record, order.last), last),
                "write the lower number first");
    }
}

/// A size is reported once: it is what is to be corrected.
void NumberChecks::CheckRegion(const RegionRule& rule)
{
    const KeywordInstance& keyword = context_.GetKeyword();
    const long long most = context_.dimensions.FindLimit(rule.size);
    if (!IsListOf(keyword.data->GetMD(), IKeywordDataMD::MDType::Integer)
        || HasUnknown(static_cast<const IKeywordListData&>(*keyword.data)))
        return;
    const auto numbers = As<int>(static_cast<const IKeywordListData&>(*keyword.data));
    const auto highest = std::max_element(numbers.begin(), numbers.end());
    if (highest == numbers.end() || *highest <= most || !context_.dimensions.IsFirstReport(rule.size))
        return;
    const auto cell = static_cast<std::size_t>(std::distance(numbers.begin(), highest));
    context_.reporter.ReportAs(rule.voice, FindValue(context_.deck, keyword, {cell}), Code::RegionOutside,
        fmt::format("{}: number {} in cell {}, but {}, the number of {}, is {}", context_.GetName(), *highest,
            cell + 1, rule.size, rule.what, most),
        fmt::format("correct the number, or increase {}", rule.size), {},
        FindSize(context_.deck, context_.dimensions, rule.size));
}

void NumberChecks::CheckAssignments(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position)
{
    for (const RecordRules::Assignment& item : rules.assignments) {
        const auto& array = *static_cast<const Optional<std::string>*>(record.GetData(item.array));
        const auto& value = *static_cast<const Optional<double>*>(record.GetData(item.value));
        const RegionRule* const rule = array && value ? FindRegion(ToUpper(*array)) : nullptr;
        if (!rule)
            continue;
        const long long most = context_.dimensions.FindLimit(rule->size);
        if (*value > static_cast<double>(most) && context_.dimensions.IsFirstReport(rule->size))
            context_.reporter.ReportAs(rule->voice, RangeOf(position, {item.value}), Code::RegionOutside,
                fmt::format("{}: number {} for {}, but {}, the number of {}, is {}", context_.GetName(),
                    *value, ToUpper(*array), rule->size, rule->what, most),
                fmt::format("correct the number, or increase {}", rule->size), {},
                FindSize(context_.deck, context_.dimensions, rule->size));
    }
}

/// Null if there is no rule for the array.
const RegionRule* NumberChecks::FindRegion(const std::string& array) const
{
    for (const RegionRule& rule : context_.rules.regions) {
        if (Contains(rule.arrays, array))
            return &rule;
    }
    return nullptr;
}

} // namespace Veld::Quor::Core::Decks
