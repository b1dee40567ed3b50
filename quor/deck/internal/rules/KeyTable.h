#pragma once

#include <algorithm>
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

/// Values by key, in one block. The keys are hashes: two texts with one, and a key of 0, which is taken for
/// 1, are too improbable to matter.
template <class Value>
class KeyTable {
public:
    /// The value of the key, and whether it is new: then it is `value`. Lasts until the next key is added.
    std::pair<Value*, bool> Add(std::uint64_t key, const Value& value)
    {
        if (4 * (size_ + 1) > 3 * capacity_)
            Grow();
        Slot& slot = slots_[IndexOf(key)];
        const bool isNew = slot.key == 0;
        if (isNew) {
            slot.key = Used(key);
            slot.value = value;
            ++size_;
        }
        return {&slot.value, isNew};
    }
    bool Has(std::uint64_t key) const { return Find(key) != nullptr; }
    /// Null if the key is not there.
    const Value* Find(std::uint64_t key) const
    {
        const Slot* const slot = size_ > 0 ? &slots_[IndexOf(key)] : nullptr;
        return slot && slot->key != 0 ? &slot->value : nullptr;
    }

    bool IsEmpty() const { return size_ == 0; }
    /// Takes as long as it took to add the keys.
    void Clear()
    {
        if (size_ == 0)
            return;
        if (size_ < capacity_ / 16) { // its block is that of many keys before these
            std::vector<Slot>().swap(slots_);
            capacity_ = 0;
        }
        std::fill(slots_.begin(), slots_.end(), Slot());
        size_ = 0;
    }

private:
    struct Slot {
        std::uint64_t key = 0; // 0: it is free
        [[no_unique_address]] Value value = {};
    };

    static std::uint64_t Used(std::uint64_t key) { return key == 0 ? 1 : key; }

    /// Of the key, or of the free slot for it.
    std::size_t IndexOf(std::uint64_t key) const
    {
        const std::uint64_t used = Used(key);
        std::size_t at = static_cast<std::size_t>((used * 0x9E3779B97F4A7C15ULL) >> 20) & (capacity_ - 1);
        while (slots_[at].key != 0 && slots_[at].key != used)
            at = (at + 1) & (capacity_ - 1);
        return at;
    }

    void Grow()
    {
        std::vector<Slot> before(capacity_ == 0 ? 16 : 2 * capacity_);
        before.swap(slots_);
        capacity_ = slots_.size();
        for (Slot& slot : before) {
            if (slot.key != 0)
                slots_[IndexOf(slot.key)] = std::move(slot);
        }
    }

    std::vector<Slot> slots_;
    std::size_t capacity_ = 0; // their number, a power of two
    std::size_t size_ = 0;
};

} // namespace Veld::Quor::Core::Decks
