#include "quor/metadata/ConstMetaDataIterator.h"

#include "quor/foundation/internal/KeywordException.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordRecordMD.h"

#include <algorithm>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;

ConstMetaDataIterator::ConstMetaDataIterator() = default;

ConstMetaDataIterator::ConstMetaDataIterator(const IKeywordDataMD& md)
{
    Enter(md);
}

ConstMetaDataIterator::~ConstMetaDataIterator() = default;

const ConstMetaDataIterator& ConstMetaDataIterator::End()
{
    static const ConstMetaDataIterator end;
    return end;
}

ConstMetaDataIterator& ConstMetaDataIterator::operator++()
{
    while (!path_.empty()) {
        if (const IKeywordDataMD* const child = NextChild(path_.back())) {
            Enter(*child);
            break;
        }
        path_.pop_back();
    }
    return *this;
}

bool ConstMetaDataIterator::IsSamePath(const ConstMetaDataIterator& other) const
{
    return std::equal(path_.begin(), path_.end(), other.path_.begin(),
        [](const Step& a, const Step& b) { return a.md == b.md && a.child == b.child; });
}

void ConstMetaDataIterator::Enter(const IKeywordDataMD& md)
{
    if (md.GetType() == MDType::Raw || md.GetType() == MDType::None)
        throw KeywordException("ConstMetaDataIterator: unhandled type");
    path_.push_back({&md, -1});
}

/// The child after the one that the step is at; null after the last.
const IKeywordDataMD* ConstMetaDataIterator::NextChild(Step& step)
{
    ++step.child;
    switch (step.md->GetType()) {
    case MDType::Record: {
        const auto& record = static_cast<const IKeywordRecordMD&>(*step.md);
        return step.child < record.GetSize() ? record.GetItemMD(step.child) : nullptr;
    }
    case MDType::List:
        return step.child == 0 ? static_cast<const IKeywordListMD&>(*step.md).GetItemMD() : nullptr;
    case MDType::Map: {
        const auto& map = static_cast<const IKeywordMapMD&>(*step.md);
        return step.child < map.GetSize() ? map.GetItemMD(step.child) : nullptr;
    }
    default:
        return nullptr;
    }
}

} // namespace Veld::Quor::Core::Keywords
