#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// A scalar.
///
/// Its default may differ from simulator to simulator. For each simulator, and for `SimulatorType::Any`,
/// which stands for the keyword as a whole, there is one of three: no default (`IsDefaultSpecified` is
/// false), a default that the simulator calculates (true, and the `GetDefault` of the derived interface has
/// no value), or a value. There is no fall-back from a simulator to `Any`: reading copied the keyword's
/// default to each simulator of the keyword.
class VELD_QUOR_EXPORT IKeywordItemMD : public IKeywordDataMD {
public:
    ~IKeywordItemMD() override;

    /// Whether there is a default, a value or a calculated one.
    virtual bool IsDefaultSpecified(SimulatorType::Enum simulator) const = 0;
    /// Whether the simulator is one for which the keyword is valid. False for all in an assignment.
    virtual bool IsKeywordSupported(SimulatorType::Enum simulator) const = 0;
    /// Whether the document has a separate default for this simulator.
    virtual bool hasOverride(SimulatorType::Enum simulator) const = 0;
    /// "calculated", "specified" or "no default"; empty without an override.
    virtual std::string GetOverrideType(SimulatorType::Enum simulator) const = 0;
};

} // namespace Veld::Quor::Core::Keywords
