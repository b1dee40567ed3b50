// Seeds mistakes into decks that have none, and counts what is found of each kind.

#include "quor/syntax/KeywordSyntaxTable.h"
#include "tests/trust/Trial.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

using namespace Veld::Quor::Core::Decks;
using namespace Veld::Quor::Trust;

namespace {

struct Settings {
    std::vector<std::string> decks;
    std::size_t seeds = 2000;
    std::uint64_t seed = 1;
    std::string kind; // only those whose name has this; empty: all
    double least = 0; // share of mistakes with one finding at their place, in percent
    double leastOfKind = 0;
    std::size_t examples = 0;
};

using Counts = std::array<std::size_t, outcomeCount>;

struct Result {
    Counts counts = {};
    std::vector<std::string> examples; // of those that are not as they should be
};

std::size_t Sum(const Counts& counts)
{
    std::size_t sum = 0;
    for (const std::size_t count : counts)
        sum += count;
    return sum;
}

double ShareAtPlace(const Counts& counts)
{
    return Sum(counts) == 0 ? 100 : 100.0 * static_cast<double>(counts[0]) / static_cast<double>(Sum(counts));
}

std::vector<Kind> MakeKinds(const std::string& wanted)
{
    std::vector<Kind> kinds;
    AddKindsOfText(kinds);
    AddKindsOfValues(kinds);
    AddKindsOfTables(kinds);
    AddKindsOfNames(kinds);
    AddKindsOfRules(kinds);
    AddKindsOfPresence(kinds);
    AddKindsOfSchedule(kinds);
    std::erase_if(kinds, [&](const Kind& kind) { return kind.name.find(wanted) == std::string::npos; });
    return kinds;
}

void TryOnce(const Kind& kind, const std::vector<SampleDeck>& decks, const DeckLanguage& language,
    std::uint64_t seed, Result& result)
{
    Random random(seed);
    const std::size_t first = random.Below(decks.size());
    for (std::size_t i = 0; i < decks.size(); ++i) {
        const SampleDeck& deck = decks[(first + i) % decks.size()];
        const auto mistake = kind.make(deck, random);
        if (!mistake)
            continue;
        const Trial trial = Try(deck, *mistake, kind.isStrict, language);
        ++result.counts[static_cast<std::size_t>(trial.outcome)];
        if (trial.outcome != Outcome::AtPlace)
            result.examples.push_back(fmt::format("  seed {}:\n{}", seed, trial.text));
        return;
    }
}

void Print(const std::string& name, const Counts& counts)
{
    const std::string share = Sum(counts) == 0 ? "no deck" : fmt::format("{:.0f} %", ShareAtPlace(counts));
    fmt::print(
        "{:<56} {:>5} {:>8} {:>9} {:>7} {:>6}\n", name, Sum(counts), share, counts[1], counts[2], counts[3]);
}

/// Those of the examples that have no finding, in one order everywhere.
std::vector<std::string> ExampleDecks()
{
    std::vector<std::string> paths;
    for (const char* folder : {QUOR_SOURCE_DIR "/examples/decks", QUOR_SOURCE_DIR "/examples/decks/field"}) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".data")
                paths.push_back(entry.path().string());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

int Run(const Settings& settings)
{
    const DeckLanguage language;
    std::vector<SampleDeck> decks;
    for (const std::string& path : settings.decks.empty() ? ExampleDecks() : settings.decks)
        decks.emplace_back(path, language);
    const std::vector<Kind> kinds = MakeKinds(settings.kind);
    std::vector<Result> results(kinds.size());
    for (std::size_t i = 0; i < settings.seeds; ++i)
        TryOnce(kinds[i % kinds.size()], decks, language, settings.seed * 1'000'000 + i,
            results[i % kinds.size()]);

    fmt::print("{:<56} {:>5} {:>8} {:>9} {:>7} {:>6}\n", "kind", "seeds", "at place", "elsewhere", "several",
        "silent");
    Counts all = {};
    std::size_t below = 0;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const Counts& counts = results[i].counts;
        Print(kinds[i].name, counts);
        for (std::size_t j = 0; j < std::min(settings.examples, results[i].examples.size()); ++j)
            fmt::print("{}", results[i].examples[j]);
        for (std::size_t j = 0; j < outcomeCount; ++j)
            all[j] += counts[j];
        below += ShareAtPlace(counts) < 80 ? 1U : 0U;
    }
    Print(fmt::format("all {} kinds, {} of them below 80 %", kinds.size(), below), all);
    return ShareAtPlace(all) < settings.least ? 1 : 0;
}

} // namespace

int main(int count, char** words)
try {
    CLI::App app("Seeds mistakes into decks without findings, and counts by kind what is found.");
    Settings settings;
    app.add_option(
        "DECK", settings.decks, "Decks without a finding; those of the examples if there are none");
    app.add_option("--seeds", settings.seeds, "How many mistakes, of all kinds in turn")
        ->capture_default_str();
    app.add_option("--seed", settings.seed, "Other numbers, other places")->capture_default_str();
    app.add_option("--kind", settings.kind, "Only the kinds whose name contains this text");
    app.add_option("--least", settings.least, "Fail if fewer in a hundred have one finding at their place");
    app.add_option(
        "--examples", settings.examples, "Show so many mistakes of each kind that are reported otherwise");
    CLI11_PARSE(app, count, words);
    return Run(settings);
} catch (const std::exception& error) {
    std::fprintf(stderr, "trust: error: %s\n", error.what());
    return 2;
}
