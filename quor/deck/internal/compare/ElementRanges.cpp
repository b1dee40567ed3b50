#include "quor/deck/internal/compare/ElementRanges.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <tuple>

namespace Veld::Quor::Core::Decks {

TextRange RangeOf(const DeckKeyword& keyword, std::size_t element)
{
    if (element >= keyword.records.size())
        return keyword.name;
    const RecordStart& location = keyword.records[element];
    return {static_cast<std::uint32_t>(location.file), location.offset, 1};
}

std::vector<Location> LocationsOf(const DeckFiles& files, const std::vector<TextRange>& ranges)
{
    std::vector<std::size_t> order(ranges.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&ranges](std::size_t a, std::size_t b) {
        return std::tie(ranges[a].file, ranges[a].offset) < std::tie(ranges[b].file, ranges[b].offset);
    });
    std::vector<Location> locations(ranges.size());
    for (const std::size_t i : order)
        locations[i] = files.LocationOf(ranges[i]);
    return locations;
}

} // namespace Veld::Quor::Core::Decks
