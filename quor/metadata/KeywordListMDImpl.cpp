#include "quor/metadata/KeywordListMDImpl.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/CustomReadTermination.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/ContainerReader.h"
#include "quor/metadata/internal/ItemFactory.h"

#include <utility>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

KeywordListMDImpl::KeywordListMDImpl() = default;

KeywordListMDImpl::KeywordListMDImpl(std::unique_ptr<IKeywordDataMDInternal> item)
    : item_(std::move(item))
{
}

KeywordListMDImpl::~KeywordListMDImpl() = default;

const IKeywordDataMD* KeywordListMDImpl::GetItemMD() const
{
    return item_ ? &item_->MD() : nullptr;
}

IKeywordDataMD* KeywordListMDImpl::GetItemMD()
{
    return item_ ? &item_->MD() : nullptr;
}

const ICustomReadTermination* KeywordListMDImpl::GetCustomReadTermination() const
{
    return customReadTermination_.get();
}

void KeywordListMDImpl::SetSize(std::string&& size)
{
    size_ = std::make_unique<std::string>(std::move(size));
}

void KeywordListMDImpl::SetMinSize(std::string&& size)
{
    minSize_ = std::make_unique<std::string>(std::move(size));
}

void KeywordListMDImpl::SetMaxSize(std::string&& size)
{
    maxSize_ = std::make_unique<std::string>(std::move(size));
}

void KeywordListMDImpl::ReadXML(
    const TreeElement& element, const std::vector<SimulatorType::Enum>& simulators)
{
    ReadSizes(element);
    bool terminationSet = ReadTermination(element, "KeywordListMDImpl::ReadXML", termination_);
    ReadFlags(element);
    for (const TreeElement child : ChildElements(element)) {
        if (const ItemMaker maker = FindItemMaker(child)) {
            // Wanted: unlike in a record's item, each type is read, and the last one counts.
            item_ = maker(child, simulators, std::string(), 0);
        } else if (child.Is(Tag::Description)) {
            SetDescription(child.GetText());
        } else if (child.Is(Tag::CustomReadTermination)) {
            customReadTermination_ = std::make_unique<CustomReadTermination>(child);
            termination_ = TerminationType::CUSTOMIZED;
            terminationSet = true;
        } else {
            FailUnhandled("KeywordListMDImpl::ReadXML: unhandled list item type: ", child);
        }
    }
    if (!terminationSet) // Wanted: only the size itself counts, not its limits.
        termination_ = element.Has(Tag::Size) ? TerminationType::NONE : TerminationType::SLASH;
    if (itemsDefaultable_ && !KeywordUtils::IsItemMDType(GetItemMD()))
        throw KeywordException("KeywordListMDImpl::ReadXML: <list itemsDefaultable=\"true\"/> does not "
                               "contain a primitive type");
}

void KeywordListMDImpl::ReadSizes(const TreeElement& element)
{
    if (element.Has(Tag::Size))
        SetSize(element.Get(Tag::Size));
    if (element.Has(Tag::MinSize))
        SetMinSize(element.Get(Tag::MinSize));
    if (element.Has(Tag::MaxSize))
        SetMaxSize(element.Get(Tag::MaxSize));
}

void KeywordListMDImpl::ReadFlags(const TreeElement& element)
{
    if (IsFlagged(element, Tag::ItemsDefaultable))
        itemsDefaultable_ = true;
    if (IsFlagged(element, Tag::FillEmptyElementsWithPreviousValue))
        fillWithPrevious_ = true;
    // Wanted: these two know a third state, not given, and any text but "true" is a false.
    if (element.Has(Tag::WriteStartingOnNewLine))
        startOnNewLine_ = IsFlagged(element, Tag::WriteStartingOnNewLine);
    if (element.Has(Tag::WriteTerminationOnNewLine))
        terminationOnNewLine_ = IsFlagged(element, Tag::WriteTerminationOnNewLine);
}

} // namespace Veld::Quor::Core::Keywords
