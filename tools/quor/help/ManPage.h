#pragma once

#include "tools/quor/help/ProgramDescription.h"

#include <string>

namespace Veld::Quor::Tools {

/// The manual page of a program, in roff. A paragraph of its notes that begins with "Title: " is a section of
/// that title.
std::string ManPage(const CommandDescription& program, const std::string& version);

} // namespace Veld::Quor::Tools
