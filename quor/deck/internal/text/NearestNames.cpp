#include "quor/deck/internal/text/NearestNames.h"

#include "quor/deck/internal/text/NearestWords.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <bit>
#include <tuple>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

constexpr std::size_t mostNames = 3;

std::size_t CutOff(std::size_t length)
{
    const std::size_t byLength = length <= 4 ? 1 : length <= 7 ? 2 : 3;
    return std::min(byLength, length / 2);
}

/// Characters 64 apart share a bit, which only makes the comparison less sharp.
std::uint64_t CharactersOf(std::string_view text)
{
    std::uint64_t bits = 0;
    for (const char c : text)
        bits |= std::uint64_t(1) << (static_cast<unsigned char>(c) % 64);
    return bits;
}

/// An edit brings in at most one character and takes away at most one, so this is never above the distance.
std::size_t LeastDistance(std::uint64_t a, std::uint64_t b)
{
    return static_cast<std::size_t>(std::max(std::popcount(a & ~b), std::popcount(b & ~a)));
}

std::size_t CommonStart(std::string_view a, std::string_view b)
{
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

} // namespace

std::string SuggestionOf(const std::vector<std::string>& nearest)
{
    return nearest.empty() ? std::string() : fmt::format("did you mean {}?", fmt::join(nearest, ", "));
}

NearestNames::NearestNames(KeywordSyntaxTable& table)
{
    KeywordSyntaxEnumerator enumerator = table.KeywordsEnumerator();
    while (enumerator.Next()) {
        const std::string& name = *enumerator.Current()->first;
        if (!name.ends_with('*'))
            byLength_[name.size()].push_back({name, enumerator.Current()->second, CharactersOf(name)});
    }
}

std::vector<std::string> NearestNames::Find(const std::string& word, SectionType::Enum section) const
{
    const std::size_t cutOff = CutOff(word.size());
    const std::uint64_t characters = CharactersOf(word);
    // Not preferred, distance, letters after the common start, name: the smallest is the best.
    using Candidate = std::tuple<bool, std::size_t, std::size_t, std::string_view>;
    std::vector<Candidate> candidates;
    const auto end = byLength_.upper_bound(word.size() + cutOff);
    for (auto names = byLength_.lower_bound(word.size() - cutOff); names != end; ++names) {
        for (const Name& name : names->second) {
            if (LeastDistance(characters, name.characters) > cutOff)
                continue;
            const std::size_t distance = EditDistance(word, name.text, cutOff);
            if (distance <= cutOff) {
                const bool isPreferred = name.syntax->IsValid(section, SimulatorType::Any, name.text);
                candidates.emplace_back(
                    !isPreferred, distance, word.size() - CommonStart(word, name.text), name.text);
            }
        }
    }
    std::sort(candidates.begin(), candidates.end());

    std::vector<std::string> nearest;
    for (const auto& [isOther, distance, different, name] : candidates) {
        if (nearest.size() == mostNames)
            break;
        // A name with several syntaxes comes several times.
        if (std::find(nearest.begin(), nearest.end(), name) == nearest.end())
            nearest.emplace_back(name);
    }
    return nearest;
}

} // namespace Veld::Quor::Core::Decks
