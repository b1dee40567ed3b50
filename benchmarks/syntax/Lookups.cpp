// Look-ups of names of the built-in documents, beside a hash map of the same names.

#include "benchmarks/support/Comparison.h"
#include "quor/Keywords.h"

#include <absl/container/flat_hash_map.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace Veld::Quor::Benchmarks {

using namespace Core::Keywords;

namespace {

using Names = std::vector<std::string>;
using Map = absl::flat_hash_map<std::string, const IKeywordSyntax*>;

constexpr int rounds = 20;

Names AllNames()
{
    Names names;
    KeywordSyntaxEnumerator keywords = KeywordSyntaxTable::Instance().KeywordsEnumerator();
    while (keywords.NextWithHidden())
        names.push_back(*keywords.Current()->first);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::shuffle(names.begin(), names.end(), std::mt19937(1)); // in no order that a cache could know
    return names;
}

/// The names, changed, of which the table has none, or has each.
template <class Change>
Names ChangedNames(const Names& names, bool areKnown, Change change)
{
    Names changed;
    for (std::string name : names) {
        change(name);
        if (!name.empty() && (KeywordSyntaxTable::Instance().Lookup(name, true) != nullptr) == areKnown)
            changed.push_back(std::move(name));
    }
    return changed;
}

void CompareLookup(
    const char* path, const Names& names, const char* peer, const Names& peers, const Map& map, double goal)
{
    const KeywordSyntaxTable& table = KeywordSyntaxTable::Instance();
    const double items = rounds * static_cast<double>(names.size());
    const double itemsOfPeer = rounds * static_cast<double>(peers.size());
    const auto ours = [&] {
        return SecondsOf([&] {
            for (int round = 0; round < rounds; ++round) {
                for (const std::string& name : names)
                    Keep(table.Lookup(name, true));
            }
        });
    };
    const auto theirs = [&] {
        return SecondsOf([&] {
            for (int round = 0; round < rounds; ++round) {
                for (const std::string& name : peers) {
                    const auto at = map.find(name);
                    Keep(at == map.end() ? nullptr : at->second);
                }
            }
        }) * items
            / itemsOfPeer;
    };
    Compare({path, peer, goal, "ns", items, ours, theirs});
}

} // namespace

void CompareLookups()
{
    if (!IsWanted({"look-up: hit", "look-up: miss", "look-up: near miss", "look-up: by a wildcard"}))
        return;
    ::unsetenv("QUOR_KEYWORD_SYNTAX_FILE");
    KeywordSyntaxTable::Instance(true, false);
    const Names all = AllNames();
    Map map;
    for (const std::string& name : all)
        map[name] = KeywordSyntaxTable::Instance().Lookup(name, true);
    const Names hits = ChangedNames(all, true, [](std::string&) {});
    const Names misses = ChangedNames(all, false, [](std::string& name) { name[0] = '9'; });
    const Names nearMisses = ChangedNames(all, false, [](std::string& name) { name.back() = '%'; });
    const Names patterns = ChangedNames(all, true, [](std::string& name) {
        if (name.back() != '*')
            name.clear();
        else
            name.replace(name.size() - 1, 1, "%"); // no keyword has that name
    });
    CompareLookup("look-up: hit", hits, "absl::flat_hash_map, hit", hits, map, 0.55);
    CompareLookup("look-up: miss", misses, "absl::flat_hash_map, miss", misses, map, 1.7);
    CompareLookup("look-up: near miss", nearMisses, "absl::flat_hash_map, miss", misses, map, 1.7);
    CompareLookup("look-up: by a wildcard", patterns, "absl::flat_hash_map, hit", hits, map, 0.8);
}

} // namespace Veld::Quor::Benchmarks
