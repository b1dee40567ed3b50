#pragma once

#include "quor/data/RecordItem.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/service/Optional.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace Veld::Quor::Core::Keywords {

class IKeywordData;

/// Walks a data tree in pre-order: each container, then what it holds, every item of a record included, given
/// or not. The stops say where a value is and what it is. What is written through `DataIterator` at an
/// item of a record or an element of a list reaches the data; the value of a map is a copy. Raw text can't be
/// walked, nor a record that has one. A flat path from root to stop is all that it keeps: it neither grows
/// with the data nor sees them change.
///
///     for (ConstDataIterator it(*data); it != ConstDataIterator::End(); ++it)
///         Print(*it->md, it->value, it->isOptional);
///
/// `Data` is `IKeywordData`, const or not.
template <class Data>
class VELD_QUOR_EXPORT DataIteratorOf {
public:
    /// Where the walk is.
    struct ValueType {
        /// At a container the `IKeywordData` itself; else the scalar.
        std::conditional_t<std::is_const_v<Data>, const void*, void*> value;
        const IKeywordDataMD* md; ///< of the stop, the table's
        /// Whether `value` is a `Service::Optional` (an item of a record, a value of a map), and not a plain
        /// value (an element of a list) or a container.
        bool isOptional;
    };

    /// At the end.
    DataIteratorOf() = default;
    /// At the root, which must outlive the iterator. Throws `Service::Exception` if there is raw text at any
    /// depth.
    explicit DataIteratorOf(Data& root);
    ~DataIteratorOf() = default;
    DataIteratorOf(const DataIteratorOf&) = delete;
    DataIteratorOf& operator=(const DataIteratorOf&) = delete;

    /// Moves on; does nothing at the end. Throws only what the data throw.
    DataIteratorOf& operator++()
    {
        if (!VisitScalar()) // most stops are one
            Next();
        return *this;
    }
    /// The stop, as a pointer into the iterator; null at the end. Each step overwrites it.
    /// @{
    const ValueType* operator*() const { return current_.value ? &current_ : nullptr; }
    const ValueType* operator->() const { return **this; }
    /// @}

    /// At the same stop of the same tree; at the end, if one of them is an end as `End()` returns it.
    /// @{
    friend bool operator==(const DataIteratorOf& a, const DataIteratorOf& b)
    {
        if (!a.root_ || !b.root_)
            return !a.current_.value && !b.current_.value;
        return a.IsSameStop(b);
    }
    friend bool operator!=(const DataIteratorOf& a, const DataIteratorOf& b) { return !(a == b); }
    /// @}

    /// The end of every walk; one object for the whole process.
    static const DataIteratorOf& End();

private:
    struct Level {
        const IKeywordData* data;
        const IKeywordDataMD* md;
        IKeywordDataMD::MDType::Enum type; // of `md`
        const IKeywordDataMD* itemMD; // of a list; else null
        const RecordItem* items; // of a record of the library; else null
        std::int64_t index; // of the stop below, but see `item_`; -1: the stop is this container
    };

    /// The next item of a record of the library; false if it is none, or no scalar.
    bool VisitScalar()
    {
        if (item_ == itemsEnd_ || !item_->ops)
            return false;
        current_ = {block_ + item_->offset, item_->md, true};
        ++item_;
        return true;
    }
    void Next();
    void Enter(const void* data, const IKeywordDataMD* md);
    bool Visit(const void* value, const IKeywordDataMD* md, bool isOptional);
    bool NextBelow(Level& level);
    void Resume();
    std::int64_t IndexAt(const Level& level) const;
    bool IsSameStop(const DataIteratorOf& other) const;

    ValueType current_{nullptr, nullptr, false};
    const IKeywordData* root_ = nullptr; // null: made as an end
    std::vector<Level> path_;
    // Where the last of the path is a record of the library: the item after the stop, in place of its index.
    const RecordItem* item_ = nullptr;
    const RecordItem* itemsEnd_ = nullptr;
    std::byte* block_ = nullptr;
    Service::Optional<int> mapValue_; // the copy that `current_` shows in a map
};

extern template class DataIteratorOf<const IKeywordData>;
extern template class DataIteratorOf<IKeywordData>;

/// Reads.
using ConstDataIterator = DataIteratorOf<const IKeywordData>;
/// Reads, and may write the values it stops at.
using DataIterator = DataIteratorOf<IKeywordData>;

} // namespace Veld::Quor::Core::Keywords
