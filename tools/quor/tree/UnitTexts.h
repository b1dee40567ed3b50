#pragma once

#include "quor/foundation/UnitSystem.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/terminal/TextLayout.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>

namespace Veld::Quor::Tools {

/// The unit of a measurement; empty if none is known.
std::string UnitText(const std::string& measurement, Core::Keywords::UnitSystem::Enum system);

/// A number of the documents, which is in METRIC units, as a number in `system`. With its unit if that can't
/// be told, or without a system: then only if it isn't the same amount in all.
std::string AmountText(
    const std::string& measurement, double number, std::optional<Core::Keywords::UnitSystem::Enum> system);

/// The names of the systems, behind `row`; and the units of a measurement in these.
void AppendSystems(Columns::Row& row);
void AppendUnits(const std::string& measurement, Columns::Row& row);

/// A table of the units of what the keyword measures, in all systems; empty if it has none.
std::string UnitsTable(const Core::Keywords::IKeywordSyntax& syntax, std::size_t indent, std::size_t width);

/// An object from system to unit; null if none is known.
nlohmann::ordered_json UnitsJson(const std::string& measurement);

} // namespace Veld::Quor::Tools
