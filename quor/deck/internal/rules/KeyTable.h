#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// The key of several numbers, in their order.
class KeyOfParts {
public:
    KeyOfParts() = default;
    /// Goes on from a key. A part is not to be taken for one: two small numbers would be the same as two
    /// others.
    static KeyOfParts From(std::uint64_t key)
    {
        KeyOfParts parts;
        parts.key_ = key;
        return parts;
    }

    void Add(std::uint64_t part)
    {
        key_ = (key_ ^ part) * 0x9E3779B97F4A7C15U;
        key_ ^= key_ >> 32;
    }
    std::uint64_t Get() const { return key_; }

private:
    std::uint64_t key_ = 0xD6E8FEB86659FD93U;
};

/// Of keys alone.
struct Nothing { };

/// Values by key, in one block. The keys are hashes: two texts with one are too improbable to matter.
template <class Value>
class KeyTable {
public:
    /// The value of the key, and whether it is new: then it is `value`. Lasts until the next key is added.
    std::pair<Value*, bool> Add(std::uint64_t key, const Value& value)
    {
        if (2 * (size_ + 1) > capacity_)
            Grow();
        Slot& slot = slots_[IndexOf(key)];
        const bool isNew = slot.turn != turn_;
        if (isNew) {
            slot = {key, turn_, value};
            ++size_;
        }
        return {&slot.value, isNew};
    }
    bool Has(std::uint64_t key) const { return size_ > 0 && slots_[IndexOf(key)].turn == turn_; }

    bool IsEmpty() const { return size_ == 0; }
    /// Takes no time.
    void Clear()
    {
        ++turn_;
        size_ = 0;
    }

private:
    struct Slot {
        std::uint64_t key = 0;
        std::uint64_t turn = 0; // in which it was filled; another than that of the table: it is free
        Value value = {};
    };

    /// Of the key, or of the free slot for it.
    std::size_t IndexOf(std::uint64_t key) const
    {
        std::size_t at = static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ULL) >> 20) & (capacity_ - 1);
        while (slots_[at].turn == turn_ && slots_[at].key != key)
            at = (at + 1) & (capacity_ - 1);
        return at;
    }

    void Grow()
    {
        std::vector<Slot> before(capacity_ == 0 ? 16 : 2 * capacity_);
        before.swap(slots_);
        capacity_ = slots_.size();
        for (Slot& slot : before) {
            if (slot.turn == turn_)
                slots_[IndexOf(slot.key)] = std::move(slot);
        }
    }

    std::vector<Slot> slots_;
    std::size_t capacity_ = 0; // their number, a power of two
    std::size_t size_ = 0;
    std::uint64_t turn_ = 1;
};

/// The same for small numbers, in an array.
template <class Value>
class NumberTable {
public:
    std::pair<Value*, bool> Add(std::size_t number, const Value& value)
    {
        if (number >= size_)
            Grow(number);
        Slot& slot = slots_[number];
        const bool isNew = slot.turn != turn_;
        if (isNew)
            slot = {turn_, value};
        return {&slot.value, isNew};
    }
    /// Of one that was added.
    void Remove(std::size_t number) { slots_[number].turn = 0; }
    /// Takes no time.
    void Clear() { ++turn_; }

private:
    struct Slot {
        std::uint32_t turn = 0; // in which it was filled
        Value value = {};
    };

    void Grow(std::size_t number)
    {
        size_ = 2 * number + 16;
        slots_.resize(size_);
    }

    std::vector<Slot> slots_;
    std::size_t size_ = 0; // their number
    std::uint32_t turn_ = 1;
};

} // namespace Veld::Quor::Core::Decks
