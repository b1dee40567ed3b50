#include "quor/deck/internal/text/NearestNames.h"

#include "quor/deck/internal/text/LineText.h"

#include "quor/syntax/KeywordSyntaxTable.h"

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

std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit)
{
    const std::size_t beyond = limit + 1;
    if (std::max(a.size(), b.size()) - std::min(a.size(), b.size()) > limit)
        return beyond;
    std::vector<std::size_t> beforeLast(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return std::min(row[b.size()], beyond);
}

std::vector<std::string> FindNearest(const std::vector<std::string>& known, const std::string& word)
{
    constexpr std::size_t most = 3;
    const std::string upper = ToUpper(word);
    const std::size_t cutOff = std::max<std::size_t>(1, word.size() / 3);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const std::string& candidate : known) {
        const std::size_t distance = EditDistance(upper, ToUpper(candidate), cutOff);
        if (distance <= cutOff && distance < candidate.size())
            near.emplace_back(distance, candidate);
    }
    std::stable_sort(
        near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    near.resize(std::min(near.size(), most));
    std::vector<std::string> nearest;
    for (auto& [distance, candidate] : near)
        nearest.push_back(std::move(candidate));
    return nearest;
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
