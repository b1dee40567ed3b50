#include "quor/foundation/service/xml/XMLElement.h"

#include "quor/foundation/service/xml/internal/XMLParser.h"

namespace Veld::Quor::Core::Service::XML {

using Internal::XMLParser;

XMLElement::XMLElement(xercesc::DOMElement& element)
    : element_(element)
{
}

XMLElement::XMLElement(XMLElement& parent, const char* tag)
    : element_(XMLParser::Instance().AddElement(parent.element_, tag))
{
}

void XMLElement::createTextNode(const char* text)
{
    XMLParser::Instance().AddText(element_, text);
}

} // namespace Veld::Quor::Core::Service::XML
