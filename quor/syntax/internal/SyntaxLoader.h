#pragma once

#include "quor/foundation/builtin/KeywordSyntaxData.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <memory>

namespace Veld::Quor::Core::Keywords {

/// Delivers the main syntax document: from the file that `QUOR_KEYWORD_SYNTAX_FILE` names, else the built-in
/// one. The document lives as long as the loader. Failures are printed on standard output and thrown as
/// `KeywordException`; there is no fall-back from a file to the built-in document.
class SyntaxLoader {
public:
    /// Loads at the first call; later ones return the same document.
    xercesc::DOMDocument* GetDocument();

private:
    void LoadFromCompressedData();
    void LoadFromXMLFile(const char* path);

    std::unique_ptr<Core::KeywordSyntax::KeywordSyntaxData> data_;
    std::unique_ptr<Service::XML::XMLDocument> xmlDocument_;
    xercesc::DOMDocument* document_ = nullptr; // of one of the two
};

} // namespace Veld::Quor::Core::Keywords
