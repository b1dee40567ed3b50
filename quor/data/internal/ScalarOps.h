#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <cstddef>
#include <memory>
#include <string>

namespace Veld::Quor::Core::Keywords {

class IKeywordListMD;

/// What the library does with the values of one scalar type. In this floor, this table alone decides by type
/// how a value is stored: in a record as a `Service::Optional`, in a value list as an element.
struct ScalarOps {
    // An item of a record, in place.
    std::size_t size;
    std::size_t alignment;
    bool plain; // copied as memory, and not destroyed
    void (*construct)(void* place); // without a value
    void (*copy)(void* place, const void* item);
    void (*destroy)(void* item);
    bool (*hasValue)(const void* item);
    bool (*equal)(const void* a, const void* b);
    bool (*equalRun)(const void* a, const void* b, std::size_t count); // so many, one after the other
    /// Appends the value as text, and returns whether there is one. `separator` goes before it.
    bool (*print)(const void* item, const char* separator, std::string& text);

    // A list of values.
    std::unique_ptr<IKeywordData> (*makeList)(const IKeywordListMD* md, const IKeywordSyntax* syntax);
    /// For lists of the same metadata and size. `defaultable`: the flags count.
    bool (*equalLists)(const IKeywordListData& a, const IKeywordListData& b, bool defaultable);
};

/// Null for a type that is no scalar, and for an assignment, whose value is stored in its map.
const ScalarOps* FindScalarOps(IKeywordDataMD::MDType::Enum type);

} // namespace Veld::Quor::Core::Keywords
