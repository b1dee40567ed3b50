#include "quor/metadata/KeywordRawMDImpl.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/metadata/internal/ContainerReader.h"

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

void KeywordRawMDImpl::ReadXML(const TreeElement& element)
{
    if (element.Has(Tag::StringTermination))
        terminationString_ = element.Get(Tag::StringTermination);
    for (const TreeElement child : ChildElements(element)) {
        if (!child.Is(Tag::Description)) // allowed, and not kept
            // Wanted: the text speaks of a list.
            FailUnhandled("KeywordRawMDImpl::ReadXML: unhandled list item type: ", child);
    }
}

} // namespace Veld::Quor::Core::Keywords
