#pragma once

#include "tools/quor/findings/FindingFormat.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// A log of one run. Codes that `rules` lacks are rules without a description.
std::string SarifText(const FindingSets& sets, const std::vector<FindingRule>& rules);

} // namespace Veld::Quor::Tools
