#pragma once

#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordRecordData.h"

#include <cstddef>
#include <string>
#include <type_traits>

namespace Veld::Quor::Core::Keywords {

/// The elements of a list of values, read-only and without a copy. Lasts until the list changes.
template <class T>
class ArrayView {
    static_assert(std::is_same_v<T, int> || std::is_same_v<T, double> || std::is_same_v<T, std::string>,
        "a view has elements of type int, double or std::string; ValueAt<bool> reads a boolean");

public:
    /// For generic code, as in a container.
    /// @{
    using value_type = T;
    using const_iterator = const T*;
    /// @}

    /// `data` is the first of all elements of `list`.
    ArrayView(const T* data, const IKeywordListData& list)
        : data_(data)
        , size_(static_cast<std::size_t>(list.GetSize()))
        , list_(&list)
    {
    }

    /// Null for an empty list.
    const T* data() const { return data_; }
    /// As it was when the view was made.
    std::size_t size() const { return size_; }
    /// Whether there are no elements.
    bool empty() const { return size_ == 0; }
    /// The elements in order.
    /// @{
    const T* begin() const { return data_; }
    const T* end() const { return data_ + size_; }
    /// @}
    /// Not checked, as in an array; `ValueAt` is.
    const T& operator[](std::size_t i) const { return data_[i]; }

    /// Whether the deck left the element to its default. Throws `Service::Exception` for a bad index.
    bool IsDefaulted(std::size_t i) const { return list_->IsDefaulted(i); }

private:
    const T* data_;
    std::size_t size_;
    const IKeywordListData* list_;
};

/// The records of a list of records, one by one; made by `Records`. `List` is `IKeywordListData`, const or
/// not.
template <class List>
class RecordRange {
public:
    /// Const as the list is.
    using Record = std::conditional_t<std::is_const_v<List>, const IKeywordRecordData, IKeywordRecordData>;

    /// A position in the list. Lasts until records are added or removed.
    class Iterator {
    public:
        /// At `index`, which is not checked.
        Iterator(List& list, std::size_t index)
            : list_(&list)
            , index_(index)
        {
        }
        /// The record, which the list owns. Not past the last.
        /// @{
        Record& operator*() const
        {
            using Node = std::conditional_t<std::is_const_v<List>, const IKeywordData, IKeywordData>;
            return static_cast<Record&>(*static_cast<Node*>(list_->GetData(index_)));
        }
        Record* operator->() const { return &**this; }
        /// @}
        /// The next record.
        Iterator& operator++()
        {
            ++index_;
            return *this;
        }
        /// By position; both are of one list.
        /// @{
        bool operator==(const Iterator& other) const { return index_ == other.index_; }
        bool operator!=(const Iterator& other) const { return index_ != other.index_; }
        /// @}

    private:
        List* list_;
        std::size_t index_;
    };

    /// `list` is a list of records.
    explicit RecordRange(List& list)
        : list_(&list)
    {
    }
    /// The records in order.
    /// @{
    Iterator begin() const { return Iterator(*list_, 0); }
    Iterator end() const { return Iterator(*list_, size()); }
    /// @}
    /// Asked of the list each time.
    std::size_t size() const { return static_cast<std::size_t>(list_->GetSize()); }
    /// Whether there are no records.
    bool empty() const { return size() == 0; }

private:
    List* list_;
};

} // namespace Veld::Quor::Core::Keywords
