#include "quor/deck/internal/rules/TreeChecks.h"

#include "quor/deck/internal/rules/RecordValues.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void TreeChecks::Places::Set(Place&& place)
{
    const auto [number, isNew] =
        numbers_.Add(KeyOfName(place.name), static_cast<std::uint32_t>(places_.size()));
    if (isNew)
        places_.push_back(std::move(place));
    else
        places_[*number] = std::move(place);
}

const TreeChecks::Place* TreeChecks::Places::Find(std::string_view name) const
{
    const std::uint32_t* const number = numbers_.Find(KeyOfName(name));
    return number ? &places_[*number] : nullptr;
}

void TreeChecks::Follow(const RecordRules& rules)
{
    keywords_.push_back(static_cast<std::uint32_t>(context_.deck.keywords.size() - 1));
    hasNames_ = hasNames_ || rules.hasTreeNames;
}

std::vector<std::uint32_t> TreeChecks::GetKeywords() const
{
    return isWhole_ && hasNames_ ? keywords_ : std::vector<std::uint32_t>();
}

void TreeChecks::Add(
    const RecordRules& rules, const IKeywordRecordData& record, std::uint32_t keyword, ValuePosition position)
{
    for (const RecordRules::Tree& rule : rules.trees) {
        std::string below = ValueText(record, rule.below);
        if (below.empty())
            continue;
        position.item = rule.above.index;
        Tree& tree = trees_[rule.number];
        (rule.isMember ? tree.members : tree.names)
            .Set({std::move(below), ValueText(record, rule.above), keyword, position});
    }
}

void TreeChecks::EndDeck()
{
    for (std::size_t i = 0; isWhole_ && i < trees_.size(); ++i) {
        if (!CheckLoops(context_.rules.trees[i], trees_[i].names))
            CheckBoth(context_.rules.trees[i], trees_[i]);
    }
}

/// Each loop is reported once, at the first of its names that the deck places. Whether there is one.
bool TreeChecks::CheckLoops(const TreeRule& rule, const Places& names)
{
    bool hasLoop = false;
    std::unordered_set<const Place*> done;
    for (const Place& start : names.Get()) {
        std::vector<const Place*> way;
        const Place* at = &start;
        for (; at && done.insert(at).second; at = names.Find(at->above))
            way.push_back(at);
        const auto loop = std::find(way.begin(), way.end(), at);
        if (!at || loop == way.end())
            continue;
        hasLoop = true;
        ReportLoop(rule, **std::min_element(loop, way.end()));
    }
    return hasLoop;
}

void TreeChecks::ReportLoop(const TreeRule& rule, const Place& place)
{
    context_.reporter.ReportAs(rule.voice, RangeOf(place), Code::NameTree,
        fmt::format("{}: {} '{}' is below itself", context_.deck.keywords[place.keyword].syntax->GetName(),
            rule.noun, Shorten(place.name)),
        fmt::format("correct the name of the {} above it", rule.noun));
}

/// Names at the top may have both.
void TreeChecks::CheckBoth(const TreeRule& rule, const Tree& tree)
{
    KeyTable<const Place*> branches;
    for (const Place& place : tree.names.Get())
        branches.Add(KeyOfName(place.above), &place);
    KeyTable<Nothing> done;
    for (const Place& place : tree.members.Get()) {
        const std::uint64_t above = KeyOfName(place.above);
        const Place* const* const branch = branches.Find(above);
        if (!branch || IsRoot(rule, place.above) || !done.Add(above, {}).second)
            continue;
        context_.reporter.ReportAs(rule.voice, RangeOf(place), Code::NameTree,
            fmt::format("{}: {} '{}' has {}s below it; expected no {}",
                context_.deck.keywords[place.keyword].syntax->GetName(), rule.noun, Shorten(place.above),
                rule.noun, rule.what),
            fmt::format("put them into a separate {}", rule.noun), {},
            {{RangeOf(**branch), fmt::format("a {} is put below it here", rule.noun)}});
    }
}

bool TreeChecks::IsRoot(const TreeRule& rule, std::string_view name) const
{
    const auto isName = [key = KeyOfName(name)](const std::string& other) { return KeyOfName(other) == key; };
    return name.empty()
        || std::any_of(context_.rules.names.begin(), context_.rules.names.end(), [&](const NameRule& names) {
               return names.noun == rule.noun
                   && std::any_of(names.always.begin(), names.always.end(), isName);
           });
}

TextRange TreeChecks::RangeOf(const Place& place) const
{
    return FindValue(context_.deck, context_.deck.keywords[place.keyword], place.position);
}

} // namespace Veld::Quor::Core::Decks
