#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorModeFlags.h"
#include "quor/foundation/service/xml/DomForward.h"
#include "quor/metadata/IUnsupportedByMD.h"
#include "quor/metadata/TreeForward.h"

namespace Veld::Quor::Core::Keywords {

/// Who accepts a record item or a choice without effect: hosts read it through `IUnsupportedByMD`, and need
/// this class only to build metadata by code.
class VELD_QUOR_EXPORT UnsupportedByMDImpl : public IUnsupportedByMD {
public:
    /// Unsupported everywhere or nowhere.
    explicit UnsupportedByMDImpl(bool unsupported)
        : flags_(unsupported)
    {
    }

    bool IsUnsupportedBy(SimulatorType::Enum simulator, SimulatorModeType::Enum mode) const override
    {
        return flags_.Get(simulator, mode);
    }
    /// Writes one flag; `SimulatorModeType::Any` has a separate one, which `IsUnsupportedBy` never looks at.
    void Set(SimulatorType::Enum simulator, SimulatorModeType::Enum mode, bool unsupported)
    {
        flags_.Set(simulator, mode, unsupported);
    }
    /// Unsupported everywhere or nowhere.
    void Reset(bool unsupported) { flags_.Reset(unsupported); }

    /// Replaces what was there by the simulators that the element names, in all modes.
    void ReadXML(const xercesc::DOMElement* element);
    /// The same for the loader.
    void ReadXML(const Service::XML::Internal::TreeElement& element);

private:
    SimulatorModeFlags flags_;
};

} // namespace Veld::Quor::Core::Keywords
