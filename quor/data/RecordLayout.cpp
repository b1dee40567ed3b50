#include "quor/data/internal/RecordLayout.h"

#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

namespace Veld::Quor::Core::Keywords {

RecordLayout::RecordLayout(const IKeywordRecordMD& md)
{
    const int count = md.GetSize();
    items_.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const IKeywordDataMD* const item = md.GetItemMD(i);
        const ScalarOps* const ops = FindScalarOps(KeywordUtils::GetMDType(item));
        const std::size_t alignment = ops ? ops->alignment : alignof(void*);
        size_ = (size_ + alignment - 1) / alignment * alignment;
        items_.push_back({ops, item, static_cast<std::uint32_t>(size_)});
        size_ += ops ? ops->size : sizeof(void*);
        plain_ = plain_ && ops && ops->plain;
    }
}

} // namespace Veld::Quor::Core::Keywords
