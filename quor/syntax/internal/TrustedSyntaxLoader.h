#pragma once

#include "quor/foundation/internal/DocumentTree.h"

namespace Veld::Quor::Core::Keywords {

/// Delivers the document of trusted keywords: the `.xml` files of the directory that
/// `QUOR_KEYWORD_TRUSTED_SYNTAX_DIR` names, merged under one root, else the built-in one. A file of the
/// directory that can't be read is left out; the log says why. Otherwise like `SyntaxLoader`.
class TrustedSyntaxLoader {
public:
    Service::XML::Internal::DocumentTree Load();

private:
    Service::XML::Internal::DocumentTree LoadFromCompressedData();
    Service::XML::Internal::DocumentTree LoadFromXMLFiles(const char* directory);
};

} // namespace Veld::Quor::Core::Keywords
