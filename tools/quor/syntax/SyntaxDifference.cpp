#include "tools/quor/syntax/SyntaxDifference.h"

#include "tools/quor/commands/LanguageOrigin.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <set>

namespace Veld::Quor::Tools {

using Json = nlohmann::ordered_json;
using WordSet = std::set<std::string>;

namespace {

WordSet WordsIn(const Json& array)
{
    return {array.begin(), array.end()};
}

/// The leaves of an object, with the way to each: "GRID Carrow BlackOil".
void AddLeaves(const Json& json, const std::string& way, WordSet& leaves)
{
    for (const auto& [key, value] : json.items()) {
        const std::string last = value.is_string() ? value.get<std::string>() : key;
        const std::string next = way.empty() ? last : way + ' ' + last;
        if (value.is_string())
            leaves.insert(next);
        else
            AddLeaves(value, next, leaves);
    }
}

WordSet LeavesOf(const Json& json)
{
    WordSet leaves;
    AddLeaves(json, "", leaves);
    return leaves;
}

WordSet Without(const WordSet& words, const WordSet& others)
{
    WordSet left;
    std::set_difference(
        words.begin(), words.end(), others.begin(), others.end(), std::inserter(left, left.end()));
    return left;
}

std::string ListOf(const WordSet& words)
{
    return SomeOf({words.begin(), words.end()});
}

/// Adds the words that one side has and the other lacks.
void CompareWords(const char* noun, const std::string& keyword, const Json& a, const Json& b,
    bool breaksIfMore, SyntaxChanges& changes)
{
    if (const WordSet removed = Without(WordsIn(a), WordsIn(b)); !removed.empty())
        changes.push_back({keyword, "", fmt::format("without {} {}", noun, ListOf(removed)), !breaksIfMore});
    if (const WordSet added = Without(WordsIn(b), WordsIn(a)); !added.empty())
        changes.push_back({keyword, "", fmt::format("with {} {}", noun, ListOf(added)), breaksIfMore});
}

/// Whole sections first, then what is left of those that both have.
void CompareSections(const std::string& keyword, const Json& a, const Json& b, SyntaxChanges& changes)
{
    auto before = Json::object();
    auto after = Json::object();
    for (const auto& [section, modes] : a.items()) {
        if (b.contains(section))
            before[section] = modes;
        else
            changes.push_back({keyword, "", fmt::format("no longer valid in {}", section), true});
    }
    for (const auto& [section, modes] : b.items()) {
        if (a.contains(section))
            after[section] = modes;
        else
            changes.push_back({keyword, "", fmt::format("valid in {} too", section), false});
    }
    CompareValidity({keyword, "", "", false}, before, after, false, changes);
}

void CompareKeyword(const std::string& keyword, const Json& a, const Json& b, SyntaxChanges& changes)
{
    if (a["description"] != b["description"])
        changes.push_back({keyword, "", "other description", false});
    CompareSections(keyword, a["validity"], b["validity"], changes);
    CompareWords("alias", keyword, a["aliases"], b["aliases"], false, changes);
    CompareWords("precedent", keyword, a["precedents"], b["precedents"], true, changes);
    for (const char* const name : {"cellProperty", "scope"}) {
        if (a[name] != b[name])
            changes.push_back({keyword, "",
                fmt::format("{} '{}' instead of '{}'",
                    name == std::string_view("scope") ? "scope" : "cell property", b[name].get<std::string>(),
                    a[name].get<std::string>()),
                true});
    }
    CompareData(keyword, a["data"], b["data"], changes);
}

/// The keyword of the same name that is valid in one of the same sections.
const Json* FindLike(const Json& keyword, const std::vector<Json>& others)
{
    const auto like = std::find_if(others.begin(), others.end(), [&keyword](const Json& other) {
        const auto& sections = other["validity"].items();
        return std::any_of(sections.begin(), sections.end(),
            [&keyword](const auto& section) { return keyword["validity"].contains(section.key()); });
    });
    return like == others.end() ? nullptr : &*like;
}

void CompareVariants(
    const std::string& name, const std::vector<Json>& a, const std::vector<Json>& b, SyntaxChanges& changes)
{
    if (a.size() == 1 && b.size() == 1)
        return CompareKeyword(name, a.front(), b.front(), changes);
    for (const Json& keyword : a) {
        if (const Json* const like = FindLike(keyword, b))
            CompareKeyword(name, keyword, *like, changes);
        else
            changes.push_back(
                {name, "", fmt::format("removed of {}", ListOf(LeavesOf(keyword["validity"]))), true});
    }
    for (const Json& keyword : b) {
        if (!FindLike(keyword, a))
            changes.push_back(
                {name, "", fmt::format("added to {}", ListOf(LeavesOf(keyword["validity"]))), false});
    }
}

} // namespace

void CompareValidity(
    const SyntaxChange& about, const Json& a, const Json& b, bool breaksIfMore, SyntaxChanges& changes)
{
    if (a == b)
        return;
    const auto add = [&](const std::string& text, bool breaks) {
        changes.push_back({about.keyword, about.item, about.text + text, breaks});
    };
    const char* const verb = breaksIfMore ? "without effect" : "valid";
    if (a.is_null() || b.is_null())
        return add(a.is_null() ? fmt::format("{} for {} alone", verb, ListOf(LeavesOf(b)))
                               : fmt::format("{} anywhere", verb),
            a.is_null() != breaksIfMore);
    if (const WordSet removed = Without(LeavesOf(a), LeavesOf(b)); !removed.empty())
        add(fmt::format("no longer {} for {}", verb, ListOf(removed)), !breaksIfMore);
    if (const WordSet added = Without(LeavesOf(b), LeavesOf(a)); !added.empty())
        add(fmt::format("{} for {} too", verb, ListOf(added)), breaksIfMore);
}

SyntaxChanges Compare(const SyntaxSnapshot& a, const SyntaxSnapshot& b, bool isAddition)
{
    SyntaxChanges changes;
    WordSet names;
    for (const auto* const side : {&a, &b}) {
        for (const auto& [name, keywords] : *side)
            names.insert(name);
    }
    for (const std::string& name : names) {
        const auto before = a.find(name);
        const auto after = b.find(name);
        if (before == a.end())
            changes.push_back({name, "", "new keyword", false});
        else if (after != b.end())
            CompareVariants(name, before->second, after->second, changes);
        else if (!isAddition)
            changes.push_back({name, "", "keyword removed", true});
    }
    return changes;
}

} // namespace Veld::Quor::Tools
