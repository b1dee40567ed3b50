#pragma once

#include "tools/quor/findings/FindingFormat.h"

#include <nlohmann/json_fwd.hpp>

namespace Veld::Quor::Tools {

nlohmann::ordered_json FindingJson(const Core::Decks::Finding& finding, const Fix& fix = {});

/// How many there are in all, by severity, how many of them aren't kept, and how many more are hidden.
nlohmann::ordered_json CountsJson(const FindingSets& sets);

} // namespace Veld::Quor::Tools
