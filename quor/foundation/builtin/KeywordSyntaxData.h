#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"

#include <memory>

namespace Veld::Quor::Core::Service::XML {
class XMLDocument;
}

namespace Veld::Quor::Core::KeywordSyntax {

/// The built-in main syntax document, as a DOM document. One thread at a time.
class VELD_QUOR_EXPORT KeywordSyntaxData {
public:
    KeywordSyntaxData();
    ~KeywordSyntaxData();

    /// The document, which this object owns; unpacked at the first call. Null if the
    /// library has none or can't unpack it.
    xercesc::DOMDocument* GetData();

private:
    std::unique_ptr<Service::XML::XMLDocument> document_;
};

} // namespace Veld::Quor::Core::KeywordSyntax
