#pragma once

#include "quor/syntax/KeywordSyntaxLookupTable.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// Hash tables in front of the character tree, for the look-ups that nearly all are: a name of at most eight
/// characters, which is one word. An exact name beats every wildcard, and of wildcards the longest wins.
class NameIndex {
public:
    using Syntaxes = KeywordSyntaxLookupTable::Syntaxes;

    /// Remembers what the tree finds for `name`, whose syntaxes may be more than before. Null: nothing, as
    /// for some odd wildcards.
    void Add(const std::string& name, const Syntaxes* syntaxes);

    /// Of several the first one that is not valid in SUMMARY, else the first one.
    static const IKeywordSyntax* ChosenOf(const Syntaxes& syntaxes);

    /// What a name stands for: `const Syntaxes*`, or `const IKeywordSyntax*` for the one that is chosen. Null
    /// if nothing has that name. Nothing for a name of which only the tree knows: a wildcard matches some
    /// names even where wildcards are not asked for.
    template <class Answer>
    std::optional<Answer> Find(const std::string& name, bool wildcards) const
    {
        const std::uint64_t key = Pack(name);
        if (key == none)
            return std::nullopt;
        const Answer exact = exact_.Find<Answer>(key);
        if (exact || !MayMatchWildcard(key))
            return exact;
        if (!wildcards || hasOddWildcards_)
            return std::nullopt;
        return FindWildcard<Answer>(key);
    }

private:
    /// A table of words, three quarters of which are free at least: a second look is seldom needed.
    class Words {
    public:
        template <class Answer>
        Answer Find(std::uint64_t key) const
        {
            if constexpr (std::is_same_v<Answer, const Syntaxes*>)
                return all_[PlaceOf(key)];
            else
                return slots_[PlaceOf(key)].chosen;
        }
        void Set(std::uint64_t key, const IKeywordSyntax* chosen, const Syntaxes* all);

    private:
        struct Slot {
            std::uint64_t key = none;
            const IKeywordSyntax* chosen = nullptr;
        };

        /// The key's, or the free one where it would be.
        std::size_t PlaceOf(std::uint64_t key) const
        {
            const std::size_t mask = slots_.size() - 1;
            const std::uint64_t hash = key * 0x9E3779B97F4A7C15U >> 32; // each byte counts in the upper half
            std::size_t place = static_cast<std::size_t>(hash) & mask;
            while (slots_[place].key != key && slots_[place].key != none)
                place = (place + 1) & mask;
            return place;
        }

        std::vector<Slot> slots_ = std::vector<Slot>(64); // a power of two
        std::vector<const Syntaxes*> all_ = std::vector<const Syntaxes*>(64); // parallel; seldom asked for
        std::size_t count_ = 0;
    };

    static constexpr std::uint64_t none = 0;

    /// `count` is from 1 to 8.
    static constexpr std::uint64_t FirstBytes(std::uint64_t key, std::size_t count)
    {
        return key & (~std::uint64_t{0} >> (64 - 8 * count));
    }

    /// The bytes of the name, filled up with zeros. None for a name that is empty, too long, has a `*`, or
    /// ends in a zero itself.
    static std::uint64_t Pack(const std::string& name)
    {
        const std::size_t size = name.size();
        std::uint64_t key = none;
        if (size - 1 >= sizeof key)
            return none;
        if (name.capacity() >= sizeof key) // one load; what is after the name is cut off
            key = FirstBytes(Load(name.data()), size);
        else
            std::memcpy(&key, name.data(), size);
        constexpr std::uint64_t ones = 0x0101010101010101U;
        const std::uint64_t noAsterisk = key ^ ('*' * ones); // a byte that is one is 0 there
        const bool hasAsterisk = ((noAsterisk - ones) & ~noAsterisk & (0x80 * ones)) != 0;
        return hasAsterisk || key >> (8 * (size - 1)) == 0 ? none : key;
    }
    static std::uint64_t Load(const char* bytes)
    {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes, sizeof word);
        return word;
    }

    /// Tells by the first two characters alone, and so may be wrong if it says yes.
    bool MayMatchWildcard(std::uint64_t key) const
    {
        return (beginnings_[key & 0xFF].seconds >> (key >> 8 & 63) & 1) != 0;
    }
    template <class Answer>
    Answer FindWildcard(std::uint64_t key) const
    {
        for (unsigned lengths = beginnings_[key & 0xFF].lengths; lengths != 0;) {
            const int longest = 31 - std::countl_zero(lengths);
            if (const Answer answer =
                    wildcards_.Find<Answer>(FirstBytes(key, static_cast<std::size_t>(longest))))
                return answer;
            lengths ^= 1U << longest;
        }
        return nullptr;
    }

    void AddWildcard(const std::string& name, const Syntaxes* syntaxes);

    /// Of the wildcards that begin with a character.
    struct Beginning {
        std::uint64_t seconds = 0; ///< bit n: a second character whose lower six bits are n
        unsigned lengths = 0; ///< bit n: n characters before the `*`
    };

    Words exact_;
    Words wildcards_; // by what is before the `*`
    std::array<Beginning, 256> beginnings_;
    bool hasOddWildcards_ =
        false; // other than some characters and a `*`: the tree has its own rules for them
};

} // namespace Veld::Quor::Core::Keywords
