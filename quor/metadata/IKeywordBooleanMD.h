#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordItemMD.h"

namespace Veld::Quor::Core::Keywords {

class VELD_QUOR_EXPORT IKeywordBooleanMD : public IKeywordItemMD {
public:
    ~IKeywordBooleanMD() override;

    virtual Service::Optional<bool> GetDefault(SimulatorType::Enum simulator) const = 0;
};

} // namespace Veld::Quor::Core::Keywords
