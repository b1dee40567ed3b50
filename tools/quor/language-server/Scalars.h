#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Tools::LanguageServer {

/// A scalar in the data of a keyword.
struct ScalarPlace {
    const Core::Keywords::IKeywordDataMD* md = nullptr;
    const Core::Keywords::IKeywordRecordMD* record = nullptr; ///< the innermost; null outside records
    int item = 0; ///< of it
    const std::string* name = nullptr; ///< of the item; of an element that of its list; may be empty
    std::size_t slot = 0; ///< its index in `FindValueRanges`
    std::size_t element = 0; ///< of the keyword's outermost list
    std::size_t index = 0; ///< in its list of scalars; 0 elsewhere
    bool isInList = false; ///< of scalars
};

/// Visits the scalars of data in the order of `FindValueRanges`, those in lists of numbers
/// only if it is asked to.
template <class Visit>
class ScalarWalk {
public:
    ScalarWalk(Visit& visit, bool withNumbers)
        : visit_(visit)
        , withNumbers_(withNumbers)
    {
    }

    void Walk(const Core::Keywords::IKeywordData& node)
    {
        using Type = Core::Keywords::IKeywordDataMD::MDType;
        const Type::Enum type = node.GetMD()->GetType();
        if (type == Type::Record)
            WalkRecord(static_cast<const Core::Keywords::IKeywordRecordData&>(node));
        else if (type == Type::List)
            WalkList(static_cast<const Core::Keywords::IKeywordListData&>(node));
    }

private:
    using MD = Core::Keywords::IKeywordDataMD;

    static bool IsNumber(const MD& md)
    {
        return md.GetType() == MD::MDType::Real || md.GetType() == MD::MDType::Integer;
    }

    void WalkRecord(const Core::Keywords::IKeywordRecordData& record)
    {
        const ScalarPlace around = place_;
        const auto& md = static_cast<const Core::Keywords::IKeywordRecordMD&>(*record.GetMD());
        ++depth_;
        for (int i = 0; i < record.GetSize(); ++i) {
            const MD& item = *md.GetItemMD(i);
            place_.record = &md;
            place_.item = i;
            place_.name = &item.GetName();
            if (Core::Keywords::KeywordUtils::IsItemMDType(&item))
                Report(item);
            else
                Walk(*static_cast<const Core::Keywords::IKeywordData*>(record.GetData(i)));
        }
        --depth_;
        Restore(around);
    }

    void WalkList(const Core::Keywords::IKeywordListData& list)
    {
        const MD* const item = static_cast<const Core::Keywords::IKeywordListMD&>(*list.GetMD()).GetItemMD();
        const auto size = static_cast<std::size_t>(list.GetSize());
        if (!item || size == 0)
            return;
        const bool isScalar = Core::Keywords::KeywordUtils::IsItemMDType(item);
        if (isScalar && IsNumber(*item) && !withNumbers_) {
            place_.slot += size;
            return;
        }
        const ScalarPlace around = place_;
        const bool isOutermost = depth_ == 0;
        ++depth_;
        place_.isInList = isScalar;
        for (std::size_t i = 0; i < size; ++i) {
            place_.index = isScalar ? i : 0;
            if (isOutermost)
                place_.element = i;
            if (isScalar)
                Report(*item);
            else
                Walk(*static_cast<const Core::Keywords::IKeywordData*>(list.GetData(i)));
        }
        --depth_;
        Restore(around);
    }

    void Report(const MD& md)
    {
        place_.md = &md;
        if (!place_.name)
            place_.name = &md.GetName();
        visit_(static_cast<const ScalarPlace&>(place_));
        ++place_.slot;
    }

    void Restore(const ScalarPlace& around)
    {
        const std::size_t slot = place_.slot;
        const std::size_t element = place_.element;
        place_ = around;
        place_.slot = slot;
        place_.element = element;
    }

    Visit& visit_;
    bool withNumbers_;
    std::size_t depth_ = 0;
    ScalarPlace place_;
};

template <class Visit>
void ForEachScalar(const Core::Keywords::IKeywordData& root, bool withNumbers, Visit&& visit)
{
    ScalarWalk<std::remove_reference_t<Visit>>(visit, withNumbers).Walk(root);
}

} // namespace Veld::Quor::Tools::LanguageServer
