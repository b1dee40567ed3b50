#include "quor/metadata/internal/ContainerReader.h"

#include "quor/foundation/internal/KeywordException.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/Tags.h"

#include <xercesc/dom/DOMElement.hpp>

#include <string>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;

bool ReadTermination(const xercesc::DOMElement& element, const char* reader,
    IKeywordDataMD::TerminationType::Enum& termination)
{
    if (!AttributeExists(&element, Tags::Termination()))
        return false;
    bool found = false;
    const auto read =
        IKeywordDataMD::TerminationType::FromString(GetAttributeValue(&element, Tags::Termination()), &found);
    if (!found) // The text is a promise to hosts, spelling included.
        throw KeywordException(std::string(reader) + ": unrecoqnized termination setting");
    termination = read;
    return true;
}

void FailUnhandled(const char* readerAndFault, const xercesc::DOMElement& child)
{
    throw KeywordException(std::string(readerAndFault) + XToC(child.getTagName()));
}

} // namespace Veld::Quor::Core::Keywords
