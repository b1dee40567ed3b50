#pragma once

#include "tools/quor/tree/KeywordTree.h"

#include <nlohmann/json_fwd.hpp>

namespace Veld::Quor::Tools {

/// All that the tree holds, as nested objects; null for a keyword that carries nothing. A validity is null
/// where there is no restriction, and otherwise an object from simulator to modes.
nlohmann::ordered_json TreeJson(const KeywordTree& tree);

} // namespace Veld::Quor::Tools
