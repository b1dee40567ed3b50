#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordNumericMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// A real number. Default and limits are the numbers of the document; nothing converts them to other units.
class VELD_QUOR_EXPORT IKeywordRealMD : public IKeywordNumericMD {
public:
    ~IKeywordRealMD() override;

    /// For exactly `simulator`; without a value if it is calculated or absent. `IsDefaultSpecified` says
    /// which.
    virtual Service::Optional<double> GetDefault(SimulatorType::Enum simulator) const = 0;
    /// The limits of the document, both included; without a value: none. Nothing checks that the least is
    /// below the greatest.
    /// @{
    virtual Service::Optional<double> GetMin() const = 0;
    virtual Service::Optional<double> GetMax() const = 0;
    /// @}
    /// What is measured, which decides the unit; null for a plain number. Equal names are one object in the
    /// process, so measurements can be compared by address. Never freed.
    virtual const std::string* GetMeasurement() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
