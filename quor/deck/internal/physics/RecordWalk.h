#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/physics/RolePlans.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <cstddef>
#include <cstdint>

namespace Veld::Quor::Core::Decks {

/// Calls `use(record, roles, depth, slot)` with each record that has roles of an element of a keyword's list:
/// the element is a record, or a list of them. `depth`: how many records are around it; `slot`: of its first
/// item, among the scalars of the element.
template <class Use>
class RecordWalk {
public:
    explicit RecordWalk(const Use& use)
        : use_(use)
    {
    }

    void Walk(const Keywords::IKeywordData& data, const RecordRoles& roles, std::size_t depth = 0)
    {
        using MDType = Keywords::IKeywordDataMD::MDType;
        if (Keywords::KeywordUtils::GetMDType(data.GetMD()) == MDType::Record)
            return WalkRecord(static_cast<const Keywords::IKeywordRecordData&>(data), roles, depth);
        if (Keywords::KeywordUtils::GetMDType(data.GetMD()) != MDType::List)
            return;
        const auto& list = static_cast<const Keywords::IKeywordListData&>(data);
        for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
            WalkRecord(*static_cast<const Keywords::IKeywordRecordData*>(list.GetData(i)), roles, depth);
    }

private:
    void WalkRecord(const Keywords::IKeywordRecordData& record, const RecordRoles& roles, std::size_t depth)
    {
        use_(record, roles, depth, slots_);
        const auto& md = static_cast<const Keywords::IKeywordRecordMD&>(*record.GetMD());
        if (roles.isFlat) {
            slots_ += static_cast<std::uint32_t>(md.GetSize());
            return;
        }
        for (int i = 0; i < md.GetSize(); ++i) {
            using MDType = Keywords::IKeywordDataMD::MDType;
            const RecordRoles* const inner = roles.FindInner(i);
            const auto* const data = static_cast<const Keywords::IKeywordData*>(record.GetData(i));
            if (inner)
                Walk(*data, *inner, depth + 1);
            else if (Keywords::KeywordUtils::GetMDType(md.GetItemMD(i)) == MDType::List)
                slots_ += static_cast<std::uint32_t>(
                    static_cast<const Keywords::IKeywordListData*>(data)->GetSize());
            else
                ++slots_;
        }
    }

    const Use& use_;
    std::uint32_t slots_ = 0;
};

/// Of a keyword that carries a record or a list: calls `use(element, data)` with each element of the list, or
/// with the record.
template <class Use>
void ForEachElement(const Keywords::IKeywordData& root, const Use& use)
{
    using MDType = Keywords::IKeywordDataMD::MDType;
    if (Keywords::KeywordUtils::GetMDType(root.GetMD()) == MDType::Record)
        use(std::size_t(0), root);
    if (Keywords::KeywordUtils::GetMDType(root.GetMD()) != MDType::List)
        return;
    const auto& list = static_cast<const Keywords::IKeywordListData&>(root);
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
        use(i, *static_cast<const Keywords::IKeywordData*>(list.GetData(i)));
}

} // namespace Veld::Quor::Core::Decks
