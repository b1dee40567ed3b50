#include "tools/deck/ask/SpotPlaces.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <tuple>

namespace Veld::Quor::Tools::Deck {

Spot SpotOf(const DeckKeyword& keyword, std::size_t element)
{
    if (element >= keyword.records.size())
        return keyword.name;
    const RecordPlace& place = keyword.records[element];
    return {static_cast<std::uint32_t>(place.file), place.offset, 1};
}

std::vector<Place> PlacesOf(const DeckFiles& files, const std::vector<Spot>& spots)
{
    std::vector<std::size_t> order(spots.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&spots](std::size_t a, std::size_t b) {
        return std::tie(spots[a].file, spots[a].offset) < std::tie(spots[b].file, spots[b].offset);
    });
    std::vector<Place> places(spots.size());
    for (const std::size_t i : order)
        places[i] = files.PlaceOf(spots[i]);
    return places;
}

} // namespace Veld::Quor::Tools::Deck
