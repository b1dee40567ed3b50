#pragma once

#include "quor/foundation/service/xml/XMLDocument.h"

#include <optional>
#include <string>

namespace Veld::Quor::Core::Service::XML::Internal {

/// All bytes of a regular file of this machine. None for one that can't be read, or is too large; `Log` gets
/// the reason.
std::optional<std::string> ReadFile(const char* path);

/// Logs why the document of that name is refused, with its location.
void LogFailure(const char* name, const XMLDocument::Failure& failure);

} // namespace Veld::Quor::Core::Service::XML::Internal
