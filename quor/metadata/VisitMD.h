#pragma once

#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordBooleanMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordLineMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IKeywordStringMD.h"

#include <cassert>

namespace Veld::Quor::Core::Keywords {

/// One function object of several, for `VisitMD`: an overload for each type of interest.
template <class... Visits>
struct Overloaded : Visits... {
    using Visits::operator()...;
};
/// So that `Overloaded{...}` names no types.
template <class... Visits>
Overloaded(Visits...) -> Overloaded<Visits...>;

/// Calls `visit` with the metadata by the interface of their type, one of the eleven below, and returns what
/// it returns; all calls return the same type, which is `void` or has a default. An overload that accepts
/// `const auto&` serves the types that need no own one. `md` is a node of a table: not null, its type not
/// `None`. Throws only what `visit` throws.
template <class Visit>
auto VisitMD(const IKeywordDataMD& md, Visit&& visit)
{
    using MDType = IKeywordDataMD::MDType;
    switch (md.GetType()) {
    case MDType::Assignment:
        return visit(static_cast<const IKeywordAssignmentMD&>(md));
    case MDType::Boolean:
        return visit(static_cast<const IKeywordBooleanMD&>(md));
    case MDType::Choice:
        return visit(static_cast<const IKeywordChoiceMD&>(md));
    case MDType::Integer:
        return visit(static_cast<const IKeywordIntegerMD&>(md));
    case MDType::Line:
        return visit(static_cast<const IKeywordLineMD&>(md));
    case MDType::List:
        return visit(static_cast<const IKeywordListMD&>(md));
    case MDType::Map:
        return visit(static_cast<const IKeywordMapMD&>(md));
    case MDType::Raw:
        return visit(static_cast<const IKeywordRawMD&>(md));
    case MDType::Real:
        return visit(static_cast<const IKeywordRealMD&>(md));
    case MDType::Record:
        return visit(static_cast<const IKeywordRecordMD&>(md));
    case MDType::String:
        return visit(static_cast<const IKeywordStringMD&>(md));
    case MDType::None:
        break;
    }
    assert(false && "VisitMD: the metadata have no type");
    return decltype(visit(static_cast<const IKeywordRecordMD&>(md)))();
}

} // namespace Veld::Quor::Core::Keywords
