#include "quor/deck/internal/rules/TreeChecks.h"

#include "quor/deck/internal/rules/RecordValues.h"
#include "quor/deck/internal/text/LineText.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void TreeChecks::Follow(
    const RecordRules& rules, const IKeywordRecordData& record, const ValuePosition& position)
{
    const auto keyword = static_cast<std::uint32_t>(context_.deck.keywords.size() - 1);
    for (const RecordRules::Tree& rule : rules.trees) {
        const std::string below = ToUpper(ValueText(record, rule.below));
        Tree& tree = trees_[rule.number];
        ValuePosition at = position;
        at.item = rule.above.index;
        if (!below.empty())
            (rule.isMember ? tree.members : tree.names)[below] = {
                ToUpper(ValueText(record, rule.above)), keyword, at};
    }
}

void TreeChecks::EndDeck()
{
    for (std::size_t i = 0; isWhole_ && i < trees_.size(); ++i) {
        if (!CheckLoops(context_.rules.trees[i], trees_[i].names))
            CheckBoth(context_.rules.trees[i], trees_[i]);
    }
}

/// Each loop is reported once, where its first name is placed. Whether there is one.
bool TreeChecks::CheckLoops(const TreeRule& rule, const Places& names)
{
    bool hasLoop = false;
    std::set<std::string_view> done;
    for (const auto& [start, place] : names) {
        std::vector<std::string_view> way;
        auto at = names.find(start);
        for (; at != names.end() && done.insert(at->first).second; at = names.find(at->second.above))
            way.push_back(at->first);
        const auto loop = at == names.end() ? way.end() : std::find(way.begin(), way.end(), at->first);
        if (loop == way.end())
            continue;
        hasLoop = true;
        context_.reporter.ReportAs(rule.voice, RangeOf(at->second), Code::NameTree,
            fmt::format("{}: {} '{}' is below itself",
                context_.deck.keywords[at->second.keyword].syntax->GetName(), rule.noun, at->first),
            fmt::format("correct the name of the {} above it", rule.noun));
    }
    return hasLoop;
}

/// Names at the top may have both.
void TreeChecks::CheckBoth(const TreeRule& rule, const Tree& tree)
{
    std::map<std::string_view, const Place*> branches;
    for (const auto& [name, place] : tree.names)
        branches.emplace(place.above, &place);
    std::set<std::string_view> done;
    for (const auto& [member, place] : tree.members) {
        const auto branch = branches.find(place.above);
        if (branch == branches.end() || IsRoot(rule, place.above) || !done.insert(place.above).second)
            continue;
        context_.reporter.ReportAs(rule.voice, RangeOf(place), Code::NameTree,
            fmt::format("{}: {} '{}' has {}s below it; expected no {}",
                context_.deck.keywords[place.keyword].syntax->GetName(), rule.noun, place.above, rule.noun,
                rule.what),
            fmt::format("put them into a separate {}", rule.noun), {},
            {{RangeOf(*branch->second), fmt::format("a {} is put below it here", rule.noun)}});
    }
}

bool TreeChecks::IsRoot(const TreeRule& rule, std::string_view name) const
{
    return name.empty()
        || std::any_of(context_.rules.names.begin(), context_.rules.names.end(), [&](const NameRule& names) {
               return names.noun == rule.noun
                   && std::find(names.always.begin(), names.always.end(), name) != names.always.end();
           });
}

TextRange TreeChecks::RangeOf(const Place& place) const
{
    return FindValue(context_.deck, context_.deck.keywords[place.keyword], place.position);
}

} // namespace Veld::Quor::Core::Decks
