#include "quor/foundation/service/xml/DomText.h"

#include "quor/foundation/internal/XercesErrors.h"

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace Veld::Quor::Core::Service::XML {

namespace {

/// Narrows ASCII, which is nearly every text of a document, in one pass; anything else goes through the
/// transcoder.
std::string ToUTF8(const XMLCh* text)
{
    if (!text)
        return {};
    std::string narrow(xercesc::XMLString::stringLen(text), '\0');
    XMLCh bits = 0;
    for (std::size_t i = 0; i < narrow.size(); ++i) {
        bits |= text[i];
        narrow[i] = static_cast<char>(text[i]);
    }
    if (bits < 0x80)
        return narrow;
    return Internal::WithStandardErrors([&] {
        const xercesc::TranscodeToStr transcoded(text, "UTF-8");
        return std::string(reinterpret_cast<const char*>(transcoded.str()), transcoded.length());
    });
}

} // namespace

const char* XToC(const XMLCh* text)
{
    thread_local std::string last;
    last = ToUTF8(text);
    return last.c_str(); // NOLINT(clang-analyzer-cplusplus.InnerPointer): it is not a local
}

std::string GetAttributeValue(const xercesc::DOMElement* element, const XMLCh* attribute)
{
    return ToUTF8(element->getAttribute(attribute));
}

bool GetAttributeValueEqual(const xercesc::DOMElement* element, const XMLCh* attribute, const XMLCh* value)
{
    const xercesc::DOMAttr* node = element->getAttributeNode(attribute);
    return node && xercesc::XMLString::equals(node->getValue(), value);
}

bool AttributeExists(const xercesc::DOMElement* element, const XMLCh* attribute)
{
    return element->getAttributeNode(attribute) != nullptr;
}

bool HasChildTagName(const xercesc::DOMElement* element, const XMLCh* tag)
{
    const xercesc::DOMNode* child = element->getFirstChild();
    while (child
        && !(child->getNodeType() == xercesc::DOMNode::ELEMENT_NODE
            && xercesc::XMLString::equals(child->getNodeName(), tag)))
        child = child->getNextSibling();
    return child != nullptr;
}

std::string GetElementText(const xercesc::DOMElement* element)
{
    // Nearly always there is one text node; the general way copies its text twice.
    const xercesc::DOMNode* const first = element->getFirstChild();
    const bool isOneText =
        first && first->getNodeType() == xercesc::DOMNode::TEXT_NODE && !first->getNextSibling();
    return ToUTF8(isOneText ? first->getNodeValue() : element->getTextContent());
}

} // namespace Veld::Quor::Core::Service::XML
