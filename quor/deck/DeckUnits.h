#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/UnitSystem.h"

namespace Veld::Quor::Core::Decks {

class Deck;

/// The system of units that the deck selects in RUNSPEC, by a keyword with the name of the system: the last
/// one holds. METRIC for a deck that names none. `Keywords::Units` has the units. Several threads may ask at
/// once. Throws `std::logic_error` if the deck was moved from, `std::bad_alloc`.
VELD_QUOR_EXPORT Keywords::UnitSystem::Enum UnitSystemOf(const Deck& deck);

} // namespace Veld::Quor::Core::Decks
