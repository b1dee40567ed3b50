#include "tools/quor/tree/UnitTexts.h"

#include "quor/metadata/Units.h"
#include "tools/quor/tree/MetadataFacts.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

/// Whether one number is the same amount in both.
bool IsSame(const Unit& a, const Unit& b)
{
    return a.factor == b.factor && a.offset == b.offset;
}

} // namespace

std::string UnitText(const std::string& measurement, UnitSystem::Enum system)
{
    const Unit* const unit = Units::Find(measurement, system);
    return unit ? unit->name : "";
}

std::string UnitOfDocuments(const std::string& measurement, std::optional<UnitSystem::Enum> system)
{
    const Unit* const own = Units::Find(measurement, UnitSystem::METRIC);
    const auto& systems = UnitSystem::EnumInfos();
    const bool isForeign = own && std::any_of(systems.begin(), systems.end(), [&](const auto& row) {
        return (!system || *system == row.value) && !IsSame(*own, *Units::Find(measurement, row.value));
    });
    return isForeign ? std::string(" ") + own->name : "";
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
