#pragma once

#include <string>

namespace Veld::Quor::Tools {

/// Of the library, in four parts with dots; empty if it has none.
std::string GetVersion();

} // namespace Veld::Quor::Tools
