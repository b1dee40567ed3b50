#pragma once

#include "quor/data/internal/ScalarOps.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordRecordMD;

/// Where the items of a record are in its one block of memory: a scalar in place, a nested object as a
/// pointer to it. Records that are cloned from each other, or are elements of one list, share a layout.
class RecordLayout {
public:
    struct Item {
        const ScalarOps* ops; // null: a nested object
        const IKeywordDataMD* md;
        std::uint32_t offset;
    };

    explicit RecordLayout(const IKeywordRecordMD& md);

    const std::vector<Item>& Items() const { return items_; }
    std::size_t Size() const { return size_; }
    /// Whether the whole block is plain memory.
    bool IsPlain() const { return plain_; }

private:
    std::vector<Item> items_;
    std::size_t size_ = 0;
    bool plain_ = true;
};

} // namespace Veld::Quor::Core::Keywords
