#include "quor/deck/internal/edit/DataPath.h"

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

/// Of the children before an index.
std::size_t CountSlotsBefore(const IKeywordData& node, std::size_t end)
{
    if (IsList(node) && end > 0) {
        if (const auto each = FixedSlots(*FindChildMD(node, 0)))
            return *each * end;
    }
    std::size_t slots = 0;
    for (std::size_t i = 0; i < end; ++i) {
        const bool isScalar = KeywordUtils::IsItemMDType(FindChildMD(node, i)->GetType());
        slots += isScalar ? 1 : CountSlots(ChildOf(node, i));
    }
    return slots;
}

} // namespace

ScalarValue ScalarPlace::GetValue() const
{
    const void* const storage = StorageAt(*node, index);
    if (!IsList(*node))
        return ItemValue(*md, storage);
    const bool isDefaulted = static_cast<const IKeywordListData&>(*node).IsDefaulted(index);
    return isDefaulted ? ScalarValue() : ElementValue(*md, storage);
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

std::optional<ScalarPlace> FindScalar(const IKeywordData& root, const ValuePath& path)
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
            return ScalarPlace{md, node, path[i]};
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

} // namespace Veld::Quor::Core::Decks
