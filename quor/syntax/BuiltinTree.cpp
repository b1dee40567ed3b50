#include "quor/syntax/internal/BuiltinTree.h"

#include "quor/foundation/internal/PackedTree.h"

#include <xercesc/dom/DOMDocument.hpp>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

DocumentTree TreeOfDocument(const xercesc::DOMDocument& document)
{
    const xercesc::DOMElement* const root = document.getDocumentElement();
    return root ? TreeOf(*root) : DocumentTree();
}

std::optional<DocumentTree> TreeOfPacked(const KeywordSyntax::Internal::PackedDocument& packed)
{
    return TreeOfBytes({reinterpret_cast<const char*>(packed.bytes), packed.size});
}

} // namespace Veld::Quor::Core::Keywords
