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

/// Without what a text editor put around it: curly quotes, hard spaces.
std::string_view WithoutOddEnds(std::string_view word)
{
    const auto isOdd = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
    while (!word.empty() && isOdd(word.front()))
        word.remove_prefix(1);
    while (!word.empty() && isOdd(word.back()))
        word.remove_suffix(1);
    return word;
}

} // namespace

NameChecks::NameChecks(const RuleContext& context)
    : context_(context)
    , names_(context.rules.names.size())
    , counts_(context.rules.names.size())
    , isExcused_(context.rules.names.size())
    , isLost_(context.rules.names.size())
    , unsure_(context.rules.names.size())
    , waiting_(context.rules.names.size())
    , later_(context.rules.names.size())
{
    for (std::size_t kind = 0; kind < names_.size(); ++kind) {
        for (const std::string& name : context.rules.names[kind].always)
            names_[kind].Add(name);
        for (const CountRule& rule : context.rules.counts) {
            if (rule.noun == context.rules.names[kind].noun)
                counts_[kind].limits.push_back({&rule, {}});
        }
    }
}

/// Whether the deck has names of the kind that it defines.
bool NameChecks::HasDefinitions(std::uint32_t kind) const
{
    return names_[kind].GetSize() > context_.rules.names[kind].always.size();
}

/// Whether nothing of the kind has been defined so far.
bool NameChecks::IsFirst(std::uint32_t kind) const
{
    return !context_.rules.names[kind].AreOfLanguage() && !HasDefinitions(kind);
}

bool NameChecks::IsSettled(const RecordRules::Name& rule, std::string_view name)
{
    if (name.empty())
        return true;
    const std::uint32_t kind = KindOf(rule.kind, name);
    if (!isWhole_ || isLost_[kind] || (rule.isDefinition && !context_.rules.names[rule.kind].areArrays))
        return true;
    return IsFirst(kind) ? names_[kind].Has(name) /* it needs no definition */ : IsDefined(kind, name);
}

NameChecks::Outcome NameChecks::Follow(
    const RecordRules::Name& rule, std::string_view name, const ValuePosition& position)
{
    if (rule.isDefinition && !name.empty())
        Define(rule, name, position);
    if (IsSettled(rule, name))
        return Outcome::Settled;
    const std::uint32_t kind = KindOf(rule.kind, name);
    const bool isJudged = !IsFirst(kind) && !rule.mayComeFirst;
    const Outcome unjudged = rule.mayComeFirst ? Outcome::Settled : Outcome::Open;
    NameTable& waiting = rule.mayComeFirst ? later_[kind] : waiting_[kind];
    if (!isJudged && !waiting.Add(name))
        return unjudged;
    Pending use = {kind, static_cast<std::uint32_t>(context_.deck.keywords.size() - 1), position,
        std::string(name), &rule};
    if (!isJudged) {
        pending_.push_back(std::move(use));
        return unjudged;
    }
    ReportUnknown(use);
    return Outcome::Reported;
}

void NameChecks::Define(const RecordRules::Name& use, std::string_view name, const ValuePosition& position)
{
    NameTable& names = names_[use.kind];
    const NameRule& kindRule = context_.rules.names[use.kind];
    const bool isOfList = name.front() == '*' && !kindRule.lists.empty();
    if (isOfList || (kindRule.hasPatterns && name.find_first_of("*?", 1) != std::string_view::npos))
        return Lose(use.kind); // nobody knows which
    const bool isNew =
        kindRule.areArrays ? names.Add(context_.deck.language.FindName(name)) : names.Add(name);
    if (isNew && isWhole_ && !use.isUncounted)
        AddCount(use.kind, name, position);
}

void NameChecks::AddCount(std::uint32_t kind, std::string_view name, const ValuePosition& position)
{
    Count& counted = counts_[kind];
    ++counted.count;
    for (Limit& limit : counted.limits) {
        const CountRule& rule = *limit.rule;
        const long long most = limit.limit.Get(context_, rule.limit);
        if (counted.count > most && context_.dimensions.IsFirstReport(rule.limit.item))
            context_.reporter.ReportAs(rule.voice, FindValue(context_.deck, context_.GetKeyword(), position),
                Code::TooManyNames,
                fmt::format("{}: {} '{}' is number {}, but {} is {}", context_.GetName(), rule.noun,
                    Shorten(name), counted.count, rule.limit.item, most),
                fmt::format("increase {} in {}", rule.limit.item, rule.limit.keyword), {},
                FindSize(context_.deck, context_.dimensions, rule.limit.name));
    }
}

void NameChecks::FollowUnsound(std::uint32_t kind, std::string_view text)
{
    if (text.empty() || text.find('$') != std::string_view::npos)
        return Lose();
    constexpr std::string_view separators = " \t\r\n,'\"/";
    std::string before; // the word before, which a stray blank may have cut off
    for (std::size_t at = text.find_first_not_of(separators); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
        const std::string word(WithoutOddEnds(text.substr(at, end - at)));
        unsure_[kind].Add(word);
        unsure_[kind].Add(before + word);
        before = word;
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
    const bool isThere =
        IsInLanguage(rule, name) || (!rule.areArrays && (names.Has(name) || unsure_[kind].Has(name)));
    return isThere || std::any_of(rule.ignored.begin(), rule.ignored.end(), isIgnored)
        || (IsPattern(rule, name) && (names.HasMatch(name) || unsure_[kind].HasMatch(name)));
}

bool NameChecks::IsInLanguage(const NameRule& rule, std::string_view name) const
{
    if (!rule.AreOfLanguage())
        return false;
    const auto syntaxes = context_.deck.language.LookupAll(ToUpper(name));
    return std::any_of(syntaxes.begin(), syntaxes.end(), [&](const IKeywordSyntax* syntax) {
        return rule.areArrays ? syntax->GetCellPropertyInfo() != nullptr
                              : syntax->GetSummaryMnemonicInfo() != nullptr;
    });
}

bool NameChecks::MakesArray(std::string_view name) const
{
    const std::string first = context_.deck.language.FindName(name);
    for (std::size_t kind = 0; kind < names_.size(); ++kind) {
        const NameRule& rule = context_.rules.names[kind];
        if (!rule.areArrays)
            continue;
        const bool mayMake = unsure_[kind].GetSize() > 0 && IsInLanguage(rule, name);
        if (names_[kind].Has(first) || mayMake)
            return true;
    }
    return false;
}

/// Once. What the same value defines, by a name that is wrong, has another one elsewhere.
void NameChecks::ReportUnknown(const Pending& unknown)
{
    if (!names_[unknown.kind].IsFirstReport(unknown.name))
        return;
    for (const std::uint32_t kind : unknown.use->defines)
        Lose(kind);
    const NameRule& rule = context_.rules.names[unknown.kind];
    const KeywordInstance& keyword = context_.deck.keywords[unknown.keyword];
    const std::string& user = keyword.syntax->GetName();
    const std::string name = Shorten(unknown.name);
    context_.reporter.ReportAs(*unknown.use->voice, FindValue(context_.deck, keyword, unknown.position),
        Code::UndefinedName,
        IsPattern(rule, unknown.name) ? fmt::format("{}: no {} matches '{}'", user, rule.noun, name)
                                      : fmt::format("{}: undefined {} '{}'", user, rule.noun, name),
        HintOf(unknown));
}

std::vector<std::string> NameChecks::FindNear(const Pending& unknown)
{
    const NameRule& rule = context_.rules.names[unknown.kind];
    if (rule.AreOfLanguage()) {
        const auto section = context_.deck.keywords[unknown.keyword].section;
        const std::string name = ToUpper(unknown.name);
        auto near = context_.deck.language.GetNearestNames().Find(
            name, rule.areArrays ? section : SectionType::SUMMARY);
        std::erase(near, name); // a keyword that is none of the kind
        return near;
    }
    constexpr std::size_t mostCompared = 2'000'000; // a tenth of a second
    const std::vector<std::string>& names = names_[unknown.kind].GetNames();
    compared_ += names.size();
    return compared_ > mostCompared ? std::vector<std::string>() : FindNearest(names, unknown.name);
}

std::string NameChecks::HintOf(const Pending& unknown)
{
    const NameRule& rule = context_.rules.names[unknown.kind];
    if (!rule.areArrays && names_[unknown.kind].Has(unknown.name))
        return fmt::format("define the {} before it is named", rule.noun);
    if (const auto near = FindNear(unknown); !near.empty())
        return SuggestionOf(near);
    if (rule.areArrays)
        return "";
    const std::string definers = Choices(DefinersOf(rule));
    return unknown.use->mayComeFirst
        ? fmt::format("define the {} with {}", rule.noun, definers)
        : fmt::format("define the {} with {} before it is named", rule.noun, definers);
}

void NameChecks::LoseDefinedBy(const std::set<std::string>& keywords)
{
    for (std::uint32_t kind = 0; kind < names_.size(); ++kind) {
        const auto definers = DefinersOf(context_.rules.names[kind]);
        if (std::any_of(definers.begin(), definers.end(),
                [&](const std::string& name) { return keywords.count(name) > 0; }))
            Lose(kind);
    }
}

/// A part of a deck has what it doesn't define from elsewhere; so has a deck that defines none of a kind, but
/// for a whole one.
void NameChecks::EndDeck(bool isWholeDeck)
{
    for (const Pending& pending : pending_) {
        const bool isKnown = context_.rules.names[pending.kind].AreOfLanguage()
            || HasDefinitions(pending.kind) || (isWholeDeck && !isExcused_[pending.kind]);
        const bool isEarly = !pending.use->mayComeFirst && names_[pending.kind].Has(pending.name);
        if (isKnown && !isLost_[pending.kind] && (isEarly || !IsDefined(pending.kind, pending.name)))
            ReportUnknown(pending);
    }
}

} // namespace Veld::Quor::Core::Decks
