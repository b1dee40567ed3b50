#include "quor/metadata/KeywordRecordMDImpl.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/IKeywordItemMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/UnsupportedByMDImpl.h"
#include "quor/metadata/ValidityMDImpl.h"
#include "quor/metadata/internal/ContainerReader.h"
#include "quor/metadata/internal/ItemFactory.h"
#include "quor/metadata/internal/SkippableInfo.h"

#include <cassert>
#include <utility>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

using Simulators = std::vector<SimulatorType::Enum>;

/// What belongs to the item's place in the record, beside the item's own metadata.
struct KeywordRecordMDImpl::ItemMDInfo {
    std::unique_ptr<IKeywordDataMDInternal> metadata;
    std::unique_ptr<const ValidityMDImpl> validity; // null: valid everywhere
    std::unique_ptr<const UnsupportedByMDImpl> unsupportedBy; // null: unsupported nowhere
    ColumnConstraintType::Enum columnConstraint = ColumnConstraintType::None;
    bool optional = false;
    bool identifier = false;

    void ReadXML(const TreeElement& element, unsigned int itemNumber, bool& skippableOnRead,
        bool& skippableOnWrite, const Simulators& simulators);
    void ReadAttributes(const TreeElement& element);
};

void KeywordRecordMDImpl::ItemMDInfo::ReadXML(const TreeElement& element, unsigned int itemNumber,
    bool& skippableOnRead, bool& skippableOnWrite, const Simulators& simulators)
{
    skippableOnRead = false;
    skippableOnWrite = false;
    ReadAttributes(element);
    for (const TreeElement child : ChildElements(element)) {
        if (const ItemMaker maker = FindItemMaker(child)) {
            if (!metadata) // Wanted: the first type counts, and others aren't even read.
                metadata = maker(child, simulators, NameOf(element), itemNumber);
        } else if (child.Is(Tag::Validity)) {
            auto read = std::make_unique<ValidityMDImpl>(true);
            read->ReadXML(child);
            validity = std::move(read);
        } else if (child.Is(Tag::UnsupportedBy)) {
            auto read = std::make_unique<UnsupportedByMDImpl>(false);
            read->ReadXML(child);
            unsupportedBy = std::move(read);
        } else if (child.Is(Tag::SkippableOnRead)) {
            skippableOnRead = true;
        } else if (child.Is(Tag::SkippableOnWrite)) {
            skippableOnWrite = true;
        } else if (!child.Is(Tag::Description)) { // allowed, and not kept
            FailUnhandled("KeywordRecordMDImpl::ItemMDInfo::ReadXML: unhandled record item type: ", child);
        }
    }
    if (!metadata)
        throw KeywordException(
            "KeywordRecordMDImpl::ItemMDInfo::ReadXML: record item without type specification");
}

void KeywordRecordMDImpl::ItemMDInfo::ReadAttributes(const TreeElement& element)
{
    optional = IsFlagged(element, Tag::Optional);
    identifier = IsFlagged(element, Tag::Identifier);
    if (!element.Has(Tag::ColumnConstraint))
        return;
    bool found = false;
    columnConstraint = ColumnConstraintType::FromString(element.Get(Tag::ColumnConstraint), &found);
    if (!found) // Wanted: the text names the record's ReadXML, although the item reads it.
        throw KeywordException("KeywordRecordMDImpl::ReadXML: unrecoqnized columnConstraint setting");
}

KeywordRecordMDImpl::KeywordRecordMDImpl(bool inTable)
    : inTable_(inTable)
{
}

KeywordRecordMDImpl::~KeywordRecordMDImpl() = default;

const KeywordRecordMDImpl::ItemMDInfo& KeywordRecordMDImpl::At(int index) const
{
    assert(index >= 0 && index < GetSize() && "KeywordRecordMDImpl: item index out of range");
    return items_[static_cast<std::size_t>(index)];
}

int KeywordRecordMDImpl::GetSize() const
{
    return static_cast<int>(items_.size());
}

const IKeywordDataMD* KeywordRecordMDImpl::GetItemMD(int index) const
{
    const auto& metadata = At(index).metadata;
    return metadata ? &metadata->MD() : nullptr;
}

bool KeywordRecordMDImpl::IsOptional(int index) const
{
    return At(index).optional;
}

bool KeywordRecordMDImpl::IsIdentifier(int index) const
{
    return At(index).identifier;
}

const IValidityMD& KeywordRecordMDImpl::GetValidity(int index) const
{
    static const auto& everywhere = *new ValidityMDImpl(true);
    const auto& validity = At(index).validity;
    return validity ? *validity : everywhere;
}

const IUnsupportedByMD& KeywordRecordMDImpl::GetUnsupportedBy(int index) const
{
    static const auto& nowhere = *new UnsupportedByMDImpl(false);
    const auto& unsupportedBy = At(index).unsupportedBy;
    return unsupportedBy ? *unsupportedBy : nowhere;
}

IKeywordDataMD::ColumnConstraintType::Enum KeywordRecordMDImpl::GetColumnConstraint(int index) const
{
    return At(index).columnConstraint;
}

ISkippableInfo* KeywordRecordMDImpl::GetSkippableInfo() const
{
    return skippable_.get();
}

void KeywordRecordMDImpl::ReadXML(const TreeElement& element, const Simulators& simulators)
{
    const bool terminationGiven = ReadTermination(element, "KeywordRecordMDImpl::ReadXML", termination_);
    ReadItems(element, simulators);
    if (!terminationGiven)
        InferTermination();
}

void KeywordRecordMDImpl::ReadItems(const TreeElement& element, const Simulators& simulators)
{
    unsigned int itemNumber = 1;
    for (const TreeElement child : ChildElements(element)) {
        if (child.Is(Tag::Item)) {
            bool onRead = false;
            bool onWrite = false;
            AddItem(child, itemNumber++, onRead, onWrite, simulators);
            if (!onRead && !onWrite)
                continue;
            if (!skippable_)
                skippable_ = std::make_unique<SkippableInfo>();
            skippable_->SetSkippable(static_cast<unsigned int>(GetSize() - 1), onRead, onWrite);
        } else if (!child.Is(Tag::Description)) { // allowed, and not kept
            FailUnhandled("KeywordRecordMDImpl::ReadXML: unhandled record child type: ", child);
        }
    }
}

/// A record whose last item may be left out needs a slash to end it.
void KeywordRecordMDImpl::InferTermination()
{
    if (items_.empty())
        return;
    const IKeywordDataMD* const last = GetItemMD(GetSize() - 1);
    if (!KeywordUtils::IsItemMDType(last))
        return;
    const auto& item = static_cast<const IKeywordItemMD&>(*last);
    if (item.IsDefaultSpecified(SimulatorType::Any) || IsOptional(GetSize() - 1))
        termination_ = TerminationType::SLASH;
}

void KeywordRecordMDImpl::AddItem(const TreeElement& itemElement, unsigned int itemNumber,
    bool& skippableOnRead, bool& skippableOnWrite, const Simulators& simulators)
{
    ItemMDInfo item;
    item.ReadXML(itemElement, itemNumber, skippableOnRead, skippableOnWrite, simulators);
    items_.push_back(std::move(item));
}

void KeywordRecordMDImpl::AddItem(std::unique_ptr<IKeywordDataMDInternal> metadata, bool optional,
    const ValidityMDImpl* validity, const UnsupportedByMDImpl* unsupportedBy)
{
    ItemMDInfo item;
    item.metadata = std::move(metadata);
    item.optional = optional;
    if (validity)
        item.validity = std::make_unique<const ValidityMDImpl>(*validity);
    if (unsupportedBy)
        item.unsupportedBy = std::make_unique<const UnsupportedByMDImpl>(*unsupportedBy);
    items_.push_back(std::move(item));
}

} // namespace Veld::Quor::Core::Keywords
