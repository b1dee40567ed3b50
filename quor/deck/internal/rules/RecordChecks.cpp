#include "quor/deck/internal/rules/RecordChecks.h"

#include "quor/deck/internal/read/data/DataVariables.h"
#include "quor/deck/internal/rules/Choices.h"
#include "quor/deck/internal/rules/RecordValues.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// A rate of 0 is a target; 0 is no number of a table.
bool IsGivenTarget(const IKeywordRecordData& record, const RuleItem& item)
{
    return item.type == IKeywordDataMD::MDType::Integer ? IsItemSet(record, item) : HasItem(record, item);
}

/// Whether the record gives what is required, or nothing is.
bool IsMet(const RecordRules::Requirement& requirement, const IKeywordRecordData& record)
{
    const auto isGiven = [&](const RuleItem& item) { return IsGivenTarget(record, item); };
    const auto holds = [&](const ItemCondition& condition) { return Holds(condition, record); };
    return !Holds(requirement.when, record)
        || std::any_of(requirement.items.begin(), requirement.items.end(), isGiven)
        || std::any_of(requirement.unless.begin(), requirement.unless.end(), holds);
}

/// Whether one of the items is a variable without a value, or a quantity of the user.
bool HasVariable(
    const KeywordInstance& keyword, const IKeywordRecordData& record, const std::vector<RuleItem>& items)
{
    const DataVariables* const variables = keyword.notes ? keyword.notes->variables.get() : nullptr;
    return variables && std::any_of(items.begin(), items.end(), [&](const RuleItem& item) {
        return variables->Find(record, item.index);
    });
}

std::string ReasonOf(const RequireRule& rule)
{
    return rule.when.word.empty() ? fmt::format("{} has a value", rule.when.item)
                                  : fmt::format("{} is {}", rule.when.item, rule.when.word);
}

/// "WELL P1", or "WELL P1, I 3" of several items.
std::string Text(const IKeywordRecordData& record, const RecordRules::Distinct& rule)
{
    std::string text;
    for (std::size_t i = 0; i < rule.items.size(); ++i) {
        if (HasItem(record, rule.items[i]))
            text += fmt::format(
                "{}{} {}", text.empty() ? "" : ", ", rule.rule->items[i], ValueText(record, rule.items[i]));
    }
    return text;
}

/// Those that may apply.
const std::vector<std::size_t>& RequirementsOf(const RecordRules& rules, const IKeywordRecordData& record)
{
    const int choice = rules.decider.IsThere() ? ChoiceOf(record, rules.decider) : -1;
    return rules.requirementsOf[static_cast<std::size_t>(choice) + 1];
}

} // namespace

void RecordChecks::StartKeyword()
{
    keyword_ = static_cast<std::uint32_t>(context_.deck.keywords.size() - 1);
    const bool isOfLastStep = step_ == context_.GetKeyword().step;
    step_ = context_.GetKeyword().step;
    for (std::size_t i = 0; i < ofKeys_.size(); ++i) {
        if (isOfLastStep && context_.rules.distinct[i].isOfStep)
            continue;
        ofNames_[i].Begin(keyword_);
        ofKeys_[i].Clear();
    }
}

void RecordChecks::CheckRequirements(
    const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    for (const std::size_t number : RequirementsOf(rules, record)) {
        const RecordRules::Requirement& requirement = rules.requirements[number];
        if (!IsMet(requirement, record) && !HasVariable(context_.GetKeyword(), record, requirement.items))
            ReportMissing(requirement, position);
    }
}

void RecordChecks::CheckDistinct(
    const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    for (const RecordRules::Distinct& rule : rules.distinct) {
        if (!Holds(rule.when, record))
            continue;
        if (!rule.isByName) {
            CheckKeys(rule, record, position);
        } else if (const auto& text = rule.items.front().In<std::string>(record)) {
            SeenNames& names = ofNames_[rule.number];
            const std::uint32_t name = names_.Get(*text);
            names.Reserve(names_.GetSize());
            if (names.Has(name))
                FollowRepeated(rule, names.Get(name), record, position);
            names.Set(name, SeenAt(position));
        }
    }
}

bool RecordChecks::AreMet(const RecordRules& rules, const Record& record)
{
    if (rules.requirements.empty())
        return true;
    const std::vector<std::size_t>& numbers = RequirementsOf(rules, record);
    return std::all_of(numbers.begin(), numbers.end(),
        [&](std::size_t number) { return IsMet(rules.requirements[number], record); });
}

/// Names that are sorted are distinct, and what is in one keyword alone need not be kept for another.
bool RecordChecks::AddDistinct(const RecordRules& rules, const NamedRecords& records, bool areSorted)
{
    const auto isMet = [&](std::size_t i) { return areSorted && !rules.distinct[i].rule->isOfStep; };
    for (std::size_t i = 0; i < rules.distinct.size(); ++i) {
        const std::size_t added = isMet(i) ? records.size() : AddNames(rules, i, records);
        if (added == records.size())
            continue;
        RemoveNames(rules, i, records, added);
        while (i-- > 0) {
            if (!isMet(i))
                RemoveNames(rules, i, records, records.size());
        }
        return false;
    }
    return true;
}

/// The number of records before the first whose name is there; all if there is none.
std::size_t RecordChecks::AddNames(
    const RecordRules& rules, std::size_t distinct, const NamedRecords& records)
{
    SeenNames& names = ofNames_[rules.distinct[distinct].number];
    names.Reserve(names_.GetSize());
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (!records[i].IsOf(distinct))
            continue;
        if (names.Has(records[i].name))
            return i;
        names.Set(records[i].name, {keyword_, static_cast<std::uint32_t>(i)});
    }
    return records.size();
}

void RecordChecks::RemoveNames(
    const RecordRules& rules, std::size_t distinct, const NamedRecords& records, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (records[i].IsOf(distinct))
            ofNames_[rules.distinct[distinct].number].Remove(records[i].name);
    }
}

/// A keyword that is required may come later: that is judged in the end.
void RecordChecks::ReportMissing(const RecordRules::Requirement& requirement, ValuePosition position)
{
    const RequireRule& rule = *requirement.rule;
    position.item = requirement.when.item.index;
    if (!rule.present.empty()) {
        if (isSure_ && presence_.IsBegun() && !IsSatisfied(rule))
            pending_.push_back({&rule, keyword_, position});
        return;
    }
    context_.reporter.ReportAs(rule.voice, FindValue(context_.deck, context_.GetKeyword(), position),
        Code::MissingItem,
        fmt::format(
            "{}: {}; expected a value for {}", context_.GetName(), ReasonOf(rule), Choices(rule.items)),
        fmt::format("add the value, or change {}", rule.when.item));
}

/// Whether the deck has what the rule wants, or the rule is not about it.
bool RecordChecks::IsSatisfied(const RequireRule& rule) const
{
    const auto isThere = [this](const std::string& name) { return presence_.Has(name); };
    return std::any_of(rule.present.begin(), rule.present.end(), isThere)
        || !std::all_of(rule.with.begin(), rule.with.end(), isThere);
}

std::set<std::string> RecordChecks::GetMissing() const
{
    std::set<std::string> missing;
    for (const Pending& pending : pending_) {
        if (!IsSatisfied(*pending.rule))
            missing.insert(pending.rule->present.begin(), pending.rule->present.end());
    }
    return missing;
}

void RecordChecks::EndDeck()
{
    if (pending_.empty()) // so may be the deck
        return;
    const SectionType::Enum last = context_.GetKeyword().section;
    for (const auto& [rule, index, position] : pending_) {
        const bool isCut = context_.deck.keywords[index].section == last
            && SectionType::ToString(last) != context_.rules.whole.back();
        const auto isReported = [&](const std::string& name) { return presence_.IsReported(name); };
        if (isCut || IsSatisfied(*rule)
            || std::any_of(rule->present.begin(), rule->present.end(), isReported))
            continue;
        const KeywordInstance& keyword = context_.deck.keywords[index];
        context_.reporter.ReportAs(rule->voice, FindValue(context_.deck, keyword, position),
            Code::MissingKeyword,
            fmt::format("{}: {}; expected keyword {} in the deck", keyword.syntax->GetName(), ReasonOf(*rule),
                Choices(rule->present)),
            fmt::format("add the keyword, or change {}", rule->when.item));
    }
}

/// One finding for a run.
void RecordChecks::CheckKeys(
    const RecordRules::Distinct& rule, const Record& record, const ValuePosition& position)
{
    RecordKeys(record, rule.items, rule.last, 1, names_).ForEach([&](std::uint64_t key) {
        const auto [seen, isNew] = ofKeys_[rule.number].Add(key, SeenAt(position));
        return isNew || !FollowRepeated(rule, std::exchange(*seen, SeenAt(position)), record, position);
    });
}

/// Whether it was reported.
bool RecordChecks::FollowRepeated(const RecordRules::Distinct& rule, const SeenRecord& first,
    const Record& record, const ValuePosition& position)
{
    const KeywordInstance& other = context_.deck.keywords[first.keyword];
    if (rule.rule->isOfOthers && other.syntax == context_.GetKeyword().syntax)
        return false;
    ValuePosition value = position;
    value.item = rule.items.front().index;
    context_.reporter.ReportAs(rule.rule->voice, FindValue(context_.deck, context_.GetKeyword(), value),
        Code::RepeatedRecord,
        rule.rule->isOfOthers
            ? fmt::format("{}: {} is in {} too", context_.GetName(), Shorten(Text(record, rule)),
                other.syntax->GetName())
            : fmt::format("{}: repeated record for {}", context_.GetName(), Shorten(Text(record, rule))),
        "correct the record, or remove one of them", {},
        {{RangeOf(other, first.element), "the first is here"}});
    return true;
}

} // namespace Veld::Quor::Core::Decks
