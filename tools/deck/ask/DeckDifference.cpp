#include "tools/deck/ask/DeckDifference.h"

#include "tools/deck/ask/DeckUnits.h"
#include "tools/deck/ask/ReportSteps.h"
#include "tools/deck/ask/SpotPlaces.h"

#include <fmt/format.h>

#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Veld::Quor::Tools::Deck {

namespace {

using Kind = Change::Kind;

/// What both decks have under one key.
struct Bucket {
    std::vector<const Unit*> before;
    std::vector<const Unit*> after;
};

/// In the order of the first deck, and behind it what only the second one has.
std::vector<Bucket> Match(const StepUnits* before, const StepUnits* after)
{
    std::vector<Bucket> buckets;
    std::unordered_map<std::string_view, std::size_t> positions;
    const auto add = [&](const StepUnits* units, std::vector<const Unit*> Bucket::*side) {
        if (!units)
            return;
        for (const Unit& unit : units->units) {
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

Change ChangeOf(Kind kind, const Unit& unit)
{
    return {kind, unit.name, unit.identity};
}

/// Values that are variables are no part of the data.
std::string VariablesOf(const Unit& unit)
{
    const DataNotes* const notes = unit.keyword->notes.get();
    return notes && notes->variables && unit.data ? notes->variables->ListBelow(*unit.data) : std::string();
}

class Comparer {
public:
    Comparer(const Deck& a, const Deck& b, const ComparisonOptions& options)
        : a_(a)
        , b_(b)
        , comparison_(options)
    {
    }

    Difference Compare();

private:
    void CompareSteps(const Step& step, const StepUnits* before, const StepUnits* after);
    void CompareBucket(const Bucket& bucket);
    void CompareUnits(const Unit& before, const Unit& after);
    void Tell(Change change, const Spot* before, const Spot* after);
    void FillPlaces();

    const Deck& a_;
    const Deck& b_;
    DataComparison comparison_;
    Difference difference_;
    std::vector<Change> changes_; // of the step
    // Of all changes in order, to be turned into places at the end, in one pass through the files.
    std::vector<Spot> spotsBefore_;
    std::vector<Spot> spotsAfter_;
};

Difference Comparer::Compare()
{
    const auto before = SplitDeck(a_);
    const auto after = SplitDeck(b_);
    std::set<Step> steps;
    for (const auto* const side : {&before, &after}) {
        for (const auto& [step, units] : *side)
            steps.insert(step);
    }
    for (const Step& step : steps) {
        const auto inBefore = before.find(step);
        const auto inAfter = after.find(step);
        CompareSteps(step, inBefore == before.end() ? nullptr : &inBefore->second,
            inAfter == after.end() ? nullptr : &inAfter->second);
    }
    FillPlaces();
    return std::move(difference_);
}

void Comparer::CompareSteps(const Step& step, const StepUnits* before, const StepUnits* after)
{
    if (step.IsReport() && before && !after)
        Tell({Kind::Gone, {}, {}}, &before->spot, nullptr);
    else if (step.IsReport() && after && !before)
        Tell({Kind::Added, {}, {}}, nullptr, &after->spot);
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
            && VariablesOf(*bucket.before[i]) == VariablesOf(*bucket.after[j]);
    });
    for (const auto& [i, j] : pairs) {
        if (i == unpaired)
            Tell(ChangeOf(Kind::Added, *bucket.after[j]), nullptr, &bucket.after[j]->spot);
        else if (j == unpaired)
            Tell(ChangeOf(Kind::Gone, *bucket.before[i]), &bucket.before[i]->spot, nullptr);
        else
            CompareUnits(*bucket.before[i], *bucket.after[j]);
    }
}

void Comparer::CompareUnits(const Unit& before, const Unit& after)
{
    if (!before.data || !after.data)
        return;
    Change change = ChangeOf(Kind::Changed, before);
    for (ItemChange& item : comparison_.Compare(*before.data, *after.data)) {
        change.item = std::move(item);
        Tell(change, &before.spot, &after.spot);
    }
    const std::string oldVariables = VariablesOf(before);
    const std::string newVariables = VariablesOf(after);
    if (oldVariables == newVariables)
        return;
    change.item = {"variables", oldVariables.empty() ? "none" : oldVariables,
        newVariables.empty() ? "none" : newVariables};
    Tell(change, &before.spot, &after.spot);
}

/// A null spot: the deck has no such thing.
void Comparer::Tell(Change change, const Spot* before, const Spot* after)
{
    if (before) {
        spotsBefore_.push_back(*before);
        change.before.emplace();
    }
    if (after) {
        spotsAfter_.push_back(*after);
        change.after.emplace();
    }
    ++difference_.counts[static_cast<std::size_t>(change.kind)];
    changes_.push_back(std::move(change));
}

void Comparer::FillPlaces()
{
    const std::vector<Place> placesBefore = PlacesOf(a_.files, spotsBefore_);
    const std::vector<Place> placesAfter = PlacesOf(b_.files, spotsAfter_);
    auto before = placesBefore.begin();
    auto after = placesAfter.begin();
    for (ChangeGroup& group : difference_.groups) {
        for (Change& change : group.changes) {
            if (change.before)
                change.before = *before++;
            if (change.after)
                change.after = *after++;
        }
    }
}

} // namespace

Difference Compare(const Deck& a, const Deck& b, const ComparisonOptions& options)
{
    return Comparer(a, b, options).Compare();
}

} // namespace Veld::Quor::Tools::Deck
