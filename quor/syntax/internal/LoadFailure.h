#pragma once

#include <string>

namespace Veld::Quor::Core::Keywords {

/// Prints the message on standard output, which hosts rely on, and throws it as a `KeywordException`.
[[noreturn]] void FailLoad(const std::string& message);

} // namespace Veld::Quor::Core::Keywords
