#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordNumericMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class VELD_QUOR_EXPORT IKeywordRealMD : public IKeywordNumericMD {
public:
    ~IKeywordRealMD() override;

    virtual Service::Optional<double> GetDefault(SimulatorType::Enum simulator) const = 0;
    /// The limits are those of the document; nothing checks that the least lies below the greatest.
    virtual Service::Optional<double> GetMin() const = 0;
    virtual Service::Optional<double> GetMax() const = 0;
    /// What is measured, which decides the unit; null for a plain number. Equal names are one object in the
    /// process, so measurements can be compared by address.
    virtual const std::string* GetMeasurement() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
