#include "quor/deck/internal/physics/Checks.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

namespace {

/// Curves that were measured or fitted may end a little above zero.
constexpr double mostAtEnd = 1e-4;

constexpr Role::Enum permeabilities[] = {Role::PermeabilityToWater, Role::PermeabilityToGas,
    Role::PermeabilityToOilWithWater, Role::PermeabilityToOilWithGas, Role::PermeabilityToOil};

/// The permeability to a phase is zero where the phase just begins to flow, at one end of its table.
void CheckPermeability(const PhysicsFacts& facts, const RoleTable& table, const RoleTable::Column& column)
{
    const std::size_t last = column.values.size() - 1;
    const std::size_t row = column.values.front() <= column.values[last] ? 0 : last;
    if (!(std::min(column.values.front(), column.values[last]) > mostAtEnd))
        return;
    facts.Report(table, column, row, Code::SaturationEnd,
        fmt::format("{}: the lowest {} of table {} is {}; expected 0", facts.NameOf(table), column.name,
            table.element + 1, column.values[row]),
        "a phase does not flow at its lowest saturation");
}

void CheckEnd(const PhysicsFacts& facts, const RoleTable& table, const RoleTable::Column& column,
    std::size_t row, double expected)
{
    if (column.values[row] == expected)
        return;
    facts.Report(table, column, row, Code::SaturationEnd,
        fmt::format("{}: the {} {} of table {} is {}; expected {}", facts.NameOf(table),
            row == 0 ? "first" : "last", column.name, table.element + 1, column.values[row], expected),
        "the table has a row without free gas");
}

} // namespace

/// The ends of relative permeabilities: K. Aziz and A. Settari, Petroleum Reservoir Simulation, 1979,
/// section 2.4.
void CheckSaturationEnds(const PhysicsFacts& facts)
{
    facts.ForEachTable([&](const RoleTable& table) {
        for (const Role::Enum role : permeabilities) {
            if (const auto* const column = table.Find(role))
                CheckPermeability(facts, table, *column);
        }
        if (const auto* const gas = table.Find(Role::SaturationOfGas))
            CheckEnd(facts, table, *gas, 0, 0);
        if (const auto* const liquid = table.Find(Role::SaturationOfLiquid))
            CheckEnd(facts, table, *liquid, liquid->values.size() - 1, 1);
    });
}

} // namespace Veld::Quor::Core::Decks
