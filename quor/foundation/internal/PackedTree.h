#pragma once

#include "quor/foundation/internal/DocumentTree.h"

#include <optional>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Service::XML::Internal {

/// The bytes of a tree, for a machine like this one.
std::string BytesOf(const DocumentTree& tree);

/// The tree of such bytes, which it views; none if they are cut. They must begin where a number of eight
/// bytes may.
std::optional<DocumentTree> TreeOfBytes(std::string_view bytes);

} // namespace Veld::Quor::Core::Service::XML::Internal
