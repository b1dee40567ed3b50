#pragma once

#include "quor/deck/ValueAddress.h"
#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <cstddef>
#include <optional>
#include <string>

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
}

namespace Veld::Quor::Core::Decks {

/// A scalar of a keyword's data.
struct ScalarSlot {
    const Core::Keywords::IKeywordDataMD* md;
    const Core::Keywords::IKeywordData* node; ///< the record or list that has it
    std::size_t index; ///< there

    /// Not given if it was left to its default, or is unknown.
    ScalarValue GetValue() const;
};

/// Of a list or record: the metadata of what is at an index. Null if there is nothing at it.
const Core::Keywords::IKeywordDataMD* FindChildMD(
    const Core::Keywords::IKeywordData& node, std::size_t index);
/// The container at an index at which there is one.
const Core::Keywords::IKeywordData& ChildOf(const Core::Keywords::IKeywordData& node, std::size_t index);
/// Elements of a list, items of a record; 0 of anything else.
std::size_t CountChildren(const Core::Keywords::IKeywordData& node);

/// The scalar that the path leads to; empty if it leads to none.
std::optional<ScalarSlot> FindScalar(const Core::Keywords::IKeywordData& root, const ValuePath& path);

/// The slots of a node, and of what is below it, as `DataPosition` counts them.
std::size_t CountSlots(const Core::Keywords::IKeywordData& node);
/// The slots before the scalar that the path leads to.
std::size_t SlotOf(const Core::Keywords::IKeywordData& root, const ValuePath& path);
/// Whether the slots, `first` to `last`, are in one record of nothing but scalars.
bool AreInFlatRecord(const Core::Keywords::IKeywordData& root, std::size_t first, std::size_t last);

} // namespace Veld::Quor::Core::Decks
