#pragma once

#include "quor/foundation/UnitSystem.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <cstddef>
#include <optional>
#include <string>

namespace Veld::Quor::Tools {

/// The data of a keyword, for people; on lines of `width` characters. Items have their units in the system
/// `units`; without one they have their measurements, and a table of the units in all systems is below.
std::string TreeText(const Core::Keywords::IKeywordSyntax& syntax, std::size_t width,
    std::optional<Core::Keywords::UnitSystem::Enum> units);

} // namespace Veld::Quor::Tools
