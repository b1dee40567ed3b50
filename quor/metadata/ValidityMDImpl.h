#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorModeFlags.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IValidityMD.h"
#include "quor/metadata/TreeForward.h"

namespace Veld::Quor::Core::Keywords {

/// Where a record item or a choice is valid: hosts read it through `IValidityMD`, and need this class only to
/// build metadata by code.
class VELD_QUOR_EXPORT ValidityMDImpl : public IValidityMD {
public:
    /// Valid everywhere or nowhere.
    explicit ValidityMDImpl(bool valid)
        : flags_(valid)
    {
    }

    bool IsValid(SimulatorType::Enum simulator, SimulatorModeType::Enum mode) const override
    {
        return flags_.Get(simulator, mode);
    }
    /// Writes one flag; `SimulatorModeType::Any` has a separate one, which `IsValid` never looks at.
    void Set(SimulatorType::Enum simulator, SimulatorModeType::Enum mode, bool valid)
    {
        flags_.Set(simulator, mode, valid);
    }
    /// Valid everywhere or nowhere.
    void Reset(bool valid) { flags_.Reset(valid); }

    /// Replaces what was there by the simulators (in all modes) and the modes (for all simulators) that the
    /// element names. The two add up. An element that names nothing is valid nowhere.
    void ReadXML(const xercesc::DOMElement* element);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element);

private:
    SimulatorModeFlags flags_;
};

} // namespace Veld::Quor::Core::Keywords
