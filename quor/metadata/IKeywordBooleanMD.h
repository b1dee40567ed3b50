#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordItemMD.h"

namespace Veld::Quor::Core::Keywords {

/// Yes or no.
class VELD_QUOR_EXPORT IKeywordBooleanMD : public IKeywordItemMD {
public:
    ~IKeywordBooleanMD() override;

    /// For exactly `simulator`; without a value if it is calculated or absent. `IsDefaultSpecified` says
    /// which.
    virtual Service::Optional<bool> GetDefault(SimulatorType::Enum simulator) const = 0;
};

} // namespace Veld::Quor::Core::Keywords
