#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/UnitSystem.h"

#include <optional>
#include <string_view>

namespace Veld::Quor::Core::Keywords {

/// A unit, and what it is in SI: value in SI = value * `factor` + `offset`.
struct Unit {
    const char* name; ///< such as "sm3/day"; "bar or m" if another value of the keyword tells which one it is
    double factor; ///< above 0; 0 if another value tells which unit it is
    double offset; ///< 0, except for readings of temperature
};

/// The units of measurements, as `IKeywordRealMD::GetMeasurement` names them. They are constants of the
/// library, never freed: any thread may ask at any time. No measurement throws: documents of a host may have
/// others than the library knows.
struct Units {
    /// The unit of the measurement in a system. Null for a measurement without a known unit, and for no
    /// system.
    VELD_QUOR_EXPORT static const Unit* Find(std::string_view measurement, UnitSystem::Enum system);

    /// The value in `to` of what is `value` in `from`. Empty if the measurement has no known unit, or if
    /// another value tells which unit it is and the systems don't have the same.
    VELD_QUOR_EXPORT static std::optional<double> Convert(
        std::string_view measurement, double value, UnitSystem::Enum from, UnitSystem::Enum to);
};

} // namespace Veld::Quor::Core::Keywords
