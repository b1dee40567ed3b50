#include "quor/deck/internal/text/NearestWords.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/text/LineText.h"

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

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

} // namespace Veld::Quor::Core::Decks
