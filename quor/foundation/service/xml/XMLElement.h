#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"

namespace Veld::Quor::Core::Service::XML {

/// An element that is being written. It belongs to its document.
class VELD_QUOR_EXPORT XMLElement {
public:
    /// Adds a child element. Throws a `std::exception` if `tag` is no name.
    XMLElement(XMLElement& parent, const char* tag);
    ~XMLElement() = default;

    /// Adds a text node; `text` is UTF-8.
    void createTextNode(const char* text);

private:
    friend class XMLDocument;
    explicit XMLElement(xercesc::DOMElement& element);

    xercesc::DOMElement& element_;
};

} // namespace Veld::Quor::Core::Service::XML
