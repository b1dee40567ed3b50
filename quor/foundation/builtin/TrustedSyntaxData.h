#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"

#include <memory>

namespace Veld::Quor::Core::Service::XML {
class XMLDocument;
}

namespace Veld::Quor::Core::KeywordSyntax {

/// The built-in document of trusted keywords, as a DOM document.
class VELD_QUOR_EXPORT TrustedSyntaxData {
public:
    TrustedSyntaxData();
    ~TrustedSyntaxData();

    /// The document, which this object owns; made at the first call. Null if there is none.
    xercesc::DOMDocument* GetData();

private:
    std::unique_ptr<Service::XML::XMLDocument> document_;
};

} // namespace Veld::Quor::Core::KeywordSyntax
