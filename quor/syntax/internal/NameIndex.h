#pragma once

#include "quor/syntax/KeywordSyntaxLookupTable.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// A hash table in front of the character tree, for the look-up that nearly all are: a stored name of at most
/// eight characters, exactly. Such a name is one word, and in the tree an exact name beats every wildcard.
class NameIndex {
public:
    using Syntaxes = KeywordSyntaxLookupTable::Syntaxes;

    /// Remembers where the tree keeps the syntaxes of `name`; does nothing for a name that the index can't
    /// hold.
    void Add(std::string_view name, const Syntaxes* syntaxes);

    /// Null if the name isn't in the index; it may still be in the tree.
    const Syntaxes* Find(std::string_view name) const
    {
        const std::uint64_t key = Pack(name);
        if (key == none || slots_.empty())
            return nullptr;
        return slots_[PlaceOf(key)].syntaxes;
    }

private:
    struct Slot {
        std::uint64_t key = none;
        const Syntaxes* syntaxes = nullptr;
    };

    static constexpr std::uint64_t none = 0;

    static std::uint64_t Pack(std::string_view name);
    /// The key's slot, or the free one where it would be.
    std::size_t PlaceOf(std::uint64_t key) const;
    void Grow();

    std::vector<Slot> slots_; // a power of two, at most half of them taken
    std::size_t count_ = 0;
};

} // namespace Veld::Quor::Core::Keywords
