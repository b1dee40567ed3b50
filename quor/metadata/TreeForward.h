#pragma once

namespace Veld::Quor::Core::Service::XML::Internal {
class TreeElement; ///< An element of a document as the loader has it; hosts have those of a DOM.
} // namespace Veld::Quor::Core::Service::XML::Internal
