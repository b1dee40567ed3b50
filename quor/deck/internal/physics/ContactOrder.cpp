#include "quor/deck/internal/physics/Checks.h"

#include <fmt/format.h>

#include <cmath>

namespace Veld::Quor::Core::Decks {

namespace {

bool HasWrongOrder(const PhysicsFacts& facts, const RoleTable& table)
{
    const auto* const water = table.Find(Role::ContactOfWater);
    const auto* const gas = table.Find(Role::ContactOfGas);
    if (!water || !gas || !(gas->values.front() > water->values.front()))
        return false;
    facts.Report(table, *gas, 0, Code::ContactOrder,
        fmt::format("{}: {} of region {} is {}, below {} at {}", facts.NameOf(table), gas->name,
            table.element + 1, gas->values.front(), water->name, water->values.front()),
        "gas is above oil, and oil above water; without oil, write the same depth twice");
    return true;
}

/// A contact that is as far above the surface as the datum is below it.
bool HasWrongSign(const PhysicsFacts& facts, const RoleTable& table)
{
    constexpr double leastDatum = 50; // m or feet
    const auto* const water = table.Find(Role::ContactOfWater);
    const auto* const datum = table.Find(Role::DepthOfDatum);
    if (!water || !datum || datum->values.front() < leastDatum)
        return false;
    const double height = -water->values.front();
    if (height < 0.5 * datum->values.front() || height > 2 * datum->values.front())
        return false;
    facts.Report(table, *water, 0, Code::ContactOrder,
        fmt::format("{}: {} of region {} is {}, but {} is {}", facts.NameOf(table), water->name,
            table.element + 1, water->values.front(), datum->name, datum->values.front()),
        "depths increase downwards; remove the sign");
    return true;
}

/// Oil that is saturated at the contact of gas is so at all depths below: its pressure must be known there.
void CheckDatum(const PhysicsFacts& facts, const RoleTable& table)
{
    const auto* const dissolved = table.Find(Role::TableOfDissolvedGas);
    const auto* const gas = table.Find(Role::ContactOfGas);
    const auto* const datum = table.Find(Role::DepthOfDatum);
    if (!dissolved || !gas || !datum || dissolved->values.front() > 0
        || std::abs(gas->values.front() - datum->values.front()) < 1)
        return;
    facts.Report(table, *datum, 0, Code::DatumDepth,
        fmt::format("{}: {} of region {} is {}, but {} is {}; expected the same depth without a table of "
                    "dissolved gas",
            facts.NameOf(table), datum->name, table.element + 1, datum->values.front(), gas->name,
            gas->values.front()),
        "write the pressure at the contact, or add a table of dissolved gas");
}

} // namespace

/// Phases in equilibrium lie in the order of their densities: L. P. Dake, Fundamentals of Reservoir
/// Engineering, 1978, section 1.4.
void CheckContactOrder(const PhysicsFacts& facts)
{
    const bool hasAllPhases =
        facts.Has(Role::PhaseOil) && facts.Has(Role::PhaseWater) && facts.Has(Role::PhaseGas);
    facts.ForEachTable([&](const RoleTable& table) {
        if (!HasWrongSign(facts, table) && !(hasAllPhases && HasWrongOrder(facts, table))
            && facts.Has(Role::DissolvedGas))
            CheckDatum(facts, table);
    });
}

} // namespace Veld::Quor::Core::Decks
