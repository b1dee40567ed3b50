#pragma once

#include "quor/deck/internal/rules/KeyTable.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Whether a pattern matches a name, in any case: '*' stands for any characters, '?' for one.
bool IsMatch(std::string_view pattern, std::string_view name);

/// The first eight letters of a text, or all of it; of two texts of one size the same number only if they are
/// the same.
inline std::uint64_t FirstLetters(std::string_view text)
{
    const auto load = [&](auto word, std::size_t at) {
        std::memcpy(&word, text.data() + at, sizeof word);
        return std::uint64_t(word);
    };
    if (text.size() >= 8)
        return load(std::uint64_t(), 0);
    if (text.size() >= 4)
        return load(std::uint32_t(), 0) | load(std::uint32_t(), text.size() - 4) << 32;
    if (text.empty())
        return 0;
    return load(std::uint8_t(), 0) | load(std::uint8_t(), text.size() / 2) << 8
        | load(std::uint8_t(), text.size() - 1) << 16;
}

/// A number that is the same for names that differ in case alone. That two others have one is too improbable
/// to matter.
std::uint64_t KeyOfName(std::string_view name);

/// A whole number as a name.
class NumberName {
public:
    explicit NumberName(int number)
        : end_(std::to_chars(std::begin(digits_), std::end(digits_), number).ptr)
    {
    }
    std::string_view Get() const { return {digits_, static_cast<std::size_t>(end_ - digits_)}; }

private:
    char digits_[16];
    const char* end_;
};

/// Names of one kind, the same in any case.
class NameTable {
public:
    /// False if the name is there.
    bool Add(std::string_view name);
    bool Has(std::string_view name) const { return !keys_.IsEmpty() && keys_.Has(KeyOfName(name)); }
    /// Whether a name matches: '*' stands for any characters, '?' for one. A pattern that comes again is
    /// matched with the names that are new alone.
    bool HasMatch(std::string_view pattern);
    /// True the first time that it is asked of a name.
    bool IsFirstReport(std::string_view name) { return reported_.Add(KeyOfName(name), {}).second; }

    std::size_t GetSize() const { return names_.size(); }
    /// As the deck first has them.
    const std::vector<std::string>& GetNames() const { return names_; }

private:
    using Keys = KeyTable<Nothing>;

    std::vector<std::string> names_;
    Keys keys_; // of the names
    KeyTable<std::size_t> searched_; // of patterns: the names that don't match, or `matched`
    Keys reported_;
};

} // namespace Veld::Quor::Core::Decks
