#pragma once

#include "quor/foundation/SimulatorType.h"

namespace Veld::Quor::Core::Keywords {

/// An entry of a list of simulators in a document.
struct SimulatorEntry {
    SimulatorType::Enum simulator;
    bool isGridEditsOnly;
    bool isClassicOnly;
};

/// Sets the simulator of an entry. `Wend` speaks for its two variants as well, unless the entry is marked for
/// one of them: then the other is cleared.
template <class Set, class Clear>
void ApplySimulatorEntry(const SimulatorEntry& entry, Set set, Clear clear)
{
    set(entry.simulator);
    if (entry.simulator != SimulatorType::Wend)
        return;
    set(SimulatorType::Wend_GE);
    set(SimulatorType::Wend_CLASSIC);
    if (entry.isGridEditsOnly)
        clear(SimulatorType::Wend_CLASSIC);
    if (entry.isClassicOnly)
        clear(SimulatorType::Wend_GE);
}

} // namespace Veld::Quor::Core::Keywords
