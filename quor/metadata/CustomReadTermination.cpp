#include "quor/metadata/CustomReadTermination.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/service/Strings.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/Tags.h"
#include "quor/metadata/internal/ContainerReader.h"

#include <algorithm>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;
using namespace Service::XML::Internal;
using xercesc::DOMElement;

CustomReadStringTermination::CustomReadStringTermination(const DOMElement* element)
    : text_(GetElementText(element))
{
}

bool CustomReadStringTermination::Matches(const std::string& token, bool& matchFlag) const
{
    const bool matches = caseSensitive_ ? token == text_ : Service::NoCaseStringEqual(token, text_);
    if (matches)
        matchFlag = matchFlag_;
    return matches;
}

CustomReadTermination::CustomReadTermination(const DOMElement* element)
{
    for (const DOMElement& child : ChildElements(*element)) {
        if (!Is(child, Tags::StringTermination()))
            FailUnhandled("CustomReadTermination ctor: unhandled list item type: ", child);
        alternatives_.emplace_back(&child);
    }
}

bool CustomReadTermination::Matches(const std::string& token, bool& matchFlag) const
{
    return std::any_of(alternatives_.begin(), alternatives_.end(),
        [&](const CustomReadStringTermination& word) { return word.Matches(token, matchFlag); });
}

} // namespace Veld::Quor::Core::Keywords
