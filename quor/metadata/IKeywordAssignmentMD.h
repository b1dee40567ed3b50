#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordItemMD.h"

#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// A named integer in a map. It is known by its keys: its name and item number are those of no item.
class VELD_QUOR_EXPORT IKeywordAssignmentMD : public IKeywordItemMD {
public:
    /// By simulator; an entry without a value is a calculated default, and a simulator without entry has
    /// none.
    using Defaults = std::map<SimulatorType::Enum, Service::Optional<int>>;

    ~IKeywordAssignmentMD() override;

    /// For exactly `simulator`; without a value if it is calculated or absent. `IsDefaultSpecified` says
    /// which.
    virtual Service::Optional<int> GetDefault(SimulatorType::Enum simulator) const = 0;
    /// All defaults, those of `SimulatorType::Any` included. Lasts as long as this object.
    virtual const Defaults& GetDefaults() const = 0;
    /// The limits of the document, both included; without a value: none.
    /// @{
    virtual Service::Optional<int> GetMin() const = 0;
    virtual Service::Optional<int> GetMax() const = 0;
    /// @}
    /// Whether the simulator knows the assignment: one of the ten, never `SimulatorType::Any`. False for all
    /// if the document has no validity.
    virtual bool IsValid(SimulatorType::Enum simulator) const = 0;
    /// The names that select it, in upper case if they are ever to match.
    virtual const std::vector<std::string>& GetKeys() const = 0;
    /// Whether its keys are patterns that end in `*`.
    virtual bool IsWildcard() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
