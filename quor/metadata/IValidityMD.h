#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"

namespace Veld::Quor::Core::Keywords {

/// Where a record item or a choice is valid. A simulator is one of the ten, never `SimulatorType::Any`.
class VELD_QUOR_EXPORT IValidityMD {
public:
    virtual ~IValidityMD();
    /// `SimulatorModeType::Any` asks for some mode.
    virtual bool IsValid(SimulatorType::Enum simulator, SimulatorModeType::Enum mode) const = 0;
};

} // namespace Veld::Quor::Core::Keywords
