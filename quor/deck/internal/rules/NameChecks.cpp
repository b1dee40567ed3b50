#include "quor/deck/internal/rules/NameChecks.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/rules/Choices.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

bool IsPattern(const NameRule& rule, std::string_view name)
{
    return rule.hasPatterns && name.find_first_of("*?") != std::string_view::npos;
}

/// The keywords that mostly define names of the kind: those of its first definition.
std::vector<std::string> DefinersOf(const NameRule& rule)
{
    const auto first = std::find_if(
        rule.uses.begin(), rule.uses.end(), [](const NameRule::Use& use) { return use.isDefinition; });
    return first == rule.uses.end() ? std::vector<std::string>() : first->where.keywords;
}

} // namespace

NameChecks::NameChecks(
    const RuleSet& rules, const DeckContents& deck, const Dimensions& dimensions, FindingReporter& reporter)
    : rules_(rules)
    , deck_(deck)
    , dimensions_(dimensions)
    , reporter_(reporter)
    , names_(rules.names.size())
    , waiting_(rules.names.size())
    , later_(rules.names.size())
{
    for (std::size_t kind = 0; kind < names_.size(); ++kind) {
        for (const std::string& name : rules.names[kind].always)
            names_[kind].Add(name);
    }
}

/// Whether the deck has names of the kind that it defines.
bool NameChecks::HasDefinitions(std::uint32_t kind) const
{
    return names_[kind].GetSize() > rules_.names[kind].always.size();
}

void NameChecks::Follow(const RecordRules::Name& rule, std::string_view name, const ValuePosition& position)
{
    if (name.empty())
        return;
    if (rule.isDefinition)
        Define(rule.kind, name, position);
    const std::uint32_t kind = KindOf(rule.kind, name);
    if (!isWhole_ || (rule.isDefinition && !rules_.names[rule.kind].areArrays))
        return;
    const bool isFirst = !rules_.names[kind].areArrays && !HasDefinitions(kind);
    NameTable& waiting = rule.mayComeFirst ? later_[kind] : waiting_[kind];
    if ((isFirst || rule.mayComeFirst) && !waiting.Add(name))
        return;
    if (isFirst || rule.mayComeFirst)
        pending_.push_back({kind, static_cast<std::uint32_t>(deck_.keywords.size() - 1), position,
            std::string(name), rule.mayComeFirst});
    else if (!IsDefined(kind, name))
        ReportUnknown(kind, name, deck_.keywords.back(), position);
}

void NameChecks::Define(std::uint32_t kind, std::string_view name, const ValuePosition& position)
{
    NameTable& names = names_[kind];
    const bool isNew =
        rules_.names[kind].areArrays ? names.Add(deck_.language.FindName(name)) : names.Add(name);
    if (!isNew || !isWhole_)
        return;
    const auto count = static_cast<long long>(names.GetSize() - rules_.names[kind].always.size());
    for (const CountRule& rule : rules_.counts) {
        if (rule.noun != rules_.names[kind].noun)
            continue;
        const auto most = dimensions_.FindGiven(rule.size);
        if (most && most->value > 0 && count == most->value + 1)
            reporter_.Report(FindValue(deck_, deck_.keywords.back(), position), Code::TooManyNames,
                fmt::format("{}: {} '{}' is number {}, but {} is {}", deck_.keywords.back().syntax->GetName(),
                    rule.noun, Shorten(name), count, rule.size, most->value),
                fmt::format("increase {} in {}", rule.size, rule.setBy), {},
                FindSize(deck_, dimensions_, rule.size));
    }
}

/// Of what the name is: names that begin with an asterisk may be those of lists.
std::uint32_t NameChecks::KindOf(std::uint32_t kind, std::string_view name) const
{
    const std::string& lists = rules_.names[kind].lists;
    for (std::uint32_t other = 0;
         !lists.empty() && name.size() > 1 && name.front() == '*' && other < names_.size(); ++other) {
        if (rules_.names[other].noun == lists)
            return other;
    }
    return kind;
}

bool NameChecks::IsDefined(std::uint32_t kind, std::string_view name)
{
    const NameRule& rule = rules_.names[kind];
    NameTable& names = names_[kind];
    const auto isIgnored = [name](const std::string& word) {
        return word == name || (word.find('*') != std::string::npos && IsMatch(word, name));
    };
    const bool isThere = rule.areArrays ? IsInLanguage(name) : names.Has(name);
    return isThere || std::any_of(rule.ignored.begin(), rule.ignored.end(), isIgnored)
        || (IsPattern(rule, name) && names.HasMatch(name));
}

bool NameChecks::IsInLanguage(std::string_view array) const
{
    const auto syntaxes = deck_.language.LookupAll(ToUpper(array));
    return std::any_of(syntaxes.begin(), syntaxes.end(),
        [](const IKeywordSyntax* syntax) { return syntax->GetCellPropertyInfo() != nullptr; });
}

bool NameChecks::MakesArray(std::string_view name) const
{
    const std::string first = deck_.language.FindName(name);
    for (std::size_t kind = 0; kind < names_.size(); ++kind) {
        if (rules_.names[kind].areArrays && names_[kind].Has(first))
            return true;
    }
    return false;
}

void NameChecks::ReportUnknown(
    std::uint32_t kind, std::string_view name, const KeywordInstance& keyword, const ValuePosition& position)
{
    if (!names_[kind].IsFirstReport(name))
        return;
    const NameRule& rule = rules_.names[kind];
    const std::string& user = keyword.syntax->GetName();
    reporter_.Report(FindValue(deck_, keyword, position), Code::UndefinedName,
        IsPattern(rule, name) ? fmt::format("{}: no {} matches '{}'", user, rule.noun, Shorten(name))
                              : fmt::format("{}: undefined {} '{}'", user, rule.noun, Shorten(name)),
        HintOf(kind, name, keyword));
}

std::string NameChecks::HintOf(
    std::uint32_t kind, std::string_view name, const KeywordInstance& keyword) const
{
    const NameRule& rule = rules_.names[kind];
    if (!rule.areArrays && names_[kind].Has(name))
        return fmt::format("define the {} before it is named", rule.noun);
    const auto near = rule.areArrays ? deck_.language.GetNearestNames().Find(ToUpper(name), keyword.section)
                                     : FindNearest(names_[kind].GetNames(), std::string(name));
    if (!near.empty())
        return SuggestionOf(near);
    if (rule.areArrays)
        return "";
    return fmt::format("define the {} with {} before it is named", rule.noun, Choices(DefinersOf(rule)));
}

/// A part of a deck has what it doesn't define from elsewhere; so has a deck that defines none of a kind, but
/// for a whole one.
void NameChecks::EndDeck(bool isWholeDeck)
{
    for (const Pending& pending : pending_) {
        const bool isKnown = HasDefinitions(pending.kind) || isWholeDeck;
        const bool isEarly = !pending.mayComeFirst && names_[pending.kind].Has(pending.name);
        if (isKnown && (isEarly || !IsDefined(pending.kind, pending.name)))
            ReportUnknown(pending.kind, pending.name, deck_.keywords[pending.keyword], pending.position);
    }
}

} // namespace Veld::Quor::Core::Decks
