// Part of the implementation of KeywordListData: hosts use IKeywordListData instead.

#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// The capacity that a full list grows to when one element is appended.
inline std::size_t GrownCapacity(std::size_t capacity)
{
    return capacity == 0 ? 4 : 2 * capacity;
}

/// Contiguous elements of a type that is plain memory. Unlike `std::vector` it grows by `realloc`, which
/// moves the pages of a large array and doesn't copy them.
template <class T>
class PlainElementBuffer {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    PlainElementBuffer() = default;
    /// Throws `std::bad_alloc`, as all that grows it.
    PlainElementBuffer(const PlainElementBuffer& other) { Append(other.elements_, other.size_); }
    PlainElementBuffer& operator=(const PlainElementBuffer&) = delete;
    ~PlainElementBuffer() { std::free(elements_); }

    /// How many elements there are.
    std::size_t Size() const { return size_; }
    /// The first element; may be null if there are none. Lasts until the buffer grows.
    /// @{
    T* Data() { return elements_; }
    const T* Data() const { return elements_; }
    /// @}

    /// Room for at least `capacity` elements; never less than before.
    void Reserve(std::size_t capacity)
    {
        if (capacity <= capacity_)
            return;
        if (capacity > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / sizeof(T))
            throw std::bad_alloc();
        void* const moved = std::realloc(elements_, capacity * sizeof(T));
        if (!moved)
            throw std::bad_alloc();
        elements_ = static_cast<T*>(moved);
        capacity_ = capacity;
    }
    /// Returns the new element. `value` may be one of the elements.
    T* Append(const T& value)
    {
        const T copy = value; // it may be one of the elements
        if (size_ == capacity_)
            Grow(1);
        elements_[size_] = copy;
        return &elements_[size_++];
    }
    /// The values may be a part of the buffer itself.
    void Append(const T* values, std::size_t count)
    {
        if (count == 0)
            return;
        const bool own = values >= elements_ && values < elements_ + size_;
        const std::size_t offset = own ? static_cast<std::size_t>(values - elements_) : 0;
        if (count > capacity_ - size_)
            Grow(count);
        std::memcpy(elements_ + size_, own ? elements_ + offset : values, count * sizeof(T));
        size_ += count;
    }
    /// Later elements move down by one. The index is not checked.
    void Remove(std::size_t i)
    {
        std::memmove(elements_ + i, elements_ + i + 1, (size_ - i - 1) * sizeof(T));
        --size_;
    }
    /// Keeps the room.
    void Clear() { size_ = 0; }

private:
    void Grow(std::size_t count)
    {
        const std::size_t doubled = GrownCapacity(capacity_);
        Reserve(count > doubled - size_ ? size_ + count : doubled);
    }

    T* elements_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

/// The same for other types.
template <class T>
class ObjectElementBuffer {
public:
    /// How many elements there are.
    std::size_t Size() const { return elements_.size(); }
    /// The first element; may be null if there are none. Lasts until the buffer grows.
    /// @{
    T* Data() { return elements_.data(); }
    const T* Data() const { return elements_.data(); }
    /// @}

    /// Room for at least `capacity` elements; never less than before.
    void Reserve(std::size_t capacity) { elements_.reserve(capacity); }
    /// Returns the new element. `value` may be one of the elements.
    T* Append(const T& value)
    {
        if (elements_.size() < elements_.capacity()) {
            elements_.push_back(value);
        } else {
            T copy = value; // it may be one of the elements
            elements_.reserve(GrownCapacity(elements_.capacity()));
            elements_.push_back(std::move(copy));
        }
        return &elements_.back();
    }
    /// The values may be a part of the buffer itself. What throws leaves the elements as they were.
    void Append(const T* values, std::size_t count)
    {
        // All copies first: what fails then leaves the elements as they were. The values may be among them.
        std::vector<T> copies(values, values + count);
        elements_.insert(
            elements_.end(), std::make_move_iterator(copies.begin()), std::make_move_iterator(copies.end()));
    }
    /// Later elements move down by one. The index is not checked.
    void Remove(std::size_t i) { elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(i)); }
    /// Keeps the room.
    void Clear() { elements_.clear(); }

private:
    std::vector<T> elements_;
};

/// The one of the two that fits `T`.
template <class T>
using ElementBuffer =
    std::conditional_t<std::is_trivially_copyable_v<T>, PlainElementBuffer<T>, ObjectElementBuffer<T>>;

} // namespace Veld::Quor::Core::Keywords
