#include "tools/quor/tree/Measurements.h"

#include "quor/deck/NearestWords.h"
#include "tools/quor/terminal/TextLayout.h"
#include "tools/quor/tree/MetadataFacts.h"

#include <algorithm>
#include <utility>

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
    const std::string upper = ToUpper(word);
    const std::size_t cutOff = std::max<std::size_t>(2, word.size() / 3);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const auto& [measurement, count] : counts) {
        const std::string other = ToUpper(measurement);
        const bool isPart = other.find(upper) != std::string::npos;
        const std::size_t distance = Decks::EditDistance(upper, other, cutOff);
        if (isPart || distance <= cutOff)
            near.emplace_back(distance, measurement);
    }
    std::sort(near.begin(), near.end());
    near.resize(std::min(near.size(), most));
    std::vector<std::string> nearest;
    for (auto& [distance, measurement] : near)
        nearest.push_back(std::move(measurement));
    return nearest;
}

} // namespace Veld::Quor::Tools
