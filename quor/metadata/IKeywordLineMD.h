#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordItemMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// The rest of a line, as it is.
class VELD_QUOR_EXPORT IKeywordLineMD : public IKeywordItemMD {
public:
    ~IKeywordLineMD() override;

    /// For exactly `simulator`; without a value if it is calculated or absent. `IsDefaultSpecified` says
    /// which.
    virtual Service::Optional<std::string> GetDefault(SimulatorType::Enum simulator) const = 0;
};

} // namespace Veld::Quor::Core::Keywords
