#include "tools/quor/tree/Measurements.h"

#include "quor/deck/DeckLanguage.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/MetadataFacts.h"

#include <algorithm>
#include <iterator>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

MeasurementCounts CountMeasurements(const LoadedLanguage::Syntaxes& syntaxes)
{
    MeasurementCounts counts;
    for (const IKeywordSyntax* syntax : syntaxes) {
        for (const std::string& measurement : MeasurementsOf(*syntax))
            ++counts[measurement];
    }
    return counts;
}

bool HasMeasurement(const IKeywordSyntax& syntax, const std::string& measurement)
{
    const auto measurements = MeasurementsOf(syntax);
    return std::binary_search(measurements.begin(), measurements.end(), measurement);
}

const std::string* FindMeasurement(const std::string& word, const MeasurementCounts& counts)
{
    const auto found = std::find_if(counts.begin(), counts.end(),
        [upper = ToUpper(word)](const auto& row) { return ToUpper(row.first) == upper; });
    return found == counts.end() ? nullptr : &found->first;
}

std::vector<std::string> FindNearestMeasurements(const std::string& word, const MeasurementCounts& counts)
{
    constexpr std::size_t most = 3;
    std::vector<std::string> all;
    std::transform(
        counts.begin(), counts.end(), std::back_inserter(all), [](const auto& row) { return row.first; });
    std::vector<std::string> nearest = Decks::FindNearest(all, word);
    for (const std::string& measurement : all) {
        const bool isPart = ToUpper(measurement).find(ToUpper(word)) != std::string::npos;
        const bool isNear = std::find(nearest.begin(), nearest.end(), measurement) != nearest.end();
        if (isPart && !isNear && nearest.size() < most)
            nearest.push_back(measurement);
    }
    return nearest;
}

} // namespace Veld::Quor::Tools
