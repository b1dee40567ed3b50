#include "quor/deck/internal/rules/NumberChecks.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/values/ValueReader.h"
#include "quor/deck/internal/rules/ItemSelections.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/ICellPropertyInfo.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

std::string NameOfItem(const IKeywordRecordData& record, const RuleItem& item)
{
    return ItemName(*static_cast<const IKeywordRecordMD&>(*record.GetMD()).GetItemMD(item.index));
}

/// What numbers may be at most. The default of a size is that of a deck whose start is there.
long long LimitOfSize(const RuleContext& context, const std::string& size)
{
    const bool isBegun = !context.rules.whole.empty()
        && context.deck.keywords.front().syntax->GetName() == context.rules.whole.front();
    return isBegun || context.dimensions.FindGiven(size) ? context.dimensions.FindLimit(size)
                                                         : std::numeric_limits<long long>::max();
}

/// The least and the greatest number of an item; infinite if there is none.
std::pair<double, double> LimitsOf(const IKeywordDataMD& item)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (item.GetType() == IKeywordDataMD::MDType::Integer) {
        const auto& whole = static_cast<const IKeywordIntegerMD&>(item);
        return {whole.GetMin() ? *whole.GetMin() : -infinity, whole.GetMax() ? *whole.GetMax() : infinity};
    }
    if (item.GetType() != IKeywordDataMD::MDType::Real)
        return {-infinity, infinity};
    const auto& real = static_cast<const IKeywordRealMD&>(item);
    return {real.GetMin().ValueOr(-infinity), real.GetMax().ValueOr(infinity)};
}

} // namespace

TextRange NumberChecks::RangeOf(ValuePosition record, const RuleItem& item) const
{
    record.item = item.index;
    return FindValue(context_.deck, context_.GetKeyword(), record);
}

long long NumberChecks::LimitOf(std::size_t number)
{
    return limits_[number].Get(
        context_, [&] { return LimitOfSize(context_, context_.rules.indices[number].size); });
}

/// One finding for each size: a range that is outside has both its ends there.
bool NumberChecks::CheckIndices(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position)
{
    std::size_t reported = limits_.size();
    for (const RecordRules::Index& index : rules.indices) {
        if (HasItem(record, index.grid)) {
            reported = CheckIndexOfGrid(index, record, position) ? index.number : reported;
            continue;
        }
        const long long number = NumberOf(record, index.item);
        const long long most = LimitOf(index.number);
        if (number <= most || index.number == reported || HasItem(record, index.unless)
            || !Holds(index.when, record))
            continue;
        const IndexRule& rule = context_.rules.indices[index.number];
        reported = index.number;
        context_.reporter.ReportAs(rule.voice, RangeOf(position, index.item), Code::IndexOutside,
            fmt::format("{}: {} is {}, but {} is {}", context_.GetName(), NameOfItem(record, index.item),
                number, rule.size, most),
            "", {}, FindSize(context_.deck, context_.dimensions, rule.size));
    }
    return reported != limits_.size();
}

/// Whether it was reported.
bool NumberChecks::CheckIndexOfGrid(
    const RecordRules::Index& index, const IKeywordRecordData& record, const ValuePosition& at)
{
    const IndexRule& rule = context_.rules.indices[index.number];
    const std::string name = ValueText(record, index.grid);
    const auto grid = grids_.find(ToUpper(name));
    if (grid == grids_.end())
        return false;
    const auto size = grid->second.sizes.find(rule.size);
    const long long number = NumberOf(record, index.item);
    if (size == grid->second.sizes.end() || number <= size->second)
        return false;
    context_.reporter.ReportAs(rule.voice, RangeOf(at, index.item), Code::IndexOutside,
        fmt::format("{}: {} is {}, but {} of '{}' is {}", context_.GetName(), NameOfItem(record, index.item),
            number, rule.size, Shorten(name), size->second),
        "", {}, Related(context_.deck.keywords[grid->second.keyword], "the local grid is here"));
    return true;
}

void NumberChecks::FollowGrid(const IKeywordRecordData& record, const RuleItem& name)
{
    const auto& md = static_cast<const IKeywordRecordMD&>(*record.GetMD());
    Grid grid = {static_cast<std::uint32_t>(context_.deck.keywords.size() - 1), {}};
    for (int i = 0; i < md.GetSize(); ++i) {
        const RuleItem item = {i, KeywordUtils::GetMDType(md.GetItemMD(i))};
        if (item.type == IKeywordDataMD::MDType::Integer && HasItem(record, item))
            grid.sizes[md.GetItemMD(i)->GetName()] = NumberOf(record, item);
    }
    grids_[ToUpper(ValueText(record, name))] = std::move(grid);
}

/// The first number beyond a size.
void NumberChecks::CheckElements(const std::vector<std::size_t>& rules)
{
    const KeywordInstance& keyword = context_.GetKeyword();
    const auto numbers = As<int>(static_cast<const IKeywordListData&>(*keyword.data));
    for (const std::size_t number : rules) {
        const IndexRule& rule = context_.rules.indices[number];
        const long long size = LimitOfSize(context_, rule.size);
        const auto isBeyond = [&](int value) { return value > size && value > GreatestOf(arrays_[number]); };
        const auto beyond = std::find_if(numbers.begin(), numbers.end(), isBeyond);
        if (beyond == numbers.end())
            continue;
        const auto element = static_cast<std::size_t>(std::distance(numbers.begin(), beyond));
        context_.reporter.ReportAs(rule.voice, FindValue(context_.deck, keyword, {element}),
            Code::IndexOutside,
            fmt::format("{}: number {}, but {} is {}", context_.GetName(), *beyond, rule.size, size), "", {},
            FindSize(context_.deck, context_.dimensions, rule.size));
    }
}

/// Looked for once it is asked for.
long long NumberChecks::GreatestOf(Arrays& arrays) const
{
    for (const std::uint32_t index : arrays.keywords) {
        const auto numbers =
            As<int>(static_cast<const IKeywordListData&>(*context_.deck.keywords[index].data));
        for (const int number : numbers)
            arrays.greatest = std::max<long long>(arrays.greatest, number);
    }
    arrays.keywords.clear();
    return arrays.greatest;
}

void NumberChecks::FollowArray(const std::vector<std::size_t>& rules)
{
    const IKeywordData& data = *context_.GetKeyword().data;
    for (const std::size_t number : rules) {
        if (IsListOf(data.GetMD(), IKeywordDataMD::MDType::Integer))
            arrays_[number].keywords.push_back(static_cast<std::uint32_t>(context_.deck.keywords.size() - 1));
    }
}

void NumberChecks::LoseArray(const std::string& name)
{
    for (std::size_t number = 0; number < arrays_.size(); ++number) {
        if (IsArrayOf(context_.rules.indices[number], name))
            arrays_[number].greatest = std::numeric_limits<long long>::max();
    }
}

bool NumberChecks::IsArrayOf(const IndexRule& rule, const std::string& name) const
{
    if (rule.arrays.empty())
        return false;
    const auto syntaxes = context_.deck.language.LookupAll(ToUpper(name));
    return std::any_of(syntaxes.begin(), syntaxes.end(),
        [&](const IKeywordSyntax* syntax) { return Contains(rule.arrays, syntax->GetName()); });
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
    const long long most = LimitOfSize(context_, rule.size);
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
        const auto& name = *static_cast<const Optional<std::string>*>(record.GetData(item.array));
        const auto& value = *static_cast<const Optional<double>*>(record.GetData(item.value));
        if (!name || !value)
            continue;
        const std::string array = ToUpper(*name);
        for (std::size_t number = 0; number < arrays_.size(); ++number) {
            if (IsArrayOf(context_.rules.indices[number], array))
                arrays_[number].greatest = std::max(arrays_[number].greatest, static_cast<long long>(*value));
        }
        if (const RegionRule* const rule = FindRegion(array))
            CheckRegionNumber(*rule, array, *value, position, item.value);
        else
            CheckLimits(array, *value, position, item.value);
    }
}

void NumberChecks::CheckRegionNumber(
    const RegionRule& rule, const std::string& array, double value, const ValuePosition& record, int item)
{
    const long long most = LimitOfSize(context_, rule.size);
    if (value > static_cast<double>(most) && context_.dimensions.IsFirstReport(rule.size))
        context_.reporter.ReportAs(rule.voice, RangeOf(record, {item}), Code::RegionOutside,
            fmt::format("{}: number {} for {}, but {}, the number of {}, is {}", context_.GetName(), value,
                array, rule.size, rule.what, most),
            fmt::format("correct the number, or increase {}", rule.size), {},
            FindSize(context_.deck, context_.dimensions, rule.size));
}

/// A number that the array itself could not have.
void NumberChecks::CheckLimits(const std::string& array, double value, const ValuePosition& record, int item)
{
    const IKeywordSyntax* const syntax = context_.deck.language.Lookup(array, context_.GetKeyword().section);
    const IKeywordDataMD* const list = syntax ? syntax->GetDataMD() : nullptr;
    if (!list || !syntax->GetCellPropertyInfo() || list->GetType() != IKeywordDataMD::MDType::List)
        return;
    const auto limits = LimitsOf(*static_cast<const IKeywordListMD&>(*list).GetItemMD());
    if (value < limits.first || value > limits.second)
        context_.reporter.Report(RangeOf(record, {item}), Code::OutOfRange,
            OutOfRangeText(
                fmt::format("{}, {}", context_.GetName(), array), value, limits.first, limits.second));
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
