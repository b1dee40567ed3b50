#include "quor/deck/internal/physics/Checks.h"

#include <fmt/format.h>

#include <cmath>
#include <numeric>

namespace Veld::Quor::Core::Decks {

namespace {

using Column = RoleTable::Column;
using Rows = std::vector<std::size_t>;

constexpr Role::Enum positive[] = {Role::VolumeOfOil, Role::VolumeOfGas, Role::VolumeOfWater,
    Role::ViscosityOfOil, Role::ViscosityOfGas, Role::ViscosityOfWater};

/// Nothing flows with a viscosity of zero, and nothing fills no volume.
void CheckPositive(const PhysicsFacts& facts, const RoleTable& table)
{
    for (const Role::Enum role : positive) {
        const Column* const column = table.Find(role);
        for (std::size_t row = 0; column && row < column->values.size(); ++row) {
            if (column->values[row] != 0)
                continue;
            facts.Report(table, *column, row, Code::FluidZero,
                fmt::format("{}: {} of table {} is 0; expected a value above 0", facts.NameOf(table),
                    column->name, table.element + 1),
                "write the value of the fluid");
            break;
        }
    }
}

struct Trend {
    Role::Enum role;
    bool isRise; // else it falls
    Role::Enum along; // which rises
};

/// Reports the first of the rows that is against the trend; whether there is one.
bool IsAgainst(const PhysicsFacts& facts, const RoleTable& table, const Rows& rows, const Trend& trend)
{
    const Column* const column = table.Find(trend.role);
    const Column* const along = table.Find(trend.along);
    if (!column || !along)
        return false;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const double last = column->values[rows[i - 1]];
        const double value = column->values[rows[i]];
        const bool isOdd = trend.isRise ? value < last : value > last;
        if (!isOdd || value == 0 || last == 0) // a zero was reported
            continue;
        facts.Report(table, *column, rows[i], Code::FluidTrend,
            fmt::format("{}: {} of table {} {} from {} to {} while {} increases from {} to {}",
                facts.NameOf(table), column->name, table.element + 1,
                trend.isRise ? "decreases" : "increases", last, value, along->name,
                along->values[rows[i - 1]], along->values[rows[i]]),
            "check the values of both rows, and the order of the columns");
        return true;
    }
    return false;
}

Rows RowsOf(const RoleTable& table, std::size_t branch)
{
    const std::size_t end =
        branch + 1 < table.branches.size() ? table.branches[branch + 1] : table.columns.front().values.size();
    Rows rows(end - table.branches[branch]);
    std::iota(rows.begin(), rows.end(), table.branches[branch]);
    return rows;
}

Rows SaturatedRows(const RoleTable& table)
{
    if (!table.branches.empty())
        return table.branches;
    Rows rows(table.columns.empty() ? 0 : table.columns.front().values.size());
    std::iota(rows.begin(), rows.end(), std::size_t(0));
    return rows;
}

} // namespace

/// How volumes and viscosities change along a table: W. D. McCain, The Properties of Petroleum Fluids, 1990,
/// chapters 6 and 10.
void CheckFluidTrends(const PhysicsFacts& facts)
{
    facts.ForEachTable([&](const RoleTable& table) {
        CheckPositive(facts, table);
        const Rows saturated = SaturatedRows(table);
        const auto isAgainst = [&](const Rows& rows, const Trend& trend) {
            return IsAgainst(facts, table, rows, trend);
        };
        constexpr Trend gas = {Role::ViscosityOfGas, true, Role::Pressure};
        constexpr Trend oil = {Role::ViscosityOfOil, true, Role::Pressure};
        if (isAgainst(saturated, gas))
            return;
        if (!table.Find(Role::ContentOfGas)) {
            isAgainst(saturated, oil);
            return;
        }
        bool isReported = isAgainst(saturated, {Role::Pressure, true, Role::ContentOfGas})
            || isAgainst(saturated, {Role::VolumeOfOil, true, Role::ContentOfGas})
            || isAgainst(saturated, {Role::ViscosityOfOil, false, Role::ContentOfGas});
        for (std::size_t branch = 0; branch < table.branches.size() && !isReported; ++branch)
            isReported = isAgainst(RowsOf(table, branch), oil);
    });
}

} // namespace Veld::Quor::Core::Decks
