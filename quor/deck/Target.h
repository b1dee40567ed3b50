#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"

#include <string>

namespace Veld::Quor::Core::Decks {

/// Where a deck is to run. `Any` asks for what holds for at least one simulator, or mode.
struct Target {
    Keywords::SimulatorType::Enum simulator = Keywords::SimulatorType::Any; ///< or any
    Keywords::SimulatorModeType::Enum mode = Keywords::SimulatorModeType::Any; ///< or any
};

/// "Dunmere", "Dunmere in mode Thermal", or "mode Thermal" for any simulator; empty for any in any mode.
VELD_QUOR_EXPORT std::string NameOf(const Target& target);

} // namespace Veld::Quor::Core::Decks
