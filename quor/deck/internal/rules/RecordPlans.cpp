#include "quor/deck/internal/rules/ItemSelections.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <algorithm>

// What rules say of a record but for names.

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

RuleItem FindNumber(const IKeywordDataMD& record, const std::string& name)
{
    const RuleItem item = FindRuleItem(record, name);
    return item.type == MDType::Integer ? item : RuleItem();
}

/// Empty if the record lacks one of them.
std::vector<RuleItem> FindAllItems(const IKeywordDataMD& record, const std::vector<std::string>& names)
{
    std::vector<RuleItem> items;
    for (const std::string& name : names) {
        items.push_back(FindRuleItem(record, name));
        if (!items.back().IsThere())
            return {};
    }
    return items;
}

bool IsOneText(const std::vector<RuleItem>& items)
{
    return items.size() == 1 && items.front().type == MDType::String;
}

/// Most requirements are about one item with choices, and so few of them are to be looked at for a record.
void AddDecider(const IKeywordDataMD& md, RecordRules& record)
{
    const auto isOfChoice = [](const RecordRules::Requirement& rule) { return rule.when.choice >= 0; };
    const auto first = std::find_if(record.requirements.begin(), record.requirements.end(), isOfChoice);
    int choices = 0;
    if (first != record.requirements.end()) {
        record.decider = first->when.item;
        const auto& items = static_cast<const IKeywordRecordMD&>(md);
        choices = static_cast<const IKeywordChoiceMD*>(items.GetItemMD(record.decider.index))->NumChoices();
    }
    record.requirementsOf.resize(static_cast<std::size_t>(choices) + 1);
    for (std::size_t number = 0; number < record.requirements.size(); ++number) {
        const ItemCondition& when = record.requirements[number].when;
        const bool isDecided = when.choice >= 0 && when.item.index == record.decider.index;
        for (int choice = -1; choice < choices; ++choice) {
            if (!isDecided || when.choice == choice)
                record.requirementsOf[static_cast<std::size_t>(choice) + 1].push_back(number);
        }
    }
}

} // namespace

void RulePlans::AddNumbers(const Key& key, const IKeywordDataMD& md, RecordRules& record) const
{
    for (std::size_t number = 0; number < rules_.indices.size(); ++number) {
        const IndexRule& rule = rules_.indices[number];
        if (!IsAbout(rule.where, *key.first, key.second))
            continue;
        for (const std::string& name : rule.where.items) {
            if (const RuleItem item = FindNumber(md, name); item.IsThere())
                record.indices.push_back({number, item, FindRuleItem(md, rule.where.unless),
                    FindRuleItem(md, rule.grid), FindCondition(md, rule.where.when)});
        }
    }
    for (const AssignmentRule& rule : rules_.assignments) {
        const RuleItem array = FindRuleItem(md, rule.array);
        const RuleItem value = FindRuleItem(md, rule.value);
        if (array.type == MDType::String && value.type == MDType::Real
            && Contains(rule.keywords, key.first->GetName()))
            record.assignments.push_back({array.index, value.index});
    }
    for (const OrderRule& rule : rules_.orders) {
        const RuleItem first = FindNumber(md, rule.where.items.front());
        const RuleItem last = FindNumber(md, rule.where.items.back());
        if (first.IsThere() && last.IsThere() && IsAbout(rule.where, *key.first, key.second))
            record.orders.push_back({&rule, first, last});
    }
}

/// The last item of a run must be a number, as the one before it.
void RulePlans::AddMembers(const Key& key, const IKeywordDataMD& md, RecordRules& record) const
{
    for (std::size_t number = 0; number < rules_.members.size(); ++number) {
        const MemberRule& rule = rules_.members[number];
        const RuleItem owner = FindRuleItem(md, rule.owner);
        const std::vector<RuleItem> items = FindAllItems(md, rule.items);
        if (Contains(rule.keywords, key.first->GetName()) && rule.owner.empty() != owner.IsThere()
            && items.size() == rule.items.size())
            record.members.push_back(
                {&rule, number, owner, items, FindNumber(md, rule.last), FindCondition(md, rule.when)});
    }
    for (const LengthRule& rule : rules_.lengths) {
        const RuleItem item = FindRuleItem(md, rule.item);
        if (item.type == MDType::List && Contains(rule.keywords, key.first->GetName()))
            record.lengths.push_back({&rule, item});
    }
    for (std::size_t number = 0; number < rules_.distinct.size(); ++number) {
        const DistinctRule& rule = rules_.distinct[number];
        const std::vector<RuleItem> items = FindAllItems(md, rule.items);
        if (Contains(rule.keywords, key.first->GetName()) && !items.empty())
            record.distinct.push_back({&rule, number, items, FindNumber(md, rule.last),
                FindCondition(md, rule.when), IsOneText(items) && rule.last.empty()});
    }
}

void RulePlans::AddRequirements(const Key& key, const IKeywordDataMD& md, RecordRules& record) const
{
    for (const RequireRule& rule : rules_.requirements) {
        const ItemCondition when = FindCondition(md, rule.when);
        const std::vector<RuleItem> items = FindAllItems(md, rule.items);
        if (!Contains(rule.keywords, key.first->GetName()) || !when.item.IsThere()
            || items.size() != rule.items.size())
            continue;
        RecordRules::Requirement requirement = {&rule, when, items, {}};
        for (const RecordCondition& unless : rule.unless)
            requirement.unless.push_back(FindCondition(md, unless));
        record.requirements.push_back(std::move(requirement));
    }
    AddDecider(md, record);
}

void RulePlans::AddTrees(const Key& key, const IKeywordDataMD& md, RecordRules& record) const
{
    for (std::size_t number = 0; number < rules_.trees.size(); ++number) {
        const TreeRule& rule = rules_.trees[number];
        const RuleItem child = FindRuleItem(md, rule.child);
        const RuleItem parent = FindRuleItem(md, rule.parent);
        const RuleItem member = FindRuleItem(md, rule.member);
        if (Contains(rule.keywords, key.first->GetName()) && child.IsThere() && parent.IsThere())
            record.trees.push_back({number, false, child, parent});
        if (Contains(rule.memberKeywords, key.first->GetName()) && child.IsThere() && member.IsThere())
            record.trees.push_back({number, true, member, child});
    }
}

/// The owner and the numbers may be in two records of one keyword.
void RulePlans::AddMatches(const Key& key, const IKeywordDataMD& md, RecordRules& record) const
{
    for (std::size_t number = 0; number < rules_.matches.size(); ++number) {
        for (const MatchRule::Use& use : rules_.matches[number].uses) {
            const std::vector<std::string> names(use.items.begin() + 1, use.items.end());
            const RuleItem owner = FindRuleItem(md, use.items.front());
            const std::vector<RuleItem> numbers = FindAllItems(md, names);
            if (Contains(use.keywords, key.first->GetName()) && (owner.IsThere() || !numbers.empty()))
                record.matches.push_back(
                    {number, &use, owner, numbers, FindNumber(md, use.last), FindRuleItem(md, use.unless)});
        }
    }
}

} // namespace Veld::Quor::Core::Decks
