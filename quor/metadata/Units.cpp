#include "quor/metadata/Units.h"

#include "quor/metadata/internal/UnitTable.h"

#include <algorithm>

namespace Veld::Quor::Core::Keywords {

const Unit* Units::Find(std::string_view measurement, UnitSystem::Enum system)
{
    const auto& [begin, end] = Internal::unitTable;
    const Internal::MeasurementUnits* const row = std::lower_bound(begin, end, measurement,
        [](const Internal::MeasurementUnits& one, std::string_view name) { return one.measurement < name; });
    if (row == end || row->measurement != measurement || system < 0 || system >= UnitSystem::Count)
        return nullptr;
    return &row->units[system];
}

std::optional<double> Units::Convert(
    std::string_view measurement, double value, UnitSystem::Enum from, UnitSystem::Enum to)
{
    const Unit* const before = Find(measurement, from);
    const Unit* const after = Find(measurement, to);
    if (!before || !after)
        return std::nullopt;
    if (std::string_view(before->name) == after->name)
        return value; // exactly
    if (before->factor == 0 || after->factor == 0)
        return std::nullopt;
    return (value * before->factor + before->offset - after->offset) / after->factor;
}

} // namespace Veld::Quor::Core::Keywords
