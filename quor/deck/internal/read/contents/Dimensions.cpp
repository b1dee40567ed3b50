#include "quor/deck/internal/read/contents/Dimensions.h"

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/values/SizeText.h"
#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;
using Core::Service::Optional;

namespace {

using MDType = IKeywordDataMD::MDType;

Optional<int> ValueOf(const IKeywordData& record, int index)
{
    return *static_cast<const Optional<int>*>(static_cast<const IKeywordRecordData&>(record).GetData(index));
}

constexpr Dimensions::Given notKnown = {-1, 0, false};

/// In capitals; empty if the record has none.
std::string FirstText(const IKeywordData& data)
{
    if (KeywordUtils::GetMDType(data.GetMD()) != MDType::Record)
        return {};
    const auto& record = static_cast<const IKeywordRecordMD&>(*data.GetMD());
    for (int i = 0; i < record.GetSize(); ++i) {
        if (KeywordUtils::GetMDType(record.GetItemMD(i)) != MDType::String)
            continue;
        const void* const text = static_cast<const IKeywordRecordData&>(data).GetData(i);
        return ToUpper(static_cast<const Optional<std::string>*>(text)->ValueOr(""));
    }
    return {};
}

/// Empty if the keyword doesn't say it.
std::string ChosenSize(const SizeRule& rule, const IKeywordData* data, SimulatorType::Enum simulator)
{
    if (rule.item.empty())
        return rule.sizes.back();
    if (!data || KeywordUtils::GetMDType(data->GetMD()) != MDType::Record)
        return {};
    const auto& record = static_cast<const IKeywordRecordMD&>(*data->GetMD());
    for (int i = 0; i < record.GetSize(); ++i) {
        const IKeywordDataMD& item = *record.GetItemMD(i);
        if (ItemName(item) != rule.item)
            continue;
        const ScalarValue given = ItemValue(item, static_cast<const IKeywordRecordData&>(*data).GetData(i));
        const std::string word = ToText(item, IsGiven(given) ? given : DefaultOf(item, simulator).value);
        const auto known = std::find(rule.words.begin(), rule.words.end(), word);
        return known == rule.words.end() ? ""
                                         : rule.sizes[static_cast<std::size_t>(known - rule.words.begin())];
    }
    return {};
}

/// The whole numbers of a record, with their indices.
template <class Visit>
void ForEachSize(const IKeywordData& data, Visit visit)
{
    if (KeywordUtils::GetMDType(data.GetMD()) != MDType::Record)
        return;
    const auto& record = static_cast<const IKeywordRecordMD&>(*data.GetMD());
    for (int i = 0; i < record.GetSize(); ++i) {
        if (KeywordUtils::GetMDType(record.GetItemMD(i)) == MDType::Integer)
            visit(static_cast<const IKeywordIntegerMD&>(*record.GetItemMD(i)), i);
    }
}

} // namespace

Dimensions::Dimensions(const LanguageIndex& language, SimulatorType::Enum simulator)
    : simulator_(simulator)
    , choices_(language.GetRules().sizes)
    , frames_(1)
{
    for (const SizeRule& rule : choices_)
        chosen_[rule.name] = rule.sizes.front();
    for (const IKeywordIntegerMD* const item : language.GetSizes()) {
        if (const Optional<int> value = item->GetDefault(simulator))
            defaults_.emplace(item->GetName(), *value);
    }
}

void Dimensions::Add(const std::string& name, const IKeywordData& data, std::uint32_t keyword)
{
    ForEachSize(data, [&](const IKeywordIntegerMD& item, int i) {
        const Optional<int> given = ValueOf(data, i);
        const Optional<int> value = given ? given : item.GetDefault(simulator_);
        if (!value)
            return;
        const Given size = {*value, keyword, !given};
        const std::string own = name + '.' + item.GetName();
        Sizes& frame = frames_.back();
        const auto other = frame.find(item.GetName());
        const bool isOfOther = other != frame.end() && frame.count(own) == 0;
        if (!isOfOther || other->second.value < size.value || other->second.isDefault)
            frame[item.GetName()] = size;
        frame[own] = size;
    });
}

void Dimensions::NameGrid(const IKeywordData& record)
{
    const std::string name = FirstText(record);
    Sizes& frame = frames_.back();
    const auto known = grids_.find(name);
    if (frame.count("NX") > 0)
        grids_[name] = frame;
    else if (known != grids_.end())
        frame = known->second;
    else
        frame = {{"NX", notKnown}, {"NY", notKnown}, {"NZ", notKnown}};
}

void Dimensions::Choose(const std::string& name, const IKeywordData* data, bool isKnown)
{
    for (const SizeRule& rule : choices_) {
        if (rule.keyword == name)
            chosen_[rule.name] = isKnown ? ChosenSize(rule, data, simulator_) : std::string();
    }
}

void Dimensions::DoubtAllOf(const IKeywordData& data)
{
    ForEachSize(data, [this](const IKeywordIntegerMD& item, int) {
        doubted_.insert(item.GetName());
        reported_.insert(item.GetName());
    });
}

std::optional<Dimensions::Difference> Dimensions::FindDifference(
    const IKeywordData& data, const std::string& keyword) const
{
    std::optional<Difference> first;
    ForEachSize(data, [&](const IKeywordIntegerMD& item, int i) {
        const Optional<int> value = ValueOf(data, i);
        const std::optional<Given> other = FindGiven(keyword + '.' + item.GetName());
        if (!first && value && other && *value != other->value)
            first = {item.GetName(), *value, *other};
    });
    return first;
}

void Dimensions::SetBox(const IKeywordData& data)
{
    box_.clear();
    Numbers box;
    const char* const names[] = {"NX", "NY", "NZ"};
    constexpr MDType::Enum bound = MDType::Integer;
    if (!IsRecordOf(data.GetMD(), {bound, bound, bound, bound, bound, bound}))
        return;
    for (int i = 0; i < 3; ++i) {
        const Optional<int> first = ValueOf(data, 2 * i);
        const Optional<int> last = ValueOf(data, 2 * i + 1);
        const std::optional<long long> whole = Find(names[i]);
        if (last || whole)
            box[names[i]] = (last ? *last : *whole) - first.ValueOr(1) + 1;
    }
    box_ = std::move(box);
}

std::optional<long long> Dimensions::Find(const std::string& name) const
{
    const auto size = box_.find(name);
    if (size == box_.end())
        return FindOfGrid(name);
    return size->second > 0 ? std::optional(size->second) : std::nullopt; // a box that is inside out
}

std::optional<long long> Dimensions::FindWhole(const std::string& name) const
{
    return doubted_.count(name) > 0 ? std::nullopt : FindOfGrid(name);
}

std::optional<long long> Dimensions::FindOfGrid(const std::string& name) const
{
    if (const auto given = FindGiven(name))
        return given->value < 0 ? std::nullopt : std::optional(given->value);
    if (const auto size = defaults_.find(name); size != defaults_.end())
        return size->second;
    const auto chosen = chosen_.find(name);
    if (chosen == chosen_.end())
        return std::nullopt;
    return EvaluateSize(chosen->second, [&](const std::string& other) {
        return chosen_.count(other) > 0 ? std::nullopt : FindOfGrid(other);
    });
}

long long Dimensions::FindLimit(const std::string& name) const
{
    const long long size = FindWhole(name).value_or(0);
    return size > 0 ? size : std::numeric_limits<long long>::max();
}

std::optional<Dimensions::Given> Dimensions::FindGiven(const std::string& name) const
{
    for (auto frame = frames_.rbegin(); frame != frames_.rend(); ++frame) {
        if (const auto size = frame->find(name); size != frame->end())
            return size->second;
    }
    return std::nullopt;
}

} // namespace Veld::Quor::Core::Decks
