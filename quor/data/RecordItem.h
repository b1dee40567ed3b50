// Part of the implementation of DataIterator.

#pragma once

#include <cstdint>

namespace Veld::Quor::Core::Keywords {

class IKeywordDataMD;
struct ScalarOps;

/// Where an item of a record of the library is.
struct RecordItem {
    const ScalarOps* ops; ///< null: a nested object, to which there is a pointer
    const IKeywordDataMD* md; ///< the table's
    std::uint32_t offset; ///< in bytes, in the block of the record
};

} // namespace Veld::Quor::Core::Keywords
