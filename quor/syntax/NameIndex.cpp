#include "quor/syntax/internal/NameIndex.h"

#include <cstring>
#include <utility>

namespace Veld::Quor::Core::Keywords {

/// The bytes of the name, filled up with zeros. None for a name that is empty, too long, a wildcard, or that
/// ends in a zero itself.
std::uint64_t NameIndex::Pack(std::string_view name)
{
    std::uint64_t key = none;
    if (name.empty() || name.size() > sizeof key || name.back() == '\0'
        || name.find('*') != std::string_view::npos)
        return none;
    std::memcpy(&key, name.data(), name.size());
    return key;
}

std::size_t NameIndex::PlaceOf(std::uint64_t key) const
{
    const std::size_t mask = slots_.size() - 1;
    const std::uint64_t hash = key * 0x9E3779B97F4A7C15U; // spreads each byte to the upper half
    std::size_t place = static_cast<std::size_t>(hash >> 32) & mask;
    while (slots_[place].key != none && slots_[place].key != key)
        place = (place + 1) & mask;
    return place;
}

void NameIndex::Add(std::string_view name, const Syntaxes* syntaxes)
{
    const std::uint64_t key = Pack(name);
    if (key == none)
        return;
    if (2 * (count_ + 1) > slots_.size())
        Grow();
    Slot& slot = slots_[PlaceOf(key)];
    if (slot.key == none)
        ++count_;
    slot = {key, syntaxes};
}

void NameIndex::Grow()
{
    std::vector<Slot> earlier(slots_.empty() ? 64 : 2 * slots_.size());
    std::swap(slots_, earlier);
    for (const Slot& slot : earlier) {
        if (slot.key != none)
            slots_[PlaceOf(slot.key)] = slot;
    }
}

} // namespace Veld::Quor::Core::Keywords
