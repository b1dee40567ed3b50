#include "quor/data/DataIterator.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/data/internal/GenericKeywordRecordDataImpl.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"

#include <algorithm>
#include <typeinfo>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;

namespace {

/// How many containers can be nested. Fails at once, whatever the data hold, if the walk could ever
/// meet what it can't walk.
std::size_t DepthOf(const IKeywordDataMD* md)
{
    const auto depthBelow = [](const IKeywordDataMD* item) -> std::size_t {
        return KeywordUtils::IsItemMDType(item) ? 0 : DepthOf(item);
    };
    switch (KeywordUtils::GetMDType(md)) {
    case MDType::List:
        return 1 + depthBelow(CastMD<const IKeywordListMD>(*md).GetItemMD());
    case MDType::Record: {
        const auto& record = CastMD<const IKeywordRecordMD>(*md);
        std::size_t depth = 0;
        for (int i = 0; i < record.GetSize(); ++i)
            depth = std::max(depth, depthBelow(record.GetItemMD(i)));
        return 1 + depth;
    }
    case MDType::Map:
        return 1;
    default:
        throw KeywordException("AnyContainerIteratorImpl: unhandled type");
    }
}

const GenericKeywordRecordDataImpl& OwnRecord(const IKeywordData& data)
{
    return static_cast<const GenericKeywordRecordDataImpl&>(data);
}

/// Of a record of the library; else null.
const RecordItem* OwnItems(const IKeywordData* data)
{
    const bool isOwn = data && typeid(*data) == typeid(GenericKeywordRecordDataImpl);
    return isOwn ? OwnRecord(*data).Layout().Items().data() : nullptr;
}

/// Asked at each stop, so in one test.
constexpr bool IsContainer(MDType::Enum type)
{
    constexpr unsigned containers = 1U << MDType::List | 1U << MDType::Map | 1U << MDType::Record;
    return (containers >> type & 1U) != 0;
}

} // namespace

template <class Data>
DataIteratorOf<Data>::DataIteratorOf(Data& root)
    : root_(&root)
{
    path_.reserve(DepthOf(root.GetMD())); // so that the walk never fails
    Enter(&root, root.GetMD());
}

template <class Data>
const DataIteratorOf<Data>& DataIteratorOf<Data>::End()
{
    static const DataIteratorOf end;
    return end;
}

template <class Data>
void DataIteratorOf<Data>::Next()
{
    while (!path_.empty()) {
        if (NextBelow(path_.back()))
            return;
        path_.pop_back();
        Resume();
    }
    current_.value = nullptr;
}

/// Goes on with the last of the path after its index.
template <class Data>
void DataIteratorOf<Data>::Resume()
{
    item_ = itemsEnd_ = nullptr;
    if (path_.empty() || !path_.back().items)
        return;
    const Level& level = path_.back();
    const GenericKeywordRecordDataImpl& record = OwnRecord(*level.data);
    item_ = level.items + (level.index + 1);
    itemsEnd_ = level.items + record.GetSize();
    block_ = record.Block();
}

template <class Data>
std::int64_t DataIteratorOf<Data>::IndexAt(const Level& level) const
{
    return &level == &path_.back() && level.items ? item_ - level.items - 1 : level.index;
}

template <class Data>
void DataIteratorOf<Data>::Enter(const void* data, const IKeywordDataMD* md)
{
    const MDType::Enum type = md->GetType();
    const auto* const itemMD = type == MDType::List ? CastMD<const IKeywordListMD>(*md).GetItemMD() : nullptr;
    const auto* const node = static_cast<const IKeywordData*>(data);
    path_.push_back({node, md, type, itemMD, type == MDType::Record ? OwnItems(node) : nullptr, -1});
    Resume();
    // Data that a DataIterator walks were handed in for writing.
    current_ = {const_cast<void*>(data), md, false};
}

template <class Data>
bool DataIteratorOf<Data>::Visit(const void* value, const IKeywordDataMD* md, bool isOptional)
{
    if (!IsContainer(md->GetType()))
        current_ = {const_cast<void*>(value), md, isOptional};
    else
        Enter(value, md);
    return true;
}

/// Goes to the next element, item or pair of the container; false after the last.
template <class Data>
bool DataIteratorOf<Data>::NextBelow(Level& level)
{
    if (!level.data) // only a class of a host has no node there
        return false;
    if (level.items) {
        if (VisitScalar())
            return true;
        if (item_ == itemsEnd_)
            return false;
        level.index = item_ - level.items; // for when the walk is back
        return Visit(*reinterpret_cast<void**>(block_ + item_->offset), item_->md, true);
    }
    const std::int64_t index = ++level.index;
    switch (level.type) {
    case MDType::List: {
        const auto& list = CastMD<const IKeywordListData>(*level.data);
        return index < list.GetSize()
            && Visit(list.GetData(static_cast<std::size_t>(index)), level.itemMD, false);
    }
    case MDType::Record: {
        const auto& record = CastMD<const IKeywordRecordData>(*level.data);
        const int i = static_cast<int>(index);
        return i < record.GetSize()
            && Visit(record.GetData(i), CastMD<const IKeywordRecordMD>(*level.md).GetItemMD(i), true);
    }
    case MDType::Map: {
        const auto& map = CastMD<const IKeywordMapData>(*level.data);
        const int i = static_cast<int>(index);
        if (i >= map.GetSize())
            return false;
        mapValue_ = map.GetValue(i);
        return Visit(&mapValue_, map.GetItemMD(i), true);
    }
    default:
        return false; // DepthOf let no other in
    }
}

template <class Data>
bool DataIteratorOf<Data>::IsSameStop(const DataIteratorOf& other) const
{
    return root_ == other.root_
        && std::equal(path_.begin(), path_.end(), other.path_.begin(), other.path_.end(),
            [&](const Level& a, const Level& b) {
                return a.data == b.data && a.md == b.md && IndexAt(a) == other.IndexAt(b);
            });
}

template class DataIteratorOf<const IKeywordData>;
template class DataIteratorOf<IKeywordData>;

} // namespace Veld::Quor::Core::Keywords
