#include "quor/deck/internal/rules/RuleTexts.h"

#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/rules/Choices.h"
#include "quor/deck/internal/rules/ItemSelections.h"
#include "quor/deck/internal/rules/RulePlans.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// Collects the rules of one keyword.
class RuleTexts {
public:
    explicit RuleTexts(const RuleSet& rules)
        : rules_(rules)
    {
    }

    void AddKeyword(const std::string& name, const KeywordRules& plan);
    void AddRecord(const RecordRules& rules, const IKeywordDataMD& md);
    std::vector<KeywordRule> Take() { return std::move(all_); }

private:
    void Add(const char* kind, const std::string& what, const std::string& item, std::string text);
    void AddName(const RecordRules::Name& name, const std::string& item);
    void AddNumbers(const RecordRules& rules, const IKeywordDataMD& md);
    void AddCounts(const RecordRules& rules);
    void AddMatch(const RecordRules::Match& match);

    const RuleSet& rules_;
    std::vector<KeywordRule> all_;
};

/// The record that the data are, or of which they are a list; null if there is none.
const IKeywordDataMD* FindRecord(const IKeywordDataMD* md)
{
    if (KeywordUtils::GetMDType(md) == IKeywordDataMD::MDType::List)
        md = static_cast<const IKeywordListMD&>(*md).GetItemMD();
    return KeywordUtils::GetMDType(md) == IKeywordDataMD::MDType::Record ? md : nullptr;
}

const IKeywordDataMD& ItemAt(const IKeywordDataMD& record, int item)
{
    return *static_cast<const IKeywordRecordMD&>(record).GetItemMD(item);
}

std::string ConditionText(const RecordCondition& condition)
{
    return condition.word.empty() ? fmt::format("{} has a value", condition.item)
                                  : fmt::format("{} is {}", condition.item, condition.word);
}

void RuleTexts::Add(const char* kind, const std::string& what, const std::string& item, std::string text)
{
    const auto isSame = [&](const KeywordRule& rule) { return rule.kind == kind && rule.text == text; };
    if (std::none_of(all_.begin(), all_.end(), isSame))
        all_.push_back({kind, what, item, std::move(text)});
}

void RuleTexts::AddName(const RecordRules::Name& name, const std::string& item)
{
    const std::string& noun = rules_.names[name.kind].noun;
    const std::string& subject = item.empty() ? "each name" : item;
    if (name.isDefinition)
        Add("defines", noun, item, fmt::format("{} defines a name: {}", subject, noun));
    else
        Add("refers-to", noun, item,
            fmt::format("{} refers to a name that is defined{}: {}", subject,
                name.mayComeFirst ? "" : " before it", noun));
}

void RuleTexts::AddRecord(const RecordRules& rules, const IKeywordDataMD& md)
{
    for (const RecordRules::Name& name : rules.names)
        AddName(name, ItemName(ItemAt(md, name.item)));
    AddNumbers(rules, md);
    AddCounts(rules);
    for (const RecordRules& inner : rules.inner)
        AddRecord(inner, *FindRecord(&ItemAt(md, inner.item)));
}

void RuleTexts::AddNumbers(const RecordRules& rules, const IKeywordDataMD& md)
{
    for (const RecordRules::Index& index : rules.indices) {
        const std::string& size = rules_.indices[index.number].size;
        const std::string item = ItemName(ItemAt(md, index.item.index));
        Add("index", size, item, fmt::format("{} is at most {}", item, size));
    }
    for (const RecordRules::Order& order : rules.orders) {
        const std::string first = ItemName(ItemAt(md, order.first.index));
        const std::string last = ItemName(ItemAt(md, order.last.index));
        Add("order", last, first, fmt::format("{} is at most {}", first, last));
    }
    for (const RecordRules::Requirement& requirement : rules.requirements) {
        const RequireRule& rule = *requirement.rule;
        std::vector<std::string> unless;
        for (const RecordCondition& condition : rule.unless)
            unless.push_back(ConditionText(condition));
        const std::string what = Choices(rule.items.empty() ? rule.present : rule.items);
        Add("require", what, rule.when.item,
            fmt::format("if {}, {}{} is required{}", ConditionText(rule.when),
                rule.items.empty() ? "keyword " : "", what,
                unless.empty() ? "" : fmt::format(", unless {}", Choices(unless))));
    }
}

void RuleTexts::AddCounts(const RecordRules& rules)
{
    for (const RecordRules::Member& member : rules.members) {
        const MemberRule& rule = *member.rule;
        Add("members", rule.limit.item, rule.owner,
            fmt::format("at most {} of {} {}{}", rule.limit.item, rule.limit.keyword, rule.what,
                rule.owner.empty() ? "" : " for each " + rule.owner));
    }
    for (const RecordRules::Length& length : rules.lengths)
        Add("length", length.rule->limit.item, length.rule->item,
            fmt::format("{} has at most {} of {} {}", length.rule->item, length.rule->limit.item,
                length.rule->limit.keyword, length.rule->what));
    for (const RecordRules::Distinct& distinct : rules.distinct) {
        const DistinctRule& rule = *distinct.rule;
        const std::string items = fmt::format("{}", fmt::join(rule.items, ", "));
        Add("distinct", "", items,
            rule.isOfOthers ? fmt::format(
                "one of {} for the same {} in a report step", fmt::join(rule.keywords, ", "), items)
                : rule.isOfStep ? fmt::format("one record for the same {} in a report step", items)
                                : fmt::format("one record for the same {}", items));
    }
    for (const RecordRules::Match& match : rules.matches)
        AddMatch(match);
    for (const RecordRules::Tree& tree : rules.trees)
        Add("tree", rules_.trees[tree.number].noun, "",
            fmt::format("builds a tree: {}", rules_.trees[tree.number].noun));
}

void RuleTexts::AddMatch(const RecordRules::Match& match)
{
    const std::vector<std::string>& items = match.use->items;
    const std::string& what = rules_.matches[match.number].what;
    if (match.numbers.empty() && items.size() > 1) // the record of the owner
        return;
    if (match.use->isDefinition)
        Add("match", what, items.back(), fmt::format("{} define a {}", fmt::join(items, ", "), what));
    else
        Add("match", what, items.back(),
            fmt::format("{} refer to a {} that is defined", fmt::join(items, ", "), what));
}

void RuleTexts::AddKeyword(const std::string& name, const KeywordRules& plan)
{
    for (const RecordRules::Name& element : plan.elements)
        AddName(element, "");
    for (const LengthRule* const rule : plan.tables)
        Add("length", rule->limit.item, "",
            fmt::format(
                "each table has at most {} of {} {}", rule->limit.item, rule->limit.keyword, rule->what));
    for (const std::size_t number : plan.indices)
        Add("index", rules_.indices[number].size, "",
            fmt::format("each number is at most {}", rules_.indices[number].size));
    if (plan.region)
        Add("region", plan.region->size, "",
            fmt::format("each number is at most {}, the number of {}", plan.region->size, plan.region->what));
    if (plan.once)
        Add("once", "", "", "a deck has it once");
    if (plan.exclusive)
        Add("exclusive", plan.exclusive->what, "",
            fmt::format("a deck has one {}: {}", plan.exclusive->what, Choices(plan.exclusive->keywords)));
    if (plan.isOpener)
        Add("open", "", "", "it may define names that the deck does not show");
    for (const NeedRule& rule : rules_.needs) {
        if (!Contains(rule.anyOf, name))
            continue;
        Add("need", rule.what, "",
            fmt::format("{} needs {}: {}{}", rule.in, rule.what, Choices(rule.anyOf),
                rule.when.empty() ? "" : fmt::format(", with {}", fmt::join(rule.when, " and "))));
    }
}

} // namespace

std::vector<KeywordRule> DescribeRules(const RuleSet& rules, const IKeywordSyntax& syntax)
{
    RuleTexts texts(rules);
    RulePlans plans(rules);
    const IKeywordDataMD* const record = FindRecord(syntax.GetDataMD());
    for (const SectionType::Enum section : syntax.GetValidSections()) {
        const KeywordRules& plan = plans.Get(syntax, section);
        texts.AddKeyword(syntax.GetName(), plan);
        if (record)
            texts.AddRecord(plan.record, *record);
    }
    return texts.Take();
}

} // namespace Veld::Quor::Core::Decks
