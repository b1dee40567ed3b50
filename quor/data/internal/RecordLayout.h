#pragma once

#include "quor/data/RecordItem.h"
#include "quor/data/internal/ScalarOps.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordRecordMD;
class IKeywordSyntax;

/// Where the items of a record are in its block of memory: a scalar in place, a nested object as a pointer to
/// it. Items of one type are together, which leaves no gaps and lets them be compared at once. Records that
/// are cloned from each other, or are elements of one list, share a layout.
class RecordLayout : public boost::intrusive_ref_counter<RecordLayout> {
public:
    using Item = RecordItem;

    /// Items of one type, one after the other in the block.
    struct Run {
        const ScalarOps* ops;
        std::uint32_t offset;
        std::uint32_t count;
    };

    /// Both are the table's, and of all records that have the layout.
    RecordLayout(const IKeywordRecordMD* md, const IKeywordSyntax* syntax);

    const IKeywordRecordMD* MD() const { return md_; }
    const IKeywordSyntax* Syntax() const { return syntax_; }
    const std::vector<Item>& Items() const { return items_; }
    std::size_t Size() const { return size_; }
    /// A whole block without values, as far as it is plain memory.
    const std::byte* Image() const { return image_.data(); }
    /// The items that aren't.
    const std::vector<Item>& Owners() const { return owners_; }
    bool IsPlain() const { return owners_.empty(); }
    const std::vector<Run>& Runs() const { return runs_; }

private:
    void Place(Item& item);
    void MakeImage();

    const IKeywordRecordMD* md_;
    const IKeywordSyntax* syntax_;
    std::vector<Item> items_;
    std::vector<Item> owners_;
    std::vector<Run> runs_;
    std::vector<std::byte> image_;
    std::size_t size_ = 0;
};

using LayoutPointer = boost::intrusive_ptr<const RecordLayout>;

} // namespace Veld::Quor::Core::Keywords
