#include "quor/deck/internal/rules/RecordChecks.h"

#include "quor/deck/internal/rules/Choices.h"
#include "quor/deck/internal/rules/RecordValues.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

bool Holds(const RecordRules::Condition& condition, const IKeywordRecordData& record)
{
    return condition.rule->word.empty() ? IsItemSet(record, condition.item)
                                        : ValueText(record, condition.item) == condition.rule->word;
}

/// A rate of 0 is a target; 0 is no number of a table.
bool IsGivenTarget(const IKeywordRecordData& record, const RuleItem& item)
{
    return item.type == IKeywordDataMD::MDType::Integer ? IsItemSet(record, item) : HasItem(record, item);
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

} // namespace

void RecordChecks::StartKeyword()
{
    for (auto& keys : seen_) {
        if (!keys.empty())
            keys = {}; // to clear it would take as long as for the longest keyword
    }
}

void RecordChecks::Check(const RecordRules& rules, const Record& record, const ValuePosition& position)
{
    for (const RecordRules::Requirement& rule : rules.requirements)
        CheckRequirement(rule, record, position);
    for (const RecordRules::Distinct& rule : rules.distinct)
        CheckDistinct(rule, record, position);
}

void RecordChecks::CheckRequirement(
    const RecordRules::Requirement& requirement, const Record& record, ValuePosition position) const
{
    const RequireRule& rule = *requirement.rule;
    const auto holds = [&](const RecordRules::Condition& condition) { return Holds(condition, record); };
    if ((!rule.present.empty() && (!isSure_ || !presence_.IsBegun())) || !Holds(requirement.when, record)
        || std::any_of(requirement.unless.begin(), requirement.unless.end(), holds)
        || std::any_of(requirement.items.begin(), requirement.items.end(),
            [&](const RuleItem& item) { return IsGivenTarget(record, item); })
        || std::any_of(rule.present.begin(), rule.present.end(),
            [&](const std::string& name) { return presence_.Has(name); }))
        return;
    position.item = requirement.when.item.index;
    const std::string reason = rule.when.word.empty()
        ? fmt::format("{} has a value", rule.when.item)
        : fmt::format("{} is {}", rule.when.item, rule.when.word);
    const TextRange range = FindValue(context_.deck, context_.GetKeyword(), position);
    if (rule.present.empty())
        context_.reporter.ReportAs(rule.voice, range, Code::MissingItem,
            fmt::format("{}: {}; expected a value for {}", context_.GetName(), reason, Choices(rule.items)),
            fmt::format("add the value, or change {}", rule.when.item));
    else
        context_.reporter.ReportAs(rule.voice, range, Code::MissingKeyword,
            fmt::format(
                "{}: {}; expected keyword {} in the deck", context_.GetName(), reason, Choices(rule.present)),
            fmt::format("add the keyword, or change {}", rule.when.item));
}

void RecordChecks::CheckDistinct(
    const RecordRules::Distinct& rule, const Record& record, const ValuePosition& position)
{
    auto& seen = seen_[rule.number];
    for (const std::uint64_t key : RecordKeys(record, rule.items, rule.last, true).keys) {
        const auto [first, isNew] = seen.try_emplace(key, position.element);
        if (isNew)
            continue;
        ValuePosition at = position;
        at.item = rule.items.front().index;
        const KeywordInstance& keyword = context_.GetKeyword();
        return context_.reporter.ReportAs(rule.rule->voice, FindValue(context_.deck, keyword, at),
            Code::RepeatedRecord,
            fmt::format("{}: repeated record for {}", context_.GetName(), Shorten(Text(record, rule))),
            "correct the record, or remove one of them", {},
            {{RangeOf(keyword, first->second), "the first is here"}});
    }
}

} // namespace Veld::Quor::Core::Decks
