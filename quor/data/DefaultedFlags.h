// Part of the implementation of KeywordListData: hosts use IKeywordListData instead.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// A bit for each element of a list. Words are kept up to the last flag that was ever set; beyond them all
/// are false, so a list without defaulted elements pays nothing.
class DefaultedFlags {
public:
    /// Any index may be asked.
    bool Get(std::size_t i) const
    {
        return i / bits < words_.size() && (words_[i / bits] >> i % bits & 1U) != 0;
    }

    /// Makes room if the flag is true.
    void Set(std::size_t i, bool flag)
    {
        if (!flag && i / bits >= words_.size())
            return;
        if (i / bits >= words_.size())
            words_.resize(i / bits + 1);
        const Word bit = Word{1} << i % bits;
        words_[i / bits] = flag ? words_[i / bits] | bit : words_[i / bits] & ~bit;
    }

    /// Takes out bit `i`; later ones move down by one.
    void Remove(std::size_t i)
    {
        for (std::size_t word = i / bits; word < words_.size(); ++word) {
            const Word below = word == i / bits ? (Word{1} << i % bits) - 1 : 0; // bits that stay
            const Word carry = word + 1 < words_.size() ? words_[word + 1] << (bits - 1) : 0;
            words_[word] = (words_[word] & below) | (words_[word] >> 1 & ~below) | carry;
        }
    }

    /// All are false then.
    void Clear() { words_.clear(); }

    /// Whether some flag is set.
    bool Any() const
    {
        for (const Word word : words_) {
            if (word != 0)
                return true;
        }
        return false;
    }

private:
    using Word = std::uint64_t;
    static constexpr std::size_t bits = 64;

    std::vector<Word> words_;
};

} // namespace Veld::Quor::Core::Keywords
