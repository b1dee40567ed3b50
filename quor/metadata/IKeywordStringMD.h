#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordItemMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class VELD_QUOR_EXPORT IKeywordStringMD : public IKeywordItemMD {
public:
    ~IKeywordStringMD() override;

    virtual bool IsCaseSensitive() const = 0;
    /// Greatest length in characters; 8 unless the document says otherwise.
    virtual int LimitLengthTo() const = 0;
    virtual Service::Optional<std::string> GetDefault(SimulatorType::Enum simulator) const = 0;
    virtual bool CanContainComma() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
