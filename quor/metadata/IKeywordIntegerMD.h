#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordNumericMD.h"

namespace Veld::Quor::Core::Keywords {

class VELD_QUOR_EXPORT IKeywordIntegerMD : public IKeywordNumericMD {
public:
    ~IKeywordIntegerMD() override;

    virtual Service::Optional<int> GetDefault(SimulatorType::Enum simulator) const = 0;
    virtual Service::Optional<int> GetMin() const = 0;
    virtual Service::Optional<int> GetMax() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
