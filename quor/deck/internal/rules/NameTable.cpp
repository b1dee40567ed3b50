#include "quor/deck/internal/rules/NameTable.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Veld::Quor::Core::Decks {

namespace {

constexpr char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Eight letters of ASCII at once, as `Upper`.
std::uint64_t UpperAll(std::uint64_t letters)
{
    constexpr std::uint64_t ones = 0x0101010101010101U;
    const std::uint64_t low = letters & (0x7F * ones);
    const std::uint64_t fromA = low + (0x80 - 'a') * ones;
    const std::uint64_t beyondZ = low + (0x7F - 'z') * ones;
    const std::uint64_t isLower = ~letters & (fromA ^ beyondZ) & (0x80 * ones);
    return letters - (isLower >> 2);
}

} // namespace

/// Goes back to the last asterisk where the rest doesn't match: the time is that of the product of the sizes
/// at most.
bool IsMatch(std::string_view pattern, std::string_view name)
{
    std::size_t at = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    for (std::size_t i = 0; i < name.size();) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            resume = i;
        } else if (at < pattern.size() && (pattern[at] == '?' || Upper(pattern[at]) == Upper(name[i]))) {
            ++at;
            ++i;
        } else if (star != std::string_view::npos) {
            at = star + 1;
            i = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

std::uint64_t KeyOfName(std::string_view name)
{
    KeyOfParts key;
    key.Add(name.size()); // as the last eight characters are filled up
    for (std::size_t at = 0; at < name.size(); at += sizeof(std::uint64_t))
        key.Add(UpperAll(FirstLetters(name.substr(at))));
    return key.Get();
}

bool NameTable::Add(std::string_view name)
{
    const bool isNew = keys_.Add(KeyOfName(name), {}).second;
    if (isNew)
        names_.emplace_back(name);
    return isNew;
}

bool NameTable::HasMatch(std::string_view pattern)
{
    constexpr std::size_t matched = std::numeric_limits<std::size_t>::max();
    std::size_t& searched = *searched_.Add(KeyOfName(pattern), 0).first;
    while (searched < names_.size())
        searched = IsMatch(pattern, names_[searched]) ? matched : searched + 1;
    return searched == matched;
}

} // namespace Veld::Quor::Core::Decks
