#include "quor/deck/DeckDifference.h"

#include "quor/deck/internal/ContentsOf.h"
#include "quor/deck/internal/compare/ComparisonUnits.h"
#include "quor/deck/internal/compare/DataComparison.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

using Kind = Change::Kind;

/// What both decks have under one key.
struct Bucket {
    std::vector<const ComparisonUnit*> before;
    std::vector<const ComparisonUnit*> after;
};

/// In the order of the first deck, and after it what only the second one has.
std::vector<Bucket> Match(const StepUnits* before, const StepUnits* after)
{
    std::vector<Bucket> buckets;
    std::unordered_map<std::string_view, std::size_t> positions;
    const auto add = [&](const StepUnits* units, std::vector<const ComparisonUnit*> Bucket::*side) {
        if (!units)
            return;
        for (const ComparisonUnit& unit : units->units) {
            const auto [position, isNew] = positions.try_emplace(unit.key, buckets.size());
            if (isNew)
                buckets.emplace_back();
            (buckets[position->second].*side).push_back(&unit);
        }
    };
    add(before, &Bucket::before);
    add(after, &Bucket::after);
    return buckets;
}

Change ChangeOf(Kind kind, const ComparisonUnit& unit)
{
    return {kind, unit.name, unit.identity};
}

/// Values that are variables are no part of the data.
std::string VariablesOf(const ComparisonUnit& unit)
{
    const DataNotes* const notes = unit.keyword->notes.get();
    return notes && notes->variables && unit.data ? notes->variables->ListBelow(*unit.data) : std::string();
}

/// Nor are the numbers of a map in its older form.
std::string SwitchesOf(const ComparisonUnit& unit)
{
    const DataNotes* const notes = unit.keyword->notes.get();
    return notes ? fmt::format("{}", fmt::join(notes->switches, " ")) : std::string();
}

std::string OrNone(const std::string& text)
{
    return text.empty() ? "none" : text;
}

class Comparer {
public:
    Comparer(const DeckContents& a, const DeckContents& b, const ComparisonOptions& options)
        : a_(a)
        , b_(b)
        , comparison_(options.GetSimulator().value_or(a.GetTarget().simulator), options.DoDefaultsDiffer())
    {
    }

    Difference Compare();

private:
    void CompareSteps(const Step& step, const StepUnits* before, const StepUnits* after);
    void CompareBucket(const Bucket& bucket);
    void CompareUnits(const ComparisonUnit& before, const ComparisonUnit& after);
    void Report(Change change, const TextRange* before, const TextRange* after);

    const DeckContents& a_;
    const DeckContents& b_;
    DataComparison comparison_;
    Difference difference_;
    std::vector<Change> changes_; // of the step
};

Difference Comparer::Compare()
{
    auto before = FindSteps(a_);
    auto after = FindSteps(b_);
    MarkSame(a_, before, b_, after);
    SplitSteps(a_, before);
    SplitSteps(b_, after);
    std::set<Step> steps;
    for (const auto* const side : {&before, &after}) {
        for (const auto& [step, units] : *side)
            steps.insert(step);
    }
    for (const Step& step : steps) {
        const auto inBefore = before.find(step);
        const auto inAfter = after.find(step);
        if (inBefore != before.end() && inBefore->second.isSame)
            continue;
        CompareSteps(step, inBefore == before.end() ? nullptr : &inBefore->second,
            inAfter == after.end() ? nullptr : &inAfter->second);
    }
    return std::move(difference_);
}

void Comparer::CompareSteps(const Step& step, const StepUnits* before, const StepUnits* after)
{
    if (step.IsReport() && before && !after)
        Report({Kind::Removed, {}, {}}, &before->range, nullptr);
    else if (step.IsReport() && after && !before)
        Report({Kind::Added, {}, {}}, nullptr, &after->range);
    for (const Bucket& bucket : Match(before, after))
        CompareBucket(bucket);
    if (changes_.empty())
        return;
    std::string name = DateText(step.time);
    if (name.empty() && step.number > 0)
        name = fmt::format("report step {}", step.number);
    difference_.groups.push_back({step.section, std::move(name), std::exchange(changes_, {})});
}

void Comparer::CompareBucket(const Bucket& bucket)
{
    const Pairs pairs = PairUp(bucket.before.size(), bucket.after.size(), [&](std::size_t i, std::size_t j) {
        return comparison_.AreEqual(bucket.before[i]->data, bucket.after[j]->data)
            && VariablesOf(*bucket.before[i]) == VariablesOf(*bucket.after[j])
            && SwitchesOf(*bucket.before[i]) == SwitchesOf(*bucket.after[j]);
    });
    for (const auto& [i, j] : pairs) {
        if (i == unpaired)
            Report(ChangeOf(Kind::Added, *bucket.after[j]), nullptr, &bucket.after[j]->range);
        else if (j == unpaired)
            Report(ChangeOf(Kind::Removed, *bucket.before[i]), &bucket.before[i]->range, nullptr);
        else
            CompareUnits(*bucket.before[i], *bucket.after[j]);
    }
}

void Comparer::CompareUnits(const ComparisonUnit& before, const ComparisonUnit& after)
{
    if (!before.data || !after.data)
        return;
    Change change = ChangeOf(Kind::Changed, before);
    for (ItemChange& item : comparison_.Compare(*before.data, *after.data)) {
        change.item = std::move(item);
        Report(change, &before.range, &after.range);
    }
    const auto compare = [&](const char* what, const std::string& old, const std::string& now) {
        if (old == now)
            return;
        change.item = {what, OrNone(old), OrNone(now)};
        Report(change, &before.range, &after.range);
    };
    compare("variables", VariablesOf(before), VariablesOf(after));
    compare("numbers", SwitchesOf(before), SwitchesOf(after));
}

/// A null range: the deck has no such thing.
void Comparer::Report(Change change, const TextRange* before, const TextRange* after)
{
    if (before)
        change.before = a_.files.LocationOf(*before);
    if (after)
        change.after = b_.files.LocationOf(*after);
    ++difference_.counts[static_cast<std::size_t>(change.kind)];
    changes_.push_back(std::move(change));
}

} // namespace

Difference Compare(const Deck& a, const Deck& b, const ComparisonOptions& options)
{
    return Comparer(ContentsOf(a), ContentsOf(b), options).Compare();
}

} // namespace Veld::Quor::Core::Decks
