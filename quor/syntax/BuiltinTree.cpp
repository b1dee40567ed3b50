#include "quor/syntax/internal/BuiltinTree.h"

#include "quor/foundation/internal/PackedTree.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <zstd.h>
#include <zstd_errors.h>

#include <new>
#include <string>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

DocumentTree TreeOfDocument(const xercesc::DOMDocument& document)
{
    const xercesc::DOMElement* const root = document.getDocumentElement();
    return root ? TreeOf(*root) : DocumentTree();
}

std::optional<DocumentTree> Unpack(const KeywordSyntax::Internal::PackedDocument& packed)
{
    const unsigned long long size = ZSTD_getFrameContentSize(packed.bytes, packed.size);
    if (size == ZSTD_CONTENTSIZE_UNKNOWN || size == ZSTD_CONTENTSIZE_ERROR)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    const std::size_t unpacked = ZSTD_decompress(bytes.data(), bytes.size(), packed.bytes, packed.size);
    if (ZSTD_getErrorCode(unpacked) == ZSTD_error_memory_allocation)
        throw std::bad_alloc();
    if (unpacked != bytes.size())
        return std::nullopt;
    return TreeOfBytes(bytes);
}

} // namespace Veld::Quor::Core::Keywords
