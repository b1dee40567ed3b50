#include "quor/metadata/KeywordMapMDImpl.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/metadata/KeywordAssignmentMDImpl.h"
#include "quor/metadata/internal/ContainerReader.h"

#include <cassert>
#include <utility>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

KeywordMapMDImpl::KeywordMapMDImpl() = default;
KeywordMapMDImpl::~KeywordMapMDImpl() = default;

KeywordAssignmentMDImpl* KeywordMapMDImpl::At(std::size_t index) const
{
    assert(index < items_.size() && "KeywordMapMDImpl: index out of range");
    return items_[index].get();
}

const IKeywordAssignmentMD* KeywordMapMDImpl::GetItemMD(int index) const
{
    return At(static_cast<std::size_t>(index));
}

const IKeywordAssignmentMD* KeywordMapMDImpl::GetWildcardItemMD(int index) const
{
    return At(namedCount_ + static_cast<std::size_t>(index));
}

KeywordAssignmentMDImpl* KeywordMapMDImpl::GetItemMD(int index)
{
    return At(static_cast<std::size_t>(index));
}

KeywordAssignmentMDImpl* KeywordMapMDImpl::GetWildcardItemMD(int index)
{
    return At(namedCount_ + static_cast<std::size_t>(index));
}

void KeywordMapMDImpl::AddItem(std::unique_ptr<KeywordAssignmentMDImpl> assignment)
{
    if (assignment->IsWildcard()) {
        items_.push_back(std::move(assignment));
        return;
    }
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(namedCount_), std::move(assignment));
    ++namedCount_;
}

void KeywordMapMDImpl::ReadXML(const TreeElement& element, const std::vector<SimulatorType::Enum>& simulators)
{
    ReadTermination(element, "KeywordMapMDImpl::ReadXML", termination_);
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Assignment)) {
            auto assignment = std::make_unique<KeywordAssignmentMDImpl>();
            assignment->ReadXML(child, simulators);
            AddItem(std::move(assignment));
        } else if (!child.Is(Tag::Description)) { // allowed, and not kept
            FailUnhandled("KeywordMapMDImpl::ReadXML: unhandled map child node: ", child);
        }
    }
}

} // namespace Veld::Quor::Core::Keywords
