#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordNumericMD.h"

namespace Veld::Quor::Core::Keywords {

/// A whole number of 32 bits.
class VELD_QUOR_EXPORT IKeywordIntegerMD : public IKeywordNumericMD {
public:
    ~IKeywordIntegerMD() override;

    /// For exactly `simulator`; without a value if it is calculated or absent. `IsDefaultSpecified` says
    /// which.
    virtual Service::Optional<int> GetDefault(SimulatorType::Enum simulator) const = 0;
    /// The limits of the document, both included; without a value: none. Nothing checks that the least is
    /// below the greatest.
    /// @{
    virtual Service::Optional<int> GetMin() const = 0;
    virtual Service::Optional<int> GetMax() const = 0;
    /// @}
};

} // namespace Veld::Quor::Core::Keywords
