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

/// A variable without a value, or a quantity of the user.
bool IsVariable(const KeywordInstance& keyword, const IKeywordRecordData& record, const RuleItem& item)
{
    const DataVariables* const variables = keyword.notes ? keyword.notes->variables.get() : nullptr;
    return variables && item.IsThere() && variables->Find(record, item.index);
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
        ofNames_[i].Clear();
        ofKeys_[i].Clear();
    }
}

void RecordChecks::CheckRequirements(
    const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    for (const std::size_t number : RequirementsOf(rules, record)) {
        if (!IsMet(rules.requirements[number], record))
            ReportMissing(rules.requirements[number], position);
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
        } else if (const auto& name = rule.items.front().In<std::string>(record)) {
            const auto [seen, isNew] = ofNames_[rule.number].Add(names_.Get(*name), SeenAt(position));
            if (!isNew)
                Replace(rule, *seen, record, position);
        }
    }
}

bool RecordChecks::AreMet(const RecordRules& rules, const NamedRecords& records) const
{
    const auto isMet = [&](const NamedRecord& record) {
        const auto& requirements = RequirementsOf(rules, *record.record);
        return std::all_of(requirements.begin(), requirements.end(),
            [&](std::size_t number) { return IsMet(rules.requirements[number], *record.record); });
    };
    return rules.requirements.empty() || std::all_of(records.begin(), records.end(), isMet);
}

bool RecordChecks::AddDistinct(const RecordRules& rules, const NamedRecords& records)
{
    for (auto rule = rules.distinct.begin(); rule != rules.distinct.end(); ++rule) {
        const std::size_t added = AddNames(*rule, records);
        if (added == records.size())
            continue;
        RemoveNames(*rule, records, added);
        std::for_each(rules.distinct.begin(), rule,
            [&](const auto& before) { RemoveNames(before, records, records.size()); });
        return false;
    }
    return true;
}

/// The number of records before the first whose name is there; all if there is none.
std::size_t RecordChecks::AddNames(const RecordRules::Distinct& rule, const NamedRecords& records)
{
    NumberTable<Seen>& names = ofNames_[rule.number];
    for (std::size_t i = 0; i < records.size(); ++i) {
        const Seen seen = {keyword_, static_cast<std::uint32_t>(i)};
        if (Holds(rule.when, *records[i].record) && !names.Add(records[i].name, seen).second)
            return i;
    }
    return records.size();
}

void RecordChecks::RemoveNames(
    const RecordRules::Distinct& rule, const NamedRecords& records, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (Holds(rule.when, *records[i].record))
            ofNames_[rule.number].Remove(records[i].name);
    }
}

/// Whether the record gives what is required, or nothing is.
bool RecordChecks::IsMet(const RecordRules::Requirement& requirement, const Record& record) const
{
    const auto isGiven = [&](const RuleItem& item) {
        return IsGivenTarget(record, item) || IsVariable(context_.GetKeyword(), record, item);
    };
    const auto holds = [&](const ItemCondition& condition) { return Holds(condition, record); };
    return !Holds(requirement.when, record)
        || std::any_of(requirement.items.begin(), requirement.items.end(), isGiven)
        || std::any_of(requirement.unless.begin(), requirement.unless.end(), holds);
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
    for (const std::uint64_t key : RecordKeys(record, rule.items, rule.last, 1, names_).keys) {
        const auto [seen, isNew] = ofKeys_[rule.number].Add(key, SeenAt(position));
        if (!isNew && Replace(rule, *seen, record, position))
            return;
    }
}

/// What another record has too is of this one from now on. Whether it was reported.
bool RecordChecks::Replace(
    const RecordRules::Distinct& rule, Seen& seen, const Record& record, const ValuePosition& position)
{
    const Seen first = std::exchange(seen, SeenAt(position));
    const KeywordInstance& other = context_.deck.keywords[first.keyword];
    if (rule.rule->isOfOthers && other.syntax == context_.GetKeyword().syntax)
        return false;
    ReportRepeated(rule, first, record, position);
    return true;
}

void RecordChecks::ReportRepeated(
    const RecordRules::Distinct& rule, const Seen& first, const Record& record, const ValuePosition& position)
{
    const KeywordInstance& other = context_.deck.keywords[first.keyword];
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
}

} // namespace Veld::Quor::Core::Decks
