#include "quor/metadata/KeywordRawMDImpl.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/Tags.h"
#include "quor/metadata/internal/ContainerReader.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;
using namespace Service::XML::Internal;
using xercesc::DOMElement;

void KeywordRawMDImpl::ReadXML(const DOMElement* element)
{
    if (AttributeExists(element, Tags::StringTermination()))
        terminationString_ = GetAttributeValue(element, Tags::StringTermination());
    for (const DOMElement& child : ChildElements(*element)) {
        if (!Is(child, Tags::Description())) // allowed, and not kept
            // Wanted: the text speaks of a list.
            FailUnhandled("KeywordRawMDImpl::ReadXML: unhandled list item type: ", child);
    }
}

} // namespace Veld::Quor::Core::Keywords
