#include "quor/deck/internal/rules/PresenceChecks.h"

#include "quor/data/KeywordDataEqual.h"
#include "quor/deck/internal/rules/Choices.h"
#include "quor/deck/internal/rules/ItemSelections.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

bool HaveOneRemedy(const NeedRule& a, const NeedRule& b)
{
    return a.in == b.in && std::any_of(a.anyOf.begin(), a.anyOf.end(), [&](const std::string& name) {
        return Contains(b.anyOf, name);
    });
}

} // namespace

void PresenceChecks::Follow(const KeywordRules& rules)
{
    const KeywordInstance& keyword = context_.GetKeyword();
    const auto index = static_cast<std::uint32_t>(context_.deck.keywords.size() - 1);
    const auto [first, isFirst] = first_.try_emplace(keyword.syntax, index);
    if (rules.once && !isFirst)
        ReportRepeated(context_.deck.keywords[first->second], *rules.once);
    if (rules.exclusive && isFirst)
        ReportConflict(*rules.exclusive);
}

/// One that says the same again does no harm.
void PresenceChecks::ReportRepeated(const KeywordInstance& first, const OnceRule& rule)
{
    const KeywordInstance& keyword = context_.GetKeyword();
    if (!keyword.data || !first.data || KeywordDataEqual(*first.data, *keyword.data))
        return;
    context_.reporter.ReportAs(rule.voice, keyword.name, Code::RepeatedKeyword,
        fmt::format("{} is repeated with other values", context_.GetName()), "remove one of them", {},
        Related(first, "the first is here"));
    context_.dimensions.DoubtAllOf(*keyword.data);
}

void PresenceChecks::ReportConflict(const ExclusiveRule& rule)
{
    const auto [other, isOnly] =
        exclusive_.try_emplace(&rule, static_cast<std::uint32_t>(context_.deck.keywords.size() - 1));
    if (isOnly)
        return;
    const KeywordInstance& first = context_.deck.keywords[other->second];
    context_.reporter.ReportAs(rule.voice, context_.GetKeyword().name, Code::ConflictingKeywords,
        fmt::format(
            "{} contradicts {}; expected one {}", context_.GetName(), first.syntax->GetName(), rule.what),
        "remove one of them", {}, Related(first, fmt::format("{} is here", first.syntax->GetName())));
}

/// A deck without one of the sections of a whole one is a part of a deck.
bool PresenceChecks::IsWholeDeck() const
{
    return !context_.rules.whole.empty()
        && std::all_of(
            context_.rules.whole.begin(), context_.rules.whole.end(), [this](const std::string& name) {
                const KeywordInstance* const section = FindFirst(name);
                return section && !IsEmpty(*section);
            });
}

/// What one keyword would give is reported as one.
void PresenceChecks::EndDeck(const std::set<std::string>& required)
{
    if (!std::all_of(context_.rules.whole.begin(), context_.rules.whole.end(),
            [this](const std::string& name) { return FindFirst(name); }))
        return;
    std::vector<std::vector<const NeedRule*>> groups;
    for (const NeedRule& rule : context_.rules.needs) {
        if (!IsMissing(rule))
            continue;
        const auto group = std::find_if(groups.begin(), groups.end(), [&](const auto& others) {
            return std::any_of(others.begin(), others.end(),
                [&](const NeedRule* other) { return HaveOneRemedy(*other, rule); });
        });
        if (group == groups.end())
            groups.push_back({&rule});
        else
            group->push_back(&rule);
    }
    for (const auto& group : groups)
        ReportMissing(group, required);
}

/// Of a keyword that begins a section.
bool PresenceChecks::IsEmpty(const KeywordInstance& section) const
{
    const KeywordInstance* const next = &section + 1;
    return &section == &context_.GetKeyword() || next->section != section.section;
}

/// An empty section lacks nothing.
bool PresenceChecks::IsMissing(const NeedRule& rule) const
{
    const auto isThere = [this](const std::string& name) { return Has(name); };
    const KeywordInstance* const section = FindFirst(rule.in);
    if (!rule.size.empty() && context_.dimensions.FindWhole(rule.size).value_or(rule.least) < rule.least)
        return false;
    return section && !IsEmpty(*section) && std::all_of(rule.when.begin(), rule.when.end(), isThere)
        && std::none_of(rule.unless.begin(), rule.unless.end(), isThere)
        && std::none_of(rule.anyOf.begin(), rule.anyOf.end(), isThere);
}

void PresenceChecks::ReportMissing(
    const std::vector<const NeedRule*>& rules, const std::set<std::string>& required)
{
    const NeedRule& first = *rules.front();
    std::string missing;
    std::vector<std::string> keywords;
    for (const NeedRule* const rule : rules) {
        if (missing.find(rule->what) == std::string::npos)
            missing += fmt::format("{}no {}", missing.empty() ? "" : ", ", rule->what);
        for (const std::string& name : rule->anyOf) {
            if (!Contains(keywords, name))
                keywords.push_back(name);
        }
    }
    reported_.insert(keywords.begin(), keywords.end());
    FindingVoice voice = first.voice;
    if (std::any_of(keywords.begin(), keywords.end(),
            [&](const std::string& name) { return required.count(name) > 0; }))
        voice.severity.reset(); // no mere warning
    const std::string reason = first.when.empty() ? "" : first.when.front();
    const KeywordInstance* const cause = FindFirst(reason); // null too if an operation makes the array
    context_.reporter.ReportAs(voice, FindFirst(first.in)->name, Code::MissingKeyword,
        fmt::format("{}: {}; expected {}", first.in, missing, Choices(keywords)),
        reason.empty() ? "" : fmt::format("{} requires it", reason), {},
        cause ? Related(*cause, reason + " is here") : std::vector<FindingReporter::Related>());
}

bool PresenceChecks::Has(const std::string& name) const
{
    return FindFirst(name) || names_.MakesArray(name);
}

/// Null if the deck has no such keyword.
const KeywordInstance* PresenceChecks::FindFirst(const std::string& name) const
{
    for (const IKeywordSyntax* const syntax : context_.deck.language.LookupAll(name)) {
        if (const auto first = first_.find(syntax); first != first_.end())
            return &context_.deck.keywords[first->second];
    }
    return nullptr;
}

} // namespace Veld::Quor::Core::Decks
