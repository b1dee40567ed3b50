#pragma once

#include "quor/syntax/IKeywordSyntax.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace Veld::Quor::Tools {

/// Where a keyword is valid under `spelling`: a line, or a table of simulators by sections with a letter for
/// each mode.
std::string ValidityText(const Core::Keywords::IKeywordSyntax& syntax, const std::string& spelling);

/// An object: section to simulator to modes.
nlohmann::ordered_json ValidityJson(
    const Core::Keywords::IKeywordSyntax& syntax, const std::string& spelling);

} // namespace Veld::Quor::Tools
