#pragma once

#include "quor/foundation/internal/DocumentTree.h"

namespace Veld::Quor::Core::Keywords {

/// Delivers the main syntax document: from the file that `QUOR_KEYWORD_SYNTAX_FILE` names, else the built-in
/// one. Failures are printed on standard output and thrown as `KeywordException`; there is no fall-back from
/// a file to the built-in document.
class SyntaxLoader {
public:
    Service::XML::Internal::DocumentTree Load();

private:
    Service::XML::Internal::DocumentTree LoadFromCompressedData();
    Service::XML::Internal::DocumentTree LoadFromXMLFile(const char* path);
};

} // namespace Veld::Quor::Core::Keywords
