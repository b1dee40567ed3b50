#pragma once

#include "quor/foundation/builtin/internal/PackedDocument.h"
#include "quor/foundation/internal/DocumentTree.h"
#include "quor/foundation/service/xml/DomForward.h"

#include <optional>

namespace Veld::Quor::Core::Keywords {

/// What is below the root of a document; nothing if it has none.
Service::XML::Internal::DocumentTree TreeOfDocument(const xercesc::DOMDocument& document);

/// None if the bytes are no tree.
std::optional<Service::XML::Internal::DocumentTree> TreeOfPacked(
    const KeywordSyntax::Internal::PackedDocument& packed);

/// The tree of built-in documents: their own, or that of the DOM which a host's library has. None without a
/// document.
template <class Data>
std::optional<Service::XML::Internal::DocumentTree> BuiltinTree()
{
    Data data;
    if (const auto* const packed = data.FindTree())
        return TreeOfPacked(*packed);
    const xercesc::DOMDocument* const document = data.GetData();
    if (!document)
        return std::nullopt;
    return TreeOfDocument(*document);
}

} // namespace Veld::Quor::Core::Keywords
