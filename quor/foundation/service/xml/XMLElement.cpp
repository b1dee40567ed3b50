#include "quor/foundation/service/xml/XMLElement.h"

#include "quor/foundation/internal/XercesErrors.h"
#include "quor/foundation/service/xml/internal/Wide.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMText.hpp>

namespace Veld::Quor::Core::Service::XML {

XMLElement::XMLElement(xercesc::DOMElement& element)
    : element_(element)
{
}

XMLElement::XMLElement(XMLElement& parent, const char* tag)
    : element_(Internal::WithStandardErrors([&]() -> xercesc::DOMElement& {
        xercesc::DOMElement* const child =
            parent.element_.getOwnerDocument()->createElement(Internal::Wide(tag));
        parent.element_.appendChild(child);
        return *child;
    }))
{
}

void XMLElement::createTextNode(const char* text)
{
    Internal::WithStandardErrors(
        [&] { element_.appendChild(element_.getOwnerDocument()->createTextNode(Internal::Wide(text))); });
}

} // namespace Veld::Quor::Core::Service::XML
