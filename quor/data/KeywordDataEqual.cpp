#include "quor/data/KeywordDataEqual.h"

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRawData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/data/internal/GenericKeywordRecordDataImpl.h"
#include "quor/data/internal/ScalarOps.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"

#include <algorithm>
#include <string>
#include <typeinfo>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;

namespace {

const IKeywordData& NodeOf(const void* element)
{
    return *static_cast<const IKeywordData*>(element);
}

bool EqualNodes(const void* a, const void* b)
{
    return a && b ? KeywordDataEqual(NodeOf(a), NodeOf(b)) : a == b;
}

bool EqualNodeLists(const IKeywordListData& a, const IKeywordListData& b)
{
    const auto size = static_cast<std::size_t>(a.GetSize());
    for (std::size_t i = 0; i < size; ++i) {
        if (!EqualNodes(a.GetData(i), b.GetData(i)))
            return false;
    }
    return true;
}

bool EqualLists(const IKeywordListData& a, const IKeywordListData& b)
{
    if (a.GetSize() != b.GetSize())
        return false;
    const auto& md = CastMD<const IKeywordListMD>(*a.GetMD());
    const IKeywordDataMD* const item = md.GetItemMD();
    const MDType::Enum type = KeywordUtils::GetMDType(item);
    if (const ScalarOps* const ops = FindScalarOps(type))
        return ops->equalLists(a, b, md.IsItemDefaultable());
    switch (type) {
    case MDType::None:
        return true;
    case MDType::List:
    case MDType::Map:
    case MDType::Raw:
    case MDType::Record:
        return EqualNodeLists(a, b);
    default:
        throw KeywordException(
            std::string("KeywordListDataEqual: unhandled data type ") + typeid(*item).name());
    }
}

bool EqualMaps(const IKeywordMapData& a, const IKeywordMapData& b)
{
    if (a.GetSize() != b.GetSize())
        return false;
    for (int i = 0; i < a.GetSize(); ++i) {
        if (a.GetValue(i) != b.GetValue(i))
            return false;
    }
    return true;
}

bool EqualNested(const void* a, const void* b, std::size_t count)
{
    const auto* const nodesOfA = static_cast<const IKeywordData* const*>(a);
    const auto* const nodesOfB = static_cast<const IKeywordData* const*>(b);
    return std::equal(nodesOfA, nodesOfA + count, nodesOfB, EqualNodes);
}

/// The library's own records know where their items are, without asking the metadata.
bool EqualByLayout(const GenericKeywordRecordDataImpl& a, const GenericKeywordRecordDataImpl& b)
{
    // The metadata are the same, but a host may have added items to them in between.
    if (a.Layout().Items().size() != b.Layout().Items().size())
        return false;
    const auto& runs = a.Layout().Runs();
    return std::all_of(runs.begin(), runs.end(), [&](const RecordLayout::Run& run) {
        const std::byte* const ofA = a.Block() + run.offset;
        const std::byte* const ofB = b.Block() + run.offset;
        return run.ops ? run.ops->equalRun(ofA, ofB, run.count) : EqualNested(ofA, ofB, run.count);
    });
}

bool EqualRecords(const IKeywordRecordData& a, const IKeywordRecordData& b)
{
    if (typeid(a) == typeid(GenericKeywordRecordDataImpl)
        && typeid(b) == typeid(GenericKeywordRecordDataImpl))
        return EqualByLayout(static_cast<const GenericKeywordRecordDataImpl&>(a),
            static_cast<const GenericKeywordRecordDataImpl&>(b));
    const auto& md = CastMD<const IKeywordRecordMD>(*a.GetMD());
    for (int i = 0; i < a.GetSize(); ++i) {
        const IKeywordDataMD* const item = md.GetItemMD(i);
        if (item && !KeywordRecordItemEqual(*item, a.GetData(i), b.GetData(i)))
            return false;
    }
    return true;
}

} // namespace

bool KeywordDataEqual(const IKeywordData& a, const IKeywordData& b)
{
    if (&a == &b)
        return true;
    if (a.GetMD() != b.GetMD())
        return false;
    switch (KeywordUtils::GetMDType(a.GetMD())) {
    case MDType::List:
        return EqualLists(CastMD<const IKeywordListData>(a), CastMD<const IKeywordListData>(b));
    case MDType::Map:
        return EqualMaps(CastMD<const IKeywordMapData>(a), CastMD<const IKeywordMapData>(b));
    case MDType::Raw:
        return CastMD<const IKeywordRawData>(a).GetData() == CastMD<const IKeywordRawData>(b).GetData();
    case MDType::Record:
        return EqualRecords(CastMD<const IKeywordRecordData>(a), CastMD<const IKeywordRecordData>(b));
    default:
        throw KeywordException(
            std::string("KeywordDataEqual: unhandled IKeywordData type ") + typeid(a).name());
    }
}

bool KeywordRecordItemEqual(const IKeywordDataMD& md, const void* a, const void* b)
{
    if (const ScalarOps* const ops = FindScalarOps(md.GetType()))
        return ops->equal(a, b);
    switch (md.GetType()) {
    case MDType::List:
    case MDType::Map:
    case MDType::Raw:
    case MDType::Record:
        return EqualNodes(a, b);
    default:
        throw KeywordException(
            std::string("KeywordRecordDataEqual: unhandled data type ") + typeid(md).name());
    }
}

} // namespace Veld::Quor::Core::Keywords
