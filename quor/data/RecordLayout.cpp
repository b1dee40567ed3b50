#include "quor/data/internal/RecordLayout.h"

#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <functional>

namespace Veld::Quor::Core::Keywords {

namespace {

std::size_t AlignmentOf(const RecordLayout::Item& item)
{
    return item.ops ? item.ops->alignment : alignof(void*);
}

} // namespace

RecordLayout::RecordLayout(const IKeywordRecordMD* md, const IKeywordSyntax* syntax)
    : md_(md)
    , syntax_(syntax)
{
    const int count = md->GetSize();
    items_.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const IKeywordDataMD* const item = md->GetItemMD(i);
        items_.push_back({FindScalarOps(KeywordUtils::GetMDType(item)), item, 0});
    }
    std::vector<Item*> places;
    for (Item& item : items_)
        places.push_back(&item);
    std::stable_sort(places.begin(), places.end(), [](const Item* a, const Item* b) {
        if (AlignmentOf(*a) != AlignmentOf(*b))
            return AlignmentOf(*a) > AlignmentOf(*b); // so that no gaps are between them
        return std::less<>()(a->ops, b->ops);
    });
    for (Item* const item : places)
        Place(*item);
    MakeImage();
}

void RecordLayout::Place(Item& item)
{
    item.offset = static_cast<std::uint32_t>(size_);
    size_ += item.ops ? item.ops->size : sizeof(void*);
    if (!runs_.empty() && runs_.back().ops == item.ops)
        ++runs_.back().count;
    else
        runs_.push_back({item.ops, item.offset, 1});
}

void RecordLayout::MakeImage()
{
    image_.resize(size_);
    for (const Item& item : items_) {
        if (item.ops && item.ops->plain)
            item.ops->construct(image_.data() + item.offset);
        else
            owners_.push_back(item);
    }
}

} // namespace Veld::Quor::Core::Keywords
