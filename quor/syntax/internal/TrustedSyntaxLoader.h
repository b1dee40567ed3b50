#pragma once

#include "quor/foundation/builtin/TrustedSyntaxData.h"
#include "quor/foundation/service/xml/XMLDocument.h"

#include <memory>

namespace Veld::Quor::Core::Keywords {

/// Delivers the document of trusted keywords: the `.xml` files of the directory that
/// `QUOR_KEYWORD_TRUSTED_SYNTAX_DIR` names, merged under one root, else the built-in one. A file of the
/// directory that can't be read is left out; the log says why. Otherwise like `SyntaxLoader`.
class TrustedSyntaxLoader {
public:
    xercesc::DOMDocument* GetDocument();

private:
    void LoadFromCompressedData();
    void LoadFromXMLFiles(const char* directory);

    std::unique_ptr<Core::KeywordSyntax::TrustedSyntaxData> data_;
    std::unique_ptr<Service::XML::XMLDocument> xmlDocument_;
    xercesc::DOMDocument* document_ = nullptr;
};

} // namespace Veld::Quor::Core::Keywords
