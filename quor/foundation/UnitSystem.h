#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/EnumInfo.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// The systems of units in which the numbers of a deck may be. The values index tables of units and never
/// change.
struct UnitSystem {
    /// In the order of the rows.
    enum Enum : int {
        METRIC = 0, ///< metres, bar, days: that of a deck that names none
        FIELD = 1, ///< feet, psi, days, barrels
        LAB = 2, ///< centimetres, atmospheres, hours
        PVT_M = 3, ///< METRIC with pressures in atmospheres
    };
    static constexpr int Count = 4; ///< members with a row in the table

    /// The rows in the order of the values; the same object on every call, never freed. Each text is the
    /// keyword by which a deck selects the system.
    VELD_QUOR_EXPORT static const std::vector<Service::EnumInfo<UnitSystem>>& EnumInfos();

    /// Exact, case included, and not null. For an unknown name the answer is value 0, and only `found`, which
    /// may be null, tells.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& name, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* name, bool* found = nullptr);
    /// @}
    /// Empty for a value that has no string form. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

} // namespace Veld::Quor::Core::Keywords
