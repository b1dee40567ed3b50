#include "quor/deck/internal/physics/Checks.h"

#include "quor/data/Access.h"
#include "quor/deck/internal/physics/ActiveCells.h"
#include "quor/deck/internal/read/data/DataShape.h"
#include "quor/deck/internal/rules/ValueRange.h"
#include "quor/metadata/Units.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

constexpr double mostRelief = 1000; // m, within one face of a cell

struct OddCells {
    std::size_t count = 0; // of those whose bottom is above their top
    std::size_t first = 0; // of these
    std::optional<std::size_t> torn; // has a face with corners at all depths
};

/// The numbers of the corners of a cell: four of its top, then four of its bottom.
std::array<std::size_t, 8> CornersOf(const std::array<std::size_t, 3>& sizes, std::size_t cell)
{
    const std::size_t nx = sizes[0];
    const std::size_t plane = 4 * nx * sizes[1];
    const std::size_t first =
        2 * (cell / nx / sizes[1]) * plane + cell / nx % sizes[1] * 4 * nx + 2 * (cell % nx);
    const std::size_t next = 2 * nx; // the other side of the cell in j
    return {first, first + 1, first + next, first + next + 1, first + plane, first + plane + 1,
        first + plane + next, first + plane + next + 1};
}

double ReliefOf(double a, double b, double c, double d)
{
    return std::max(std::max(a, b), std::max(c, d)) - std::min(std::min(a, b), std::min(c, d));
}

OddCells FindOddCells(const double* depths, const ActiveCells& active, double relief)
{
    const auto& sizes = active.GetSizes();
    OddCells odd;
    for (std::size_t cell = 0; cell < active.GetCount(); ++cell) {
        const auto at = CornersOf(sizes, cell);
        const double top[] = {depths[at[0]], depths[at[1]], depths[at[2]], depths[at[3]]};
        const double bottom[] = {depths[at[4]], depths[at[5]], depths[at[6]], depths[at[7]]};
        const double thickness =
            bottom[0] - top[0] + bottom[1] - top[1] + bottom[2] - top[2] + bottom[3] - top[3];
        const bool isTorn = ReliefOf(top[0], top[1], top[2], top[3]) > relief
            || ReliefOf(bottom[0], bottom[1], bottom[2], bottom[3]) > relief;
        if ((thickness >= 0 && !isTorn) || !active.IsActive(cell))
            continue;
        if (isTorn && !odd.torn)
            odd.torn = cell;
        if (thickness < 0 && odd.count++ == 0)
            odd.first = cell;
    }
    return odd;
}

/// The corner that is furthest from the others.
std::size_t OddCornerOf(const double* depths, const std::array<std::size_t, 8>& corners)
{
    double mean = 0;
    for (const std::size_t corner : corners)
        mean += depths[corner] / 8;
    return *std::max_element(corners.begin(), corners.end(), [&](std::size_t a, std::size_t b) {
        return std::abs(depths[a] - mean) < std::abs(depths[b] - mean);
    });
}

} // namespace

/// A cell whose bottom is above its top has a negative volume: D. K. Ponting, Corner Point Geometry in
/// Reservoir Simulation, ECMOR I, 1989.
void CheckCornerDepths(const PhysicsFacts& facts)
{
    const KeywordInstance* const corners = facts.FindKeyword(Role::CornerDepths);
    const ActiveCells active(facts);
    const auto system = facts.FindUnits();
    if (!corners || !system || !active.IsKnown())
        return;
    const auto& list = static_cast<const IKeywordListData&>(*corners->data);
    if (HasUnknown(list))
        return;
    const auto depths = As<double>(list);
    if (depths.size() != 8 * active.GetCount())
        return;
    const double relief =
        Units::Convert("length", mostRelief, UnitSystem::METRIC, *system).value_or(mostRelief);
    const OddCells odd = FindOddCells(depths.data(), active, relief);
    const std::string& name = corners->syntax->GetName();
    if (odd.torn) {
        const std::size_t corner = OddCornerOf(depths.data(), CornersOf(active.GetSizes(), *odd.torn));
        facts.Report(FindValue(facts.GetDeck(), *corners, {corner}), Code::CellJump,
            fmt::format("{}: a corner of cell {} at {} is far from its other corners", name,
                active.NameOf(*odd.torn), depths[corner]),
            "check the number of digits");
    } else if (odd.count > 0) {
        const std::size_t corner = CornersOf(active.GetSizes(), odd.first)[0];
        facts.Report(FindValue(facts.GetDeck(), *corners, {corner}), Code::InvertedCell,
            fmt::format("{}: the bottom of cell {} is above its top{}", name, active.NameOf(odd.first),
                odd.count == 1 ? "" : fmt::format(", as in {} active cells in all", odd.count)),
            "depths increase downwards, and the depths of tops are before those of bottoms");
    }
}

} // namespace Veld::Quor::Core::Decks
