#include "language/generate/Quantities.h"

#include "quor/deck/DeckLanguage.h"

void CheckQuantities(const Element& element, const Measurements& measurements, const Place& place)
{
    const Place& here = element.place.file.empty() ? place : element.place; // what is made has no place
    const std::string* const name = element.tag == "quantity" ? element.Find("name") : nullptr;
    if (name && measurements.count(*name) == 0) {
        std::vector<std::string> known;
        for (const auto& [one, units] : measurements)
            known.push_back(one);
        const auto nearest = Veld::Quor::Core::Decks::FindNearest(known, *name);
        Fail(here,
            "the quantity '" + *name + "' has no unit; "
                + (nearest.empty() ? "add it to language/units/measurements.txt"
                                   : "did you mean '" + nearest.front() + "'?"));
    }
    for (const Element& child : element.children)
        CheckQuantities(child, measurements, here);
}
