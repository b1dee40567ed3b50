#pragma once

#include "tools/quor/findings/FindingFormat.h"

#include <string>

namespace Veld::Quor::Tools {

/// A line for each finding, in the form of a compiler.
std::string GccText(const FindingSets& sets);

/// A line for each finding, in the form of a workflow command.
std::string GitHubText(const FindingSets& sets);
/// The line for what isn't about a file.
std::string GitHubFailure(const std::string& message);

} // namespace Veld::Quor::Tools
