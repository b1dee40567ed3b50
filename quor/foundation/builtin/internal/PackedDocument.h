#pragma once

#include <cstddef>
#include <memory>

namespace Veld::Quor::Core::Service::XML {
class XMLDocument;
}

namespace Veld::Quor::Core::KeywordSyntax::Internal {

/// A document as the build leaves it in the binary: its text as one zstd frame that has its unpacked size, or
/// its tree as `TreeOfBytes` wants it, which is read where it is.
struct PackedDocument {
    const unsigned char* bytes;
    std::size_t size;
};

// Defined in sources that the build makes from the files under language/.
extern const PackedDocument mainDocument;
extern const PackedDocument mainDocumentTree;
extern const PackedDocument trustedDocument;
extern const PackedDocument trustedDocumentTree;
extern const PackedDocument rulesDocumentTree; // in the decks library

/// Of a text. Never null; holds no document if the bytes are no document. `name` is for messages.
std::unique_ptr<Service::XML::XMLDocument> Unpack(const PackedDocument& packed, const char* name);

} // namespace Veld::Quor::Core::KeywordSyntax::Internal
