#include "quor/metadata/internal/ContainerReader.h"

#include "quor/foundation/internal/DocumentTree.h"
#include "quor/foundation/internal/KeywordException.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

bool ReadTermination(
    const TreeElement& element, const char* reader, IKeywordDataMD::TerminationType::Enum& termination)
{
    if (!element.Has(Tag::Termination))
        return false;
    bool found = false;
    const auto read = IKeywordDataMD::TerminationType::FromString(element.Get(Tag::Termination), &found);
    if (!found) // The text is a promise to hosts, spelling included.
        throw KeywordException(std::string(reader) + ": unrecoqnized termination setting");
    termination = read;
    return true;
}

void FailUnhandled(const char* readerAndFault, const TreeElement& child)
{
    throw KeywordException(std::string(readerAndFault) + child.GetTagName());
}

} // namespace Veld::Quor::Core::Keywords
