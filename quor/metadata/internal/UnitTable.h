#pragma once

#include "quor/foundation/UnitSystem.h"
#include "quor/metadata/Units.h"

#include <string_view>

namespace Veld::Quor::Core::Keywords::Internal {

/// The units of one measurement, by system.
struct MeasurementUnits {
    std::string_view measurement;
    Unit units[UnitSystem::Count];
};

/// By name, in the order of characters.
struct UnitTable {
    const MeasurementUnits* begin;
    const MeasurementUnits* end;
};

/// Defined in a source that the build makes of the tables in language/units/.
extern const UnitTable unitTable;

} // namespace Veld::Quor::Core::Keywords::Internal
