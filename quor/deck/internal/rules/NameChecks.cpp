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

NameChecks::NameChecks(const RuleContext& context)
    : context_(context)
    , names_(context.rules.names.size())
    , counts_(context.rules.names.size())
    , isExcused_(context.rules.names.size())
    , unsure_(context.rules.names.size())
    , waiting_(context.rules.names.size())
    , later_(context.rules.names.size())
{
    for (std::size_t kind = 0; kind < names_.size(); ++kind) {
        for (const std::string& name : context.rules.names[kind].always)
            names_[kind].Add(name);
    }
}

/// Whether the deck has names of the kind that it defines.
bool NameChecks::HasDefinitions(std::uint32_t kind) const
{
    return names_[kind].GetSize() > context_.rules.names[kind].always.size();
}

bool NameChecks::Follow(const RecordRules::Name& rule, std::string_view name, const ValuePosition& position)
{
    if (name.empty())
        return false;
    if (rule.isDefinition)
        Define(rule, name, position);
    const std::uint32_t kind = KindOf(rule.kind, name);
    if (!isWhole_ || (rule.isDefinition && !context_.rules.names[rule.kind].areArrays))
        return false;
    const bool isFirst = !context_.rules.names[kind].areArrays && !HasDefinitions(kind);
    if (isFirst && names_[kind].Has(name)) // one that needs no definition
        return false;
    if (!isFirst && !rule.mayComeFirst)
        return !IsDefined(kind, name)
            && ReportUnknown(kind, name, *rule.voice, context_.GetKeyword(), position);
    NameTable& waiting = rule.mayComeFirst ? later_[kind] : waiting_[kind];
    if (waiting.Add(name))
        pending_.push_back({kind, static_cast<std::uint32_t>(context_.deck.keywords.size() - 1), position,
            std::string(name), rule.voice, rule.mayComeFirst});
    return false;
}

void NameChecks::Define(const RecordRules::Name& use, std::string_view name, const ValuePosition& position)
{
    NameTable& names = names_[use.kind];
    const NameRule& kindRule = context_.rules.names[use.kind];
    const bool isNew =
        kindRule.areArrays ? names.Add(context_.deck.language.FindName(name)) : names.Add(name);
    if (!isNew || !isWhole_ || use.isUncounted)
        return;
    const long long count = ++counts_[use.kind];
    for (const CountRule& rule : context_.rules.counts) {
        if (rule.noun != kindRule.noun)
            continue;
        const long long most = context_.FindLimit(rule.limit);
        if (count > most && context_.dimensions.IsFirstReport(rule.limit.item))
            context_.reporter.ReportAs(rule.voice, FindValue(context_.deck, context_.GetKeyword(), position),
                Code::TooManyNames,
                fmt::format("{}: {} '{}' is number {}, but {} is {}", context_.GetName(), rule.noun,
                    Shorten(name), count, rule.limit.item, most),
                fmt::format("increase {} in {}", rule.limit.item, rule.limit.keyword), {},
                FindSize(context_.deck, context_.dimensions, rule.limit.name));
    }
}

void NameChecks::FollowUnsound(std::uint32_t kind, std::string_view text)
{
    if (text.empty() || text.find('$') != std::string_view::npos)
        return Lose();
    constexpr std::string_view separators = " \t\r\n,'\"/";
    for (std::size_t at = text.find_first_not_of(separators); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
        unsure_[kind].Add(text.substr(at, end - at));
        at = text.find_first_not_of(separators, end);
    }
}

/// Of what the name is: names that begin with an asterisk may be those of lists.
std::uint32_t NameChecks::KindOf(std::uint32_t kind, std::string_view name) const
{
    const std::string& lists = context_.rules.names[kind].lists;
    for (std::uint32_t other = 0;
         !lists.empty() && name.size() > 1 && name.front() == '*' && other < names_.size(); ++other) {
        if (context_.rules.names[other].noun == lists)
            return other;
    }
    return kind;
}

bool NameChecks::IsDefined(std::uint32_t kind, std::string_view name)
{
    const NameRule& rule = context_.rules.names[kind];
    NameTable& names = names_[kind];
    const auto isIgnored = [name](const std::string& word) {
        return word == name || (word.find('*') != std::string::npos && IsMatch(word, name));
    };
    const bool isThere = rule.areArrays ? IsInLanguage(name) : names.Has(name) || unsure_[kind].Has(name);
    return isThere || std::any_of(rule.ignored.begin(), rule.ignored.end(), isIgnored)
        || (IsPattern(rule, name) && (names.HasMatch(name) || unsure_[kind].HasMatch(name)));
}

bool NameChecks::IsInLanguage(std::string_view array) const
{
    const auto syntaxes = context_.deck.language.LookupAll(ToUpper(array));
    return std::any_of(syntaxes.begin(), syntaxes.end(),
        [](const IKeywordSyntax* syntax) { return syntax->GetCellPropertyInfo() != nullptr; });
}

bool NameChecks::MakesArray(std::string_view name) const
{
    const std::string first = context_.deck.language.FindName(name);
    for (std::size_t kind = 0; kind < names_.size(); ++kind) {
        if (context_.rules.names[kind].areArrays && (names_[kind].Has(first) || unsure_[kind].Has(name)))
            return true;
    }
    return false;
}

/// False if it was reported before.
bool NameChecks::ReportUnknown(std::uint32_t kind, std::string_view name, const FindingVoice& voice,
    const KeywordInstance& keyword, const ValuePosition& position)
{
    if (!names_[kind].IsFirstReport(name))
        return false;
    const NameRule& rule = context_.rules.names[kind];
    const std::string& user = keyword.syntax->GetName();
    context_.reporter.ReportAs(voice, FindValue(context_.deck, keyword, position), Code::UndefinedName,
        IsPattern(rule, name) ? fmt::format("{}: no {} matches '{}'", user, rule.noun, Shorten(name))
                              : fmt::format("{}: undefined {} '{}'", user, rule.noun, Shorten(name)),
        HintOf(kind, name, keyword));
    return true;
}

std::string NameChecks::HintOf(
    std::uint32_t kind, std::string_view name, const KeywordInstance& keyword) const
{
    const NameRule& rule = context_.rules.names[kind];
    if (!rule.areArrays && names_[kind].Has(name))
        return fmt::format("define the {} before it is named", rule.noun);
    const auto near = rule.areArrays
        ? context_.deck.language.GetNearestNames().Find(ToUpper(name), keyword.section)
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
        const bool isKnown = HasDefinitions(pending.kind) || (isWholeDeck && !isExcused_[pending.kind]);
        const bool isEarly = !pending.mayComeFirst && names_[pending.kind].Has(pending.name);
        if (isKnown && (isEarly || !IsDefined(pending.kind, pending.name)))
            ReportUnknown(pending.kind, pending.name, *pending.voice, context_.deck.keywords[pending.keyword],
                pending.position);
    }
}

} // namespace Veld::Quor::Core::Decks
