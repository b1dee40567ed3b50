#include "quor/deck/DeckUnits.h"

#include "quor/deck/Deck.h"
#include "quor/syntax/IKeywordSyntax.h"

namespace Veld::Quor::Core::Decks {

using Keywords::UnitSystem;

UnitSystem::Enum UnitSystemOf(const Deck& deck)
{
    UnitSystem::Enum system = UnitSystem::METRIC;
    for (const DeckKeyword keyword : deck.GetSection(Keywords::SectionType::RUNSPEC)) {
        bool isSystem = false;
        const auto named = UnitSystem::FromString(keyword.GetSyntax().GetName(), &isSystem);
        if (isSystem)
            system = named;
    }
    return system;
}

} // namespace Veld::Quor::Core::Decks
