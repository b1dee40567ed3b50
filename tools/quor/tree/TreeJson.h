#pragma once

#include "quor/syntax/IKeywordSyntax.h"

#include <nlohmann/json_fwd.hpp>

namespace Veld::Quor::Tools {

/// All that the metadata of a keyword say, as nested objects; null for a keyword that has no data. A validity
/// is null where there is no restriction, and otherwise an object from simulator to modes.
nlohmann::ordered_json TreeJson(const Core::Keywords::IKeywordSyntax& syntax);

} // namespace Veld::Quor::Tools
