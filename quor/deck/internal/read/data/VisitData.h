#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRawData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/VisitMD.h"

#include <cassert>
#include <type_traits>

namespace Veld::Quor::Core::Decks {

using Keywords::Overloaded;

/// Calls `visit` with the data by their own type: a record, list, map or raw text, const if `Data` is.
template <class Data, class Visit>
auto VisitData(Data& data, const Visit& visit)
{
    using namespace Core::Keywords;
    using MDType = IKeywordDataMD::MDType;
    const auto visitAs = [&](auto* type) {
        using Type = std::remove_pointer_t<decltype(type)>;
        return visit(static_cast<std::conditional_t<std::is_const_v<Data>, const Type, Type>&>(data));
    };
    switch (data.GetMD()->GetType()) {
    case MDType::Record:
        return visitAs(static_cast<IKeywordRecordData*>(nullptr));
    case MDType::List:
        return visitAs(static_cast<IKeywordListData*>(nullptr));
    case MDType::Map:
        return visitAs(static_cast<IKeywordMapData*>(nullptr));
    case MDType::Raw:
        return visitAs(static_cast<IKeywordRawData*>(nullptr));
    case MDType::Assignment:
    case MDType::Boolean:
    case MDType::Choice:
    case MDType::Integer:
    case MDType::Line:
    case MDType::None:
    case MDType::Real:
    case MDType::String:
        break;
    }
    assert(false && "VisitData: no data are of a scalar type");
    return decltype(visitAs(static_cast<IKeywordRecordData*>(nullptr)))();
}

} // namespace Veld::Quor::Core::Decks
