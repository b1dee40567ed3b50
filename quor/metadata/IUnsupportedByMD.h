#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"

namespace Veld::Quor::Core::Keywords {

/// Who accepts a record item or a choice but doesn't act on it.
class VELD_QUOR_EXPORT IUnsupportedByMD {
public:
    virtual ~IUnsupportedByMD();
    /// `SimulatorModeType::Any` asks for some mode.
    virtual bool IsUnsupportedBy(SimulatorType::Enum simulator, SimulatorModeType::Enum mode) const = 0;
};

} // namespace Veld::Quor::Core::Keywords
