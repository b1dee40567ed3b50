#include "quor/deck/internal/compare/ArrayOperations.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Veld::Quor::Core::Decks {

namespace {

/// Counts the values that aren't known, and summarizes the others.
void SummarizeValues(const std::vector<double>& values, ArraySummary& summary)
{
    summary.cells = values.size();
    long double sum = 0;
    for (const double value : values) {
        if (std::isnan(value)) {
            ++summary.unknown;
            continue;
        }
        if (!summary.range)
            summary.range = {value, 0, value};
        summary.range->least = std::min(summary.range->least, value);
        summary.range->greatest = std::max(summary.range->greatest, value);
        sum += value;
    }
    if (summary.range)
        summary.range->mean =
            static_cast<double>(sum / static_cast<long double>(summary.cells - summary.unknown));
}

} // namespace

std::vector<ArraySummary> ArrayOperations::GetArrays() const
{
    std::vector<ArraySummary> summaries(arrays_.size());
    for (const auto& [name, array] : arrays_) {
        ArraySummary& summary = summaries[array.number - 1];
        summary.array = name;
        summary.keywords = array.keywords;
        if (!array.keywords.empty())
            summary.location = deck_.files.LocationOf(array.last);
        SummarizeValues(array.values, summary);
        if (!summary.range && array.keywords.empty() && array.unknown.empty())
            summary.reason = "the deck doesn't set it";
        else if (!summary.range || summary.unknown > 0)
            summary.reason = array.unknown;
    }
    std::erase_if(summaries, [](const ArraySummary& summary) { // given whole, and used by others
        return summary.unknown == 0 && summary.keywords == std::vector{summary.array};
    });
    return summaries;
}

CellArrays ArrayOperations::TakeValues()
{
    CellArrays result;
    if (!isGridKnown_)
        return result;
    result.grid = grid_;
    for (auto& [name, array] : arrays_) {
        const auto isKnown = [](double value) { return !std::isnan(value); };
        if (std::any_of(array.values.begin(), array.values.end(), isKnown))
            result.arrays.push_back({name, std::move(array.values)});
    }
    return result;
}

} // namespace Veld::Quor::Core::Decks
