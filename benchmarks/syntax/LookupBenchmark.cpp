// Look-ups of all names of the built-in documents, beside the maps of the standard library.

#include "quor/Keywords.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

using namespace Veld::Quor::Core::Keywords;

namespace {

using Names = std::vector<std::string>;

KeywordSyntaxTable& Table()
{
    ::unsetenv("QUOR_KEYWORD_SYNTAX_FILE");
    ::unsetenv("QUOR_KEYWORD_TRUSTED_SYNTAX_DIR");
    return KeywordSyntaxTable::Instance();
}

/// In no order that a cache could know.
Names AllNames()
{
    Names names;
    KeywordSyntaxEnumerator keywords = Table().KeywordsEnumerator();
    while (keywords.NextWithHidden())
        names.push_back(*keywords.Current()->first);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::shuffle(names.begin(), names.end(), std::mt19937(1));
    return names;
}

/// The same, each with another last character, so that it is found late that nothing has the name.
Names NoNames()
{
    Names names = AllNames();
    for (std::string& name : names)
        name.back() = '%';
    return names;
}

template <class LookUp>
void Measure(benchmark::State& state, const Names& names, LookUp lookUp)
{
    for ([[maybe_unused]] auto turn : state) {
        for (const std::string& name : names)
            benchmark::DoNotOptimize(lookUp(name));
    }
    const auto lookUps = state.iterations() * static_cast<std::int64_t>(names.size());
    state.SetItemsProcessed(lookUps);
    state.counters["names"] = static_cast<double>(names.size());
    state.counters["a_lookup"] = benchmark::Counter(
        static_cast<double>(lookUps), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void LookupByName(benchmark::State& state, Names (*names)())
{
    const KeywordSyntaxTable& table = Table();
    Measure(state, names(), [&table](const std::string& name) { return table.Lookup(name, true); });
}

void LookupBySection(benchmark::State& state, Names (*names)())
{
    const KeywordSyntaxTable& table = Table();
    Measure(state, names(),
        [&table](const std::string& name) { return table.Lookup(name, SectionType::SCHEDULE, true); });
}

template <class Map>
void LookupInMap(benchmark::State& state, Names (*names)())
{
    Map map;
    for (const std::string& name : AllNames())
        map[name] = Table().Lookup(name, true);
    Measure(state, names(), [&map](const std::string& name) -> const IKeywordSyntax* {
        const auto at = map.find(name);
        return at == map.end() ? nullptr : at->second;
    });
}

constexpr auto LookupInHash = &LookupInMap<std::unordered_map<std::string, const IKeywordSyntax*>>;
constexpr auto LookupInTree = &LookupInMap<std::map<std::string, const IKeywordSyntax*>>;

BENCHMARK_CAPTURE(LookupByName, known, &AllNames);
BENCHMARK_CAPTURE(LookupBySection, known, &AllNames);
BENCHMARK_CAPTURE(LookupInHash, known, &AllNames);
BENCHMARK_CAPTURE(LookupInTree, known, &AllNames);
BENCHMARK_CAPTURE(LookupByName, unknown, &NoNames);
BENCHMARK_CAPTURE(LookupInHash, unknown, &NoNames);
BENCHMARK_CAPTURE(LookupInTree, unknown, &NoNames);

} // namespace
