#include "quor/deck/internal/physics/Checks.h"

#include "quor/metadata/Units.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

/// The depth below which the weight of the water above decides on the pressure.
constexpr double leastDepth = 300; // m
constexpr double leastGradient = 0.025; // bar/m
constexpr double greatestGradient = 0.35;

/// In bar and m, of numbers in units of a system.
double GradientOf(double pressure, double depth, UnitSystem::Enum pressures, UnitSystem::Enum depths)
{
    return Units::Convert("pressure", pressure, pressures, UnitSystem::METRIC).value_or(0)
        / Units::Convert("length", depth, depths, UnitSystem::METRIC).value_or(1);
}

} // namespace

/// Pressure grows by about 0.1 bar for each metre of depth: L. P. Dake, Fundamentals of Reservoir
/// Engineering, 1978, section 1.3.
void CheckDatumPressure(PhysicsFacts& facts)
{
    const auto system = facts.FindUnits();
    facts.ForEachTable([&](const RoleTable& table) {
        const auto* const depths = table.Find(Role::DepthOfDatum);
        const auto* const pressures = table.Find(Role::PressureOfDatum);
        if (!system || !depths || !pressures || facts.AreUnitsReported())
            return;
        const double depth = depths->values.front();
        const double pressure = pressures->values.front();
        if (!(Units::Convert("length", depth, *system, UnitSystem::METRIC).value_or(0) > leastDepth))
            return;
        const double gradient = GradientOf(pressure, depth, *system, *system);
        const UnitSystem::Enum other = *system == UnitSystem::FIELD ? UnitSystem::METRIC : UnitSystem::FIELD;
        const double inOther = GradientOf(pressure, depth, other, *system);
        if ((gradient > leastGradient && gradient < greatestGradient) || !(inOther > 0.07 && inOther < 0.2))
            return;
        facts.ReportUnits(facts.RangeOf(table, *pressures, 0),
            fmt::format("{}: {} is {} {} at a depth of {} {}; expected about {:.4g}", facts.NameOf(table),
                pressures->name, pressure, Units::Find("pressure", *system)->name, depth,
                Units::Find("length", *system)->name, pressure * 0.1 / gradient),
            other);
    });
}

} // namespace Veld::Quor::Core::Decks
