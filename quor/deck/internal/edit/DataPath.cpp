#include "quor/deck/internal/edit/DataPath.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

bool IsList(const IKeywordData& node)
{
    return node.GetMD()->GetType() == MDType::List;
}

const void* StorageAt(const IKeywordData& node, std::size_t index)
{
    return IsList(node) ? static_cast<const IKeywordListData&>(node).GetData(index)
                        : static_cast<const IKeywordRecordData&>(node).GetData(static_cast<int>(index));
}

/// The slots of any data of the metadata; empty if they differ.
std::optional<std::size_t> FixedSlots(const IKeywordDataMD& md)
{
    const MDType::Enum type = md.GetType();
    if (KeywordUtils::IsItemMDType(type))
        return 1;
    if (type == MDType::List)
        return std::nullopt;
    if (type != MDType::Record)
        return 0;
    std::size_t slots = 0;
    const auto& record = static_cast<const IKeywordRecordMD&>(md);
    for (int i = 0; i < record.GetSize(); ++i) {
        const auto of = FixedSlots(*record.GetItemMD(i));
        if (!of)
            return std::nullopt;
        slots += *of;
    }
    return slots;
}

bool IsFlat(const IKeywordDataMD& md)
{
    if (md.GetType() != MDType::Record)
        return false;
    const auto& record = static_cast<const IKeywordRecordMD&>(md);
    for (int i = 0; i < record.GetSize(); ++i) {
        if (!KeywordUtils::IsItemMDType(record.GetItemMD(i)->GetType()))
            return false;
    }
    return true;
}

bool IsScalarAt(const IKeywordData& node, std::size_t index)
{
    return KeywordUtils::IsItemMDType(FindChildMD(node, index)->GetType());
}

std::size_t CountSlotsAt(const IKeywordData& node, std::size_t index)
{
    return IsScalarAt(node, index) ? 1 : CountSlots(ChildOf(node, index));
}

/// Of the elements of a list, if all have as many.
std::optional<std::size_t> SlotsOfEach(const IKeywordData& node)
{
    return IsList(node) && CountChildren(node) > 0 ? FixedSlots(*FindChildMD(node, 0)) : std::nullopt;
}

/// Of the children before an index.
std::size_t CountSlotsBefore(const IKeywordData& node, std::size_t end)
{
    if (const auto each = SlotsOfEach(node))
        return *each * end;
    std::size_t slots = 0;
    for (std::size_t i = 0; i < end; ++i)
        slots += CountSlotsAt(node, i);
    return slots;
}

struct Child {
    std::size_t index;
    std::size_t slotsBefore;
};

/// The child that has the slot of the node; empty if there is none.
std::optional<Child> FindChildAt(const IKeywordData& node, std::size_t slot)
{
    const std::size_t size = CountChildren(node);
    if (const auto each = SlotsOfEach(node); each && *each > 0)
        return slot < size * *each ? std::optional(Child{slot / *each, slot / *each * *each}) : std::nullopt;
    std::size_t before = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t slots = CountSlotsAt(node, i);
        if (slot < before + slots)
            return Child{i, before};
        before += slots;
    }
    return std::nullopt;
}

} // namespace

ScalarValue ScalarSlot::GetValue() const
{
    const void* const storage = StorageAt(*node, index);
    if (!IsList(*node))
        return ItemValue(*md, storage);
    const auto& list = static_cast<const IKeywordListData&>(*node);
    return list.IsDefaulted(index) || IsUnknown(list, index) ? ScalarValue() : ElementValue(*md, storage);
}

const IKeywordDataMD* FindChildMD(const IKeywordData& node, std::size_t index)
{
    if (index >= CountChildren(node))
        return nullptr;
    const IKeywordDataMD& md = *node.GetMD();
    return IsList(node) ? static_cast<const IKeywordListMD&>(md).GetItemMD()
                        : static_cast<const IKeywordRecordMD&>(md).GetItemMD(static_cast<int>(index));
}

const IKeywordData& ChildOf(const IKeywordData& node, std::size_t index)
{
    return *static_cast<const IKeywordData*>(StorageAt(node, index));
}

std::size_t CountChildren(const IKeywordData& node)
{
    if (IsList(node))
        return static_cast<std::size_t>(static_cast<const IKeywordListData&>(node).GetSize());
    if (node.GetMD()->GetType() != MDType::Record)
        return 0;
    return static_cast<std::size_t>(static_cast<const IKeywordRecordData&>(node).GetSize());
}

std::optional<ScalarSlot> FindScalar(const IKeywordData& root, const ValuePath& path)
{
    const IKeywordData* node = &root;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const IKeywordDataMD* const md = FindChildMD(*node, path[i]);
        if (!md)
            return std::nullopt;
        const bool isScalar = KeywordUtils::IsItemMDType(md->GetType());
        if (isScalar != (i + 1 == path.size()))
            return std::nullopt;
        if (isScalar)
            return ScalarSlot{md, node, path[i]};
        node = &ChildOf(*node, path[i]);
    }
    return std::nullopt;
}

std::size_t CountSlots(const IKeywordData& node)
{
    return CountSlotsBefore(node, CountChildren(node));
}

std::size_t SlotOf(const IKeywordData& root, const ValuePath& path)
{
    std::size_t slot = 0;
    const IKeywordData* node = &root;
    for (std::size_t i = 0; i < path.size(); ++i) {
        slot += CountSlotsBefore(*node, path[i]);
        if (i + 1 < path.size())
            node = &ChildOf(*node, path[i]);
    }
    return slot;
}

bool AreInFlatRecord(const IKeywordData& root, std::size_t first, std::size_t last)
{
    const IKeywordData* node = &root;
    while (!IsFlat(*node->GetMD())) {
        const auto child = FindChildAt(*node, first);
        const auto other = FindChildAt(*node, last);
        if (!child || !other || child->index != other->index || IsScalarAt(*node, child->index))
            return false;
        first -= child->slotsBefore;
        last -= child->slotsBefore;
        node = &ChildOf(*node, child->index);
    }
    return true;
}

} // namespace Veld::Quor::Core::Decks
