#include "quor/deck/internal/rules/PresenceChecks.h"

#include "quor/data/KeywordDataEqual.h"
#include "quor/deck/internal/rules/Choices.h"
#include "quor/deck/internal/rules/ValueRange.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void PresenceChecks::Follow(const KeywordRules& rules)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    const auto index = static_cast<std::uint32_t>(deck_.keywords.size() - 1);
    const auto [first, isFirst] = first_.try_emplace(keyword.syntax, index);
    if (rules.isOnce && !isFirst)
        ReportRepeated(keyword, deck_.keywords[first->second]);
    if (rules.exclusive && isFirst)
        ReportConflict(keyword, *rules.exclusive);
}

/// One that says the same again does no harm.
void PresenceChecks::ReportRepeated(const KeywordInstance& keyword, const KeywordInstance& first)
{
    if (!keyword.data || !first.data || KeywordDataEqual(*first.data, *keyword.data))
        return;
    reporter_.Report(keyword.name, Code::RepeatedKeyword,
        fmt::format("{} is repeated with other values", keyword.syntax->GetName()), "remove one of them", {},
        Related(first, "the first is here"));
}

void PresenceChecks::ReportConflict(const KeywordInstance& keyword, const ExclusiveRule& rule)
{
    const auto [other, isOnly] =
        exclusive_.try_emplace(&rule, static_cast<std::uint32_t>(deck_.keywords.size() - 1));
    if (isOnly)
        return;
    const KeywordInstance& first = deck_.keywords[other->second];
    reporter_.Report(keyword.name, Code::ConflictingKeywords,
        fmt::format("{} contradicts {}; expected one {}", keyword.syntax->GetName(), first.syntax->GetName(),
            rule.what),
        "remove one of them", {}, Related(first, fmt::format("{} is here", first.syntax->GetName())));
}

/// A deck without one of the sections of a whole one is a part of a deck.
bool PresenceChecks::IsWholeDeck() const
{
    return !rules_.whole.empty()
        && std::all_of(rules_.whole.begin(), rules_.whole.end(), [this](const std::string& name) {
               const KeywordInstance* const section = FindFirst(name);
               return section && !IsEmpty(*section);
           });
}

void PresenceChecks::EndDeck()
{
    if (std::all_of(rules_.whole.begin(), rules_.whole.end(),
            [this](const std::string& name) { return FindFirst(name); })) {
        for (const NeedRule& rule : rules_.needs)
            CheckNeed(rule);
    }
}

/// Of a keyword that begins a section.
bool PresenceChecks::IsEmpty(const KeywordInstance& section) const
{
    const KeywordInstance* const next = &section + 1;
    return &section == &deck_.keywords.back() || next->section != section.section;
}

/// An empty section lacks nothing.
void PresenceChecks::CheckNeed(const NeedRule& rule)
{
    const auto isThere = [this](const std::string& name) { return Has(name); };
    const KeywordInstance* const section = FindFirst(rule.in);
    if (!section || !std::all_of(rule.when.begin(), rule.when.end(), isThere)
        || std::any_of(rule.unless.begin(), rule.unless.end(), isThere)
        || std::any_of(rule.anyOf.begin(), rule.anyOf.end(), isThere))
        return;
    if (IsEmpty(*section))
        return;
    reporter_.Report(section->name, Code::MissingKeyword,
        fmt::format("{}: no {}; expected {}", rule.in, rule.what, Choices(rule.anyOf)),
        rule.when.empty() ? "" : fmt::format("{} requires it", rule.when.front()), {},
        rule.when.empty() ? std::vector<FindingReporter::Related>()
                          : Related(*FindFirst(rule.when.front()), rule.when.front() + " is here"));
}

bool PresenceChecks::Has(const std::string& name) const
{
    return FindFirst(name) || names_.MakesArray(name);
}

/// Null if the deck has no such keyword.
const KeywordInstance* PresenceChecks::FindFirst(const std::string& name) const
{
    for (const IKeywordSyntax* const syntax : deck_.language.LookupAll(name)) {
        if (const auto first = first_.find(syntax); first != first_.end())
            return &deck_.keywords[first->second];
    }
    return nullptr;
}

} // namespace Veld::Quor::Core::Decks
