#pragma once

#include <cstddef>
#include <memory>

namespace Veld::Quor::Core::Service::XML {
class XMLDocument;
}

namespace Veld::Quor::Core::KeywordSyntax::Internal {

/// A document as the build leaves it in the binary: one zstd frame that has its unpacked size.
struct PackedDocument {
    const unsigned char* bytes;
    std::size_t size;
};

// Defined in sources that the build makes from the files under language/.
extern const PackedDocument mainDocument;
extern const PackedDocument mainDocumentTree; // the bytes of a `DocumentTree`
extern const PackedDocument trustedDocument;
extern const PackedDocument trustedDocumentTree;
extern const PackedDocument rulesDocument; // in the decks library

/// Never null; holds no document if the bytes are no document. `name` is for messages.
std::unique_ptr<Service::XML::XMLDocument> Unpack(const PackedDocument& packed, const char* name);

} // namespace Veld::Quor::Core::KeywordSyntax::Internal
