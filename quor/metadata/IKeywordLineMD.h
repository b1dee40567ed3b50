#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordItemMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// The rest of a line, as it stands.
class VELD_QUOR_EXPORT IKeywordLineMD : public IKeywordItemMD {
public:
    ~IKeywordLineMD() override;

    virtual Service::Optional<std::string> GetDefault(SimulatorType::Enum simulator) const = 0;
};

} // namespace Veld::Quor::Core::Keywords
