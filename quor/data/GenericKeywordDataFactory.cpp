#include "quor/data/internal/GenericKeywordDataFactory.h"

#include "quor/data/internal/GenericKeywordListPtrDataImpl.h"
#include "quor/data/internal/GenericKeywordMapDataImpl.h"
#include "quor/data/internal/GenericKeywordRawDataImpl.h"
#include "quor/data/internal/GenericKeywordRecordDataImpl.h"
#include "quor/data/internal/ScalarOps.h"
#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/metadata/internal/MDCast.h"

#include <typeinfo>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;

std::unique_ptr<IKeywordData> GenericKeywordDataFactory::Construct(
    const IKeywordDataMD* md, const IKeywordSyntax* syntax)
{
    switch (KeywordUtils::GetMDType(md)) {
    case MDType::List:
        return Construct(&CastMD<const IKeywordListMD>(*md), syntax);
    case MDType::Map:
        return std::make_unique<GenericKeywordMapDataImpl>(&CastMD<const IKeywordMapMD>(*md), syntax);
    case MDType::Raw:
        return std::make_unique<GenericKeywordRawDataImpl>(&CastMD<const IKeywordRawMD>(*md), syntax);
    case MDType::Record:
        return GenericKeywordRecordDataImpl::Make(&CastMD<const IKeywordRecordMD>(*md), syntax);
    default:
        return nullptr;
    }
}

std::unique_ptr<IKeywordData> GenericKeywordDataFactory::Construct(
    const IKeywordListMD* md, const IKeywordSyntax* syntax)
{
    const IKeywordDataMD* const item = md->GetItemMD();
    if (!item)
        return nullptr;
    if (const ScalarOps* const ops = FindScalarOps(item->GetType()))
        return ops->makeList(md, syntax);
    if (item->GetType() == MDType::List || item->GetType() == MDType::Record)
        return std::make_unique<GenericKeywordListPtrDataImpl>(md, syntax);
    FailUnhandled("GenericKeywordDataFactory::Construct(IKeywordListMD)", *item);
}

void GenericKeywordDataFactory::FailUnhandled(const char* operation, const IKeywordDataMD& md)
{
    throw KeywordException(std::string(operation) + ": unhandled data type \"" + typeid(md).name() + "\"");
}

} // namespace Veld::Quor::Core::Keywords
