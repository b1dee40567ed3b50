#include "quor/metadata/CustomReadTermination.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/service/Strings.h"
#include "quor/metadata/internal/ContainerReader.h"

#include <algorithm>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

CustomReadStringTermination::CustomReadStringTermination(const TreeElement& element)
    : text_(element.GetText())
{
}

bool CustomReadStringTermination::Matches(const std::string& token, bool& matchFlag) const
{
    const bool matches = caseSensitive_ ? token == text_ : Service::NoCaseStringEqual(token, text_);
    if (matches)
        matchFlag = matchFlag_;
    return matches;
}

CustomReadTermination::CustomReadTermination(const TreeElement& element)
{
    for (const TreeElement child : ChildElements(element)) {
        if (!child.Is(Tag::StringTermination))
            FailUnhandled("CustomReadTermination ctor: unhandled list item type: ", child);
        alternatives_.emplace_back(child);
    }
}

bool CustomReadTermination::Matches(const std::string& token, bool& matchFlag) const
{
    return std::any_of(alternatives_.begin(), alternatives_.end(),
        [&](const CustomReadStringTermination& word) { return word.Matches(token, matchFlag); });
}

} // namespace Veld::Quor::Core::Keywords
