#include "quor/foundation/builtin/internal/PackedDocument.h"

#include "quor/foundation/service/xml/XMLDocument.h"

#include <zstd.h>
#include <zstd_errors.h>

#include <new>
#include <string>

namespace Veld::Quor::Core::KeywordSyntax::Internal {

std::unique_ptr<Service::XML::XMLDocument> Unpack(const PackedDocument& packed, const char* name)
{
    auto document = std::make_unique<Service::XML::XMLDocument>();
    const unsigned long long size = ZSTD_getFrameContentSize(packed.bytes, packed.size);
    if (size > Service::XML::XMLDocument::MaxBytes) // so are the values that stand for errors
        return document;
    std::string text(static_cast<std::size_t>(size), '\0');
    const std::size_t unpacked = ZSTD_decompress(text.data(), text.size(), packed.bytes, packed.size);
    if (ZSTD_getErrorCode(unpacked) == ZSTD_error_memory_allocation)
        throw std::bad_alloc();
    if (unpacked == text.size())
        document->readMemory(text.data(), text.size(), name);
    return document;
}

} // namespace Veld::Quor::Core::KeywordSyntax::Internal
