#pragma once

#include <string>

namespace Veld::Quor::Tools {

/// Of the library, in four parts with dots; empty if it tells none.
std::string GetVersion();

} // namespace Veld::Quor::Tools
