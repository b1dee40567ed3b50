#include "quor/deck/internal/rules/NameTable.h"

#include "quor/deck/internal/text/TextHash.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

constexpr char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
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

std::size_t NameTable::Hash::operator()(std::string_view name) const
{
    TextHash hash;
    for (const char c : name)
        hash.Add(Upper(c));
    return hash.Get();
}

bool NameTable::Equal::operator()(std::string_view a, std::string_view b) const
{
    return std::equal(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Upper(x) == Upper(y); });
}

bool NameTable::HasMatch(std::string_view pattern)
{
    if (matched_.find(pattern) != matched_.end())
        return true;
    const bool isMatched = std::any_of(
        names_.begin(), names_.end(), [pattern](const std::string& name) { return IsMatch(pattern, name); });
    if (isMatched)
        matched_.emplace(pattern);
    return isMatched;
}

} // namespace Veld::Quor::Core::Decks
