#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/service/EnumInfo.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// The simulators of the family. The values index validity tables and never change.
struct SimulatorType {
    /// In the order of the rows; `Any` has none.
    enum Enum : int {
        Carrow = 0,
        Dunmere = 1,
        Sedge = 2,
        Hallow = 3,
        Marlpit = 4,
        Ostrey = 5,
        Wend = 6,
        Tolmen = 7,
        Wend_GE = 8, ///< variant of `Wend` that edits grids only
        Wend_CLASSIC = 9, ///< variant of `Wend` in its classic form
        Any = 11, ///< in a query: any simulator; as the key of a default: the keyword as a whole
    };
    static constexpr int Count = 10; ///< members with a row in the table

    /// The rows in the order of the values; the same object on every call, never freed.
    VELD_QUOR_EXPORT static const std::vector<Service::EnumInfo<SimulatorType>>& EnumInfos();

    /// Exact, case included, and not null. For an unknown name the answer is value 0, and only `found`, which
    /// may be null, says so.
    /// @{
    VELD_QUOR_EXPORT static Enum FromString(const std::string& name, bool* found = nullptr);
    VELD_QUOR_EXPORT static Enum FromString(const char* name, bool* found = nullptr);
    /// @}
    /// Empty for a value that has no string form. Never freed.
    VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
    /// Whether the simulator can run in that mode at all. `SimulatorModeType::Any`: in some mode, which all
    /// can.
    VELD_QUOR_EXPORT static bool HasMode(Enum simulator, SimulatorModeType::Enum mode);
};

} // namespace Veld::Quor::Core::Keywords
