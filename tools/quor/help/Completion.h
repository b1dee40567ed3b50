#pragma once

#include "tools/quor/help/ProgramDescription.h"

#include <string>

namespace Veld::Quor::Tools {

/// Scripts that teach a shell the commands of a program, their options and the choices of those; files
/// elsewhere.
std::string BashCompletion(const CommandDescription& program);
std::string ZshCompletion(const CommandDescription& program);
std::string FishCompletion(const CommandDescription& program);

} // namespace Veld::Quor::Tools
