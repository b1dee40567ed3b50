#include "quor/deck/internal/physics/Checks.h"

#include <fmt/format.h>

#include <cmath>

namespace Veld::Quor::Core::Decks {

/// The pressure of the phase that wets less grows with its saturation: L. P. Dake, Fundamentals of Reservoir
/// Engineering, 1978, section 10.4.
void CheckCapillaryOrder(const PhysicsFacts& facts)
{
    facts.ForEachTable([&](const RoleTable& table) {
        const auto* const pressure = table.Find(Role::CapillaryPressureOfGas);
        const auto* const gas = table.Find(Role::SaturationOfGas);
        const auto* const liquid = table.Find(Role::SaturationOfLiquid);
        if (!pressure || !(gas || liquid))
            return;
        double last = pressure->values.front();
        for (std::size_t row = 1; row < pressure->values.size(); ++row) {
            const double value = pressure->values[row];
            if (gas ? value < last : value > last)
                return facts.Report(table, *pressure, row, Code::CapillaryOrder,
                    fmt::format("{}: {} of table {} {} from {} to {} while {} increases", facts.NameOf(table),
                        pressure->name, table.element + 1, gas ? "decreases" : "increases", last, value,
                        gas ? gas->name : liquid->name),
                    "capillary pressure increases with the saturation of gas");
            last = std::isnan(value) ? last : value;
        }
    });
}

} // namespace Veld::Quor::Core::Decks
