#pragma once

#include "quor/lint/internal/NameRules.h"

#include <vector>

namespace Veld::Quor::Core::Lint {

/// Follows the precedents, visiting each keyword once, and reports each step that closes a cycle.
void CheckCycles(const std::vector<Definition>& definitions);

} // namespace Veld::Quor::Core::Lint
