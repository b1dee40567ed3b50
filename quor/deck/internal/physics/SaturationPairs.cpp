#include "quor/deck/internal/physics/Checks.h"

#include <fmt/format.h>

#include <cmath>

namespace Veld::Quor::Core::Decks {

namespace {

/// Of saturations and permeabilities, which are written with few digits.
constexpr double rounding = 2e-3;

/// Calls `use` with the tables of the same region of two keywords.
template <class Use>
void ForEachRegion(const std::vector<RoleTable>* first, const std::vector<RoleTable>* second, const Use& use)
{
    if (!first || !second || first->size() != second->size())
        return;
    for (std::size_t i = 0; i < first->size(); ++i)
        use((*first)[i], (*second)[i]);
}

struct End {
    const RoleTable::Column* column;
    std::size_t row;

    double Value() const { return column->values[row]; }
};

/// Without free gas.
End GasFreeEnd(const RoleTable& table, Role::Enum role)
{
    const auto* const column = table.Find(role);
    return {column, table.Find(Role::SaturationOfLiquid) ? column->values.size() - 1 : 0};
}

/// Without free gas, and at connate water, oil is what both tables describe.
void CheckOil(const PhysicsFacts& facts, const RoleTable& water, const RoleTable& gas)
{
    const End withGas = GasFreeEnd(gas, Role::PermeabilityToOilWithGas);
    const End withWater = {water.Find(Role::PermeabilityToOilWithWater), 0};
    if (!(std::abs(withGas.Value() - withWater.Value()) > rounding))
        return;
    if (withWater.Value() < withGas.Value()) { // oil mostly flows freely there
        return facts.Report(water, *withWater.column, 0, Code::SaturationMismatch,
            fmt::format("{}: {} of table {} is {} at connate water, but {} of {} is {} without gas",
                facts.NameOf(water), withWater.column->name, water.element + 1, withWater.Value(),
                withGas.column->name, facts.NameOf(gas), withGas.Value()),
            "both are the permeability to oil at connate water; write the same value",
            {facts.RelatedTo(gas, *withGas.column, withGas.row,
                fmt::format("{} is {} here", withGas.column->name, withGas.Value()))});
    }
    facts.Report(gas, *withGas.column, withGas.row, Code::SaturationMismatch,
        fmt::format("{}: {} of table {} is {} without gas, but {} of {} is {} at connate water",
            facts.NameOf(gas), withGas.column->name, gas.element + 1, withGas.Value(), withWater.column->name,
            facts.NameOf(water), withWater.Value()),
        "both are the permeability to oil at connate water; write the same value",
        {facts.RelatedTo(water, *withWater.column, withWater.row,
            fmt::format("{} is {} here", withWater.column->name, withWater.Value()))});
}

/// Where the table of water has its connate saturation.
PhysicsFacts::Related ConnateWater(const PhysicsFacts& facts, const RoleTable& water)
{
    const auto& connate = *water.Find(Role::SaturationOfWater);
    return facts.RelatedTo(
        water, connate, 0, fmt::format("{} is {} here", connate.name, connate.values.front()));
}

/// Water is in all pores, and never below its connate saturation.
void CheckSum(const PhysicsFacts& facts, const RoleTable& water, const RoleTable& other, Role::Enum role)
{
    const auto& connate = *water.Find(Role::SaturationOfWater);
    const auto& phase = *other.Find(role);
    if (!(connate.values.front() + phase.values.back() > 1 + rounding))
        return;
    facts.Report(other, phase, phase.values.size() - 1, Code::SaturationMismatch,
        fmt::format("{}: {} of table {} reaches {}, but {} of {} begins at {}; expected a sum of at most 1",
            facts.NameOf(other), phase.name, other.element + 1, phase.values.back(), connate.name,
            facts.NameOf(water), connate.values.front()),
        "the highest saturation is 1 less that of connate water", {ConnateWater(facts, water)});
}

void CheckLiquid(const PhysicsFacts& facts, const RoleTable& water, const RoleTable& gas)
{
    const auto& connate = *water.Find(Role::SaturationOfWater);
    const auto& liquid = *gas.Find(Role::SaturationOfLiquid);
    if (!(liquid.values.front() < connate.values.front() - rounding))
        return;
    facts.Report(gas, liquid, 0, Code::SaturationMismatch,
        fmt::format("{}: {} of table {} begins at {}, but {} of {} begins at {}", facts.NameOf(gas),
            liquid.name, gas.element + 1, liquid.values.front(), connate.name, facts.NameOf(water),
            connate.values.front()),
        "liquid is oil and connate water; it is at least as much as the water", {ConnateWater(facts, water)});
}

/// At its highest saturation oil flows alone, whichever phase the column is for.
void CheckBothOils(const PhysicsFacts& facts, const RoleTable& table)
{
    const auto* const withWater = table.Find(Role::PermeabilityToOilWithWater);
    const auto* const withGas = table.Find(Role::PermeabilityToOilWithGas);
    if (!withWater || !withGas || !(std::abs(withWater->values.back() - withGas->values.back()) > rounding))
        return;
    facts.Report(table, *withGas, withGas->values.size() - 1, Code::SaturationMismatch,
        fmt::format("{}: {} and {} of table {} end with {} and {}; expected the same value",
            facts.NameOf(table), withWater->name, withGas->name, table.element + 1, withWater->values.back(),
            withGas->values.back()),
        "both are the permeability to oil at connate water without gas");
}

/// Before any production oil fills what connate water leaves.
void CheckOilRange(const PhysicsFacts& facts, const RoleTable& water, const RoleTable& oil)
{
    const auto& connate = *water.Find(Role::SaturationOfWater);
    const auto& phase = *oil.Find(Role::SaturationOfOil);
    if (!(connate.values.front() + phase.values.back() < 1 - rounding))
        return;
    facts.Report(oil, phase, phase.values.size() - 1, Code::SaturationMismatch,
        fmt::format("{}: {} of table {} ends at {}, but {} of {} begins at {}; expected a sum of 1",
            facts.NameOf(oil), phase.name, oil.element + 1, phase.values.back(), connate.name,
            facts.NameOf(water), connate.values.front()),
        "the highest saturation is 1 less that of connate water", {ConnateWater(facts, water)});
}

} // namespace

/// H. L. Stone, Probability Model for Estimating Three-Phase Relative Permeability, JPT, February 1970: the
/// curves of both pairs of phases meet where there is no gas and only connate water.
void CheckSaturationPairs(const PhysicsFacts& facts)
{
    facts.ForEachTable([&](const RoleTable& table) { CheckBothOils(facts, table); });
    if (!facts.IsSure())
        return;
    const auto* const gas = facts.FindTables({Role::SaturationOfGas, Role::PermeabilityToOilWithGas});
    const auto* const liquid = facts.FindTables({Role::SaturationOfLiquid, Role::PermeabilityToOilWithGas});
    const auto* const water = facts.FindTables({Role::SaturationOfWater});
    const auto* const oilInWater =
        facts.FindTables({Role::SaturationOfWater, Role::PermeabilityToOilWithWater});
    ForEachRegion(oilInWater, gas ? gas : liquid,
        [&](const RoleTable& one, const RoleTable& other) { CheckOil(facts, one, other); });
    ForEachRegion(
        water, liquid, [&](const RoleTable& one, const RoleTable& other) { CheckLiquid(facts, one, other); });
    ForEachRegion(water, facts.FindTables({Role::SaturationOfOil}),
        [&](const RoleTable& one, const RoleTable& other) { CheckOilRange(facts, one, other); });
    for (const Role::Enum role : {Role::SaturationOfGas, Role::SaturationOfOil})
        ForEachRegion(water, facts.FindTables({role}),
            [&](const RoleTable& one, const RoleTable& other) { CheckSum(facts, one, other, role); });
}

} // namespace Veld::Quor::Core::Decks
