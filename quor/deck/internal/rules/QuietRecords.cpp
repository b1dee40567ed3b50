#include "quor/deck/internal/rules/QuietRecords.h"

#include <algorithm>
#include <string>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void QuietRecords::Begin(const RecordRules& rules)
{
    rules_ = &rules;
    isQuiet_ = true;
    isSorted_ = true;
    named_.clear();
    Forget();
    distinctOfAll_ = 0;
    for (std::size_t i = 0; i < rules.distinct.size(); ++i)
        distinctOfAll_ |= rules.distinct[i].when.IsThere() ? 0 : 1U << i;
}

void QuietRecords::LookAt(Records records)
{
    isQuiet_ = isQuiet_ && FindNames(records) && AreSettled(records) && AreMet(records);
    if (isQuiet_)
        FindDistinct(records);
}

/// False if a record has none.
bool QuietRecords::FindNames(Records records)
{
    const RuleItem& item = rules_->nameTexts.front();
    const std::size_t before = named_.size();
    named_.resize(before + records.size());
    bool haveAll = true;
    bool isSorted = isSorted_;
    std::uint32_t number = before == 0 ? 0 : named_[before - 1].name;
    std::uint32_t least = before == 0 ? 0 : number + 1;
    ForEachItem<std::string>(records, item, [&](std::size_t i, const auto& name) {
        haveAll = haveAll && name;
        number = name ? numbers_.GetAfter(number, *name) : 0;
        named_[before + i] = {number, distinctOfAll_};
        isSorted = isSorted && number >= least;
        least = number + 1;
    });
    isSorted_ = isSorted;
    return haveAll;
}

bool QuietRecords::AreSettled(Records records)
{
    const std::span names = std::span(named_).last(records.size());
    keys_.assign(records.size(), KeyOfParts());
    AddConditions(*rules_, records, keys_);
    SettledNames::Last& last = settled_.GetLast(rules_->number);
    last.Reserve(numbers_.GetSize(), records.size());
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        if (settled_.Has(last, names[i].name, keys_[i].Get()))
            continue;
        if (!IsSettled(*records[i]))
            return false;
        settled_.Add(last, names[i].name, keys_[i].Get());
    }
    return true;
}

/// Whether the record names what others have named.
bool QuietRecords::IsSettled(const Record& record)
{
    return std::all_of(rules_->names.begin(), rules_->names.end(),
        [&](const RecordRules::Name& rule) { return !Holds(rule.when, record) || IsSettled(rule, record); });
}

bool QuietRecords::IsSettled(const RecordRules::Name& rule, const Record& record)
{
    const RuleItem item = {rule.item, rule.type};
    if (rule.isDefinition)
        return false;
    if (rule.type == IKeywordDataMD::MDType::Integer) {
        const int number = item.In<int>(record).ValueOr(0);
        return number <= 0 || names_.IsSettled(rule, NumberName(number).Get());
    }
    const auto& name = item.In<std::string>(record);
    return !name || names_.IsSettled(rule, *name);
}

bool QuietRecords::AreMet(Records records) const
{
    return rules_->requirements.empty()
        || std::all_of(records.begin(), records.end(),
            [this](const Record* record) { return RecordChecks::AreMet(*rules_, *record); });
}

void QuietRecords::FindDistinct(Records records)
{
    const std::span names = std::span(named_).last(records.size());
    for (std::size_t rule = 0; rule < rules_->distinct.size(); ++rule) {
        const ItemCondition& when = rules_->distinct[rule].when;
        if (when.IsThere())
            ForEachHolding(records, when,
                [&](std::size_t i, bool holds) { names[i].distinct |= holds ? 1U << rule : 0; });
    }
}

bool QuietRecords::Follow(const RecordRules& rules, const IKeywordListData& list)
{
    if (rules_ != &rules || !IsOf(list))
        return false;
    LookAtLast();
    return isQuiet_ && named_.size() == static_cast<std::size_t>(list.GetSize())
        && checks_.AddDistinct(rules, named_, isSorted_);
}

} // namespace Veld::Quor::Core::Decks
