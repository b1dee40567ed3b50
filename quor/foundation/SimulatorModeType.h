#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/EnumInfo.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// What a simulator solves for. The values index validity tables and never change.
struct SimulatorModeType {
    /// In the order of the rows; `Any` has none.
    enum Enum : int {
        BlackOil = 0,
        Compositional = 1,
        Thermal = 2,
        Any = 3, ///< in a query: any mode
    };
    static constexpr int Count = 3; ///< members with a row in the table

    /// The rows in the order of the values; the same object on every call, never freed.
    VELD_QUOR_EXPORT static const std::vector<Service::EnumInfo<SimulatorModeType>>& EnumInfos();

    /// Exact, case included, and not null. For an unknown name the answer is value 0, and only `found`, which
    /// may be null, says so.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& name, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* name, bool* found = nullptr);
    /// @}
    /// Empty for a value that has no string form. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
};

} // namespace Veld::Quor::Core::Keywords
