#include "quor/deck/internal/physics/Checks.h"

#include "quor/data/Access.h"
#include "quor/deck/internal/physics/ActiveCells.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/rules/ValueRange.h"
#include "quor/metadata/Units.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

constexpr double mostJump = 500; // m
/// That of a depth that lacks a digit, or has one too many, as its ratio shows.
constexpr double jumpOfDigit = 200; // m
constexpr double ratioOfDigit = 8;

struct Jump {
    std::size_t odd; // of the two: further from the depths of all
    std::size_t other;
};

bool IsJump(double depth, double beside, double metre)
{
    const double jump = std::abs(depth - beside);
    const double least = std::min(std::abs(depth), std::abs(beside));
    const bool isOfDigit = least > 0 && std::max(std::abs(depth), std::abs(beside)) >= ratioOfDigit * least;
    return jump > mostJump * metre || (isOfDigit && jump > jumpOfDigit * metre);
}

/// Between cells beside one another in a row. `metre`: in the unit of the depths.
std::optional<Jump> FindJump(const ArrayView<double>& depths, const ActiveCells& active, double metre)
{
    const std::size_t nx = active.GetSizes()[0];
    const std::size_t ny = active.GetSizes()[1];
    for (std::size_t cell = 1; cell < depths.size(); ++cell) {
        const std::size_t i = cell % nx;
        const std::size_t j = cell / nx % ny;
        const std::size_t k = cell / nx / ny;
        if (i == 0 || !IsJump(depths[cell], depths[cell - 1], metre) || depths.IsDefaulted(cell)
            || depths.IsDefaulted(cell - 1) || !active.IsActive(i, j, k) || !active.IsActive(i - 1, j, k))
            continue;
        const double mean =
            std::accumulate(depths.begin(), depths.end(), 0.0) / static_cast<double>(depths.size());
        const bool isThis = std::abs(depths[cell] - mean) >= std::abs(depths[cell - 1] - mean);
        return isThis ? Jump{cell, cell - 1} : Jump{cell - 1, cell};
    }
    return std::nullopt;
}

} // namespace

/// Beds are continuous but for faults, whose throws are of hundreds of metres at most where cells are active:
/// D. K. Ponting, Corner Point Geometry in Reservoir Simulation, ECMOR I, 1989.
void CheckCellJumps(const PhysicsFacts& facts)
{
    const KeywordInstance* const tops = facts.FindKeyword(Role::CellTops);
    const ActiveCells active(facts);
    const auto system = facts.FindUnits();
    if (!tops || !system || !active.IsKnown())
        return;
    const auto& list = static_cast<const IKeywordListData&>(*tops->data);
    if (HasUnknown(list))
        return;
    const auto depths = As<double>(list);
    const double metre = Units::Convert("length", 1, UnitSystem::METRIC, *system).value_or(1);
    const auto jump = depths.size() <= active.GetCount() ? FindJump(depths, active, metre) : std::nullopt;
    if (!jump)
        return;
    facts.Report(FindValue(facts.GetDeck(), *tops, {jump->odd}), Code::CellJump,
        fmt::format("{}: depth {} of cell {} is far from {} of cell {} beside it", tops->syntax->GetName(),
            depths[jump->odd], active.NameOf(jump->odd), depths[jump->other], active.NameOf(jump->other)),
        "check the number of digits");
}

} // namespace Veld::Quor::Core::Decks
