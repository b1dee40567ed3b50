#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordItemMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// A word, quoted or not.
class VELD_QUOR_EXPORT IKeywordStringMD : public IKeywordItemMD {
public:
    ~IKeywordStringMD() override;

    /// Whether values that differ in case are different; false unless the document says so.
    virtual bool IsCaseSensitive() const = 0;
    /// Greatest length in characters; 8 unless the document says otherwise.
    virtual int LimitLengthTo() const = 0;
    /// For exactly `simulator`; without a value if it is calculated or absent. `IsDefaultSpecified` says
    /// which.
    virtual Service::Optional<std::string> GetDefault(SimulatorType::Enum simulator) const = 0;
    /// Whether a comma may be part of an unquoted value.
    virtual bool CanContainComma() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
