#include "quor/deck/internal/physics/Checks.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

using Column = RoleTable::Column;

/// The volume factor of dry gas at a pressure: its inverse is linear between rows. 0 outside of the table.
double VolumeAt(const Column& pressures, const Column& volumes, double pressure)
{
    for (std::size_t row = 1; row < pressures.values.size(); ++row) {
        const double before = pressures.values[row - 1];
        const double after = pressures.values[row];
        if (pressure < before || !(pressure <= after))
            continue;
        const double part = (pressure - before) / (after - before);
        return 1 / ((1 - part) / volumes.values[row - 1] + part / volumes.values[row]);
    }
    return 0;
}

/// A rise of pressure must not make oil and the gas that dissolves in it larger together.
void CheckRegion(const PhysicsFacts& facts, const RoleTable& oil, const RoleTable& gas)
{
    const Column& pressures = *oil.Find(Role::Pressure);
    const Column& contents = *oil.Find(Role::ContentOfGas);
    const Column& volumes = *oil.Find(Role::VolumeOfOil);
    for (std::size_t branch = 1; branch < oil.branches.size(); ++branch) {
        const std::size_t from = oil.branches[branch - 1];
        const std::size_t to = oil.branches[branch];
        const double gasVolume = VolumeAt(*gas.Find(Role::Pressure), *gas.Find(Role::VolumeOfGas),
            (pressures.values[from] + pressures.values[to]) / 2);
        const double swelling = volumes.values[to] - volumes.values[from];
        const double dissolved = (contents.values[to] - contents.values[from]) * gasVolume;
        if (!(gasVolume > 0 && dissolved > 0 && swelling > dissolved))
            continue;
        return facts.Report(oil, volumes, to, Code::TotalCompressibility,
            fmt::format(
                "{}: {} of table {} rises by {:.4g} from {} {} to {}, more than the {:.4g} of the gas "
                "that dissolves; oil and gas together would expand under pressure",
                facts.NameOf(oil), volumes.name, oil.element + 1, swelling, contents.name,
                contents.values[from], contents.values[to], dissolved),
            "check both rows, and the volume factor of the gas",
            {facts.RelatedTo(gas, *gas.Find(Role::VolumeOfGas), 0, "the volume factor of the gas is here")});
    }
}

} // namespace

/// K. H. Coats, Simulation of Gas Condensate Reservoir Performance, JPT, October 1985: total compressibility
/// must be positive for the equations to have a solution.
void CheckTotalCompressibility(const PhysicsFacts& facts)
{
    const auto* const oil = facts.FindTables({Role::Pressure, Role::ContentOfGas, Role::VolumeOfOil});
    const auto* const gas = facts.FindTables({Role::Pressure, Role::VolumeOfGas});
    if (!facts.IsSure() || !oil || !gas || oil->size() != gas->size())
        return;
    for (std::size_t i = 0; i < oil->size(); ++i) {
        if ((*gas)[i].branches.empty())
            CheckRegion(facts, (*oil)[i], (*gas)[i]);
    }
}

} // namespace Veld::Quor::Core::Decks
