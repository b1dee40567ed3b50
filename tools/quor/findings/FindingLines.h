#pragma once

#include "tools/quor/findings/FindingFormat.h"

#include <string>

namespace Veld::Quor::Tools {

/// A line for each finding, in the form of a compiler.
std::string GccText(const FindingSets& sets);

/// A line for each finding, in the form of a workflow command.
std::string GitHubText(const FindingSets& sets);

} // namespace Veld::Quor::Tools
