#include "tools/quor/tree/UnitTexts.h"

#include "quor/metadata/Units.h"
#include "tools/quor/tree/MetadataFacts.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

/// Whether one number is the same amount in both.
bool IsSame(const Unit& a, const Unit& b)
{
    return a.factor == b.factor && a.offset == b.offset;
}

/// Whether the number only says very little or very much, and so is meant in each system.
bool IsBound(double number)
{
    constexpr double little = 1e-5;
    constexpr double much = 1e10;
    return (number != 0 && std::abs(number) <= little) || std::abs(number) >= much;
}

} // namespace

std::string UnitText(const std::string& measurement, UnitSystem::Enum system)
{
    const Unit* const unit = Units::Find(measurement, system);
    return unit ? unit->name : "";
}

std::string AmountText(const std::string& measurement, double number, std::optional<UnitSystem::Enum> system)
{
    if (system && IsBound(number))
        return fmt::format("{}", number);
    const auto converted =
        system ? Units::Convert(measurement, number, UnitSystem::METRIC, *system) : std::nullopt;
    if (converted)
        return *converted == number ? fmt::format("{}", number) : fmt::format("{:.6g}", *converted);
    const Unit* const own = Units::Find(measurement, UnitSystem::METRIC);
    const auto& systems = UnitSystem::EnumInfos();
    const bool isForeign = own && std::any_of(systems.begin(), systems.end(), [&](const auto& row) {
        return (!system || *system == row.value) && !IsSame(*own, *Units::Find(measurement, row.value));
    });
    const bool needsUnit = isForeign && (number != 0 || own->offset != 0);
    return fmt::format("{}{}{}", number, needsUnit ? " " : "", needsUnit ? own->name : "");
}

void AppendSystems(Columns::Row& row)
{
    for (const auto& system : UnitSystem::EnumInfos())
        row.push_back(system.text);
}

void AppendUnits(const std::string& measurement, Columns::Row& row)
{
    for (const auto& system : UnitSystem::EnumInfos())
        row.push_back(UnitText(measurement, system.value));
}

std::string UnitsTable(const IKeywordSyntax& syntax, std::size_t indent, std::size_t width)
{
    Columns::Row head = {"units of"};
    AppendSystems(head);
    Columns table(head);
    std::size_t rows = 0;
    for (const std::string& measurement : MeasurementsOf(syntax)) {
        if (UnitText(measurement, UnitSystem::METRIC).empty())
            continue;
        Columns::Row row = {measurement};
        AppendUnits(measurement, row);
        table.Add(row);
        ++rows;
    }
    std::string text = rows == 0 ? "" : table.GetHead(indent);
    for (std::size_t i = 0; i < rows; ++i)
        text += table.GetRow(i, indent, width);
    return text;
}

nlohmann::ordered_json UnitsJson(const std::string& measurement)
{
    nlohmann::ordered_json json;
    for (const auto& system : UnitSystem::EnumInfos()) {
        if (const std::string unit = UnitText(measurement, system.value); !unit.empty())
            json[system.text] = unit;
    }
    return json;
}

} // namespace Veld::Quor::Tools
