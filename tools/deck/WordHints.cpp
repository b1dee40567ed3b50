#include "tools/deck/WordHints.h"

#include "quor/data/IKeywordMapData.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "tools/deck/LineText.h"
#include "tools/deck/NearestNames.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools::Deck {

using namespace Core::Keywords;

namespace {

/// The nearest of the candidates, at most three; the cut-off grows with the word.
std::string HintOf(const std::vector<std::string>& candidates, const std::string& word)
{
    constexpr std::size_t most = 3;
    const std::string upper = ToUpper(word);
    const std::size_t cutOff = std::max<std::size_t>(1, upper.size() / 3);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const std::string& candidate : candidates) {
        const std::size_t distance = EditDistance(upper, candidate, cutOff);
        if (distance <= cutOff && distance < candidate.size())
            near.emplace_back(distance, candidate);
    }
    std::sort(near.begin(), near.end());
    near.resize(std::min(near.size(), most));
    std::vector<std::string> names;
    for (auto& [distance, name] : near)
        names.push_back(std::move(name));
    return names.empty() ? std::string() : fmt::format("did you mean {}?", fmt::join(names, ", "));
}

} // namespace

std::string Shorten(std::string_view word)
{
    constexpr std::size_t longest = 40;
    return word.size() <= longest ? std::string(word) : std::string(word.substr(0, longest)) + "...";
}

std::size_t CountCharacters(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string HintOfChoice(const IKeywordChoiceMD& choice, const std::string& word)
{
    std::vector<std::string> words;
    for (int i = 0; i < choice.NumChoices(); ++i)
        words.push_back(choice.GetChoice(i));
    const std::string hint = HintOf(words, word);
    return hint.empty() && !words.empty() ? fmt::format("it must be one of {}", fmt::join(words, ", "))
                                          : hint;
}

std::string HintOfKey(const IKeywordMapMD& map, const std::string& word)
{
    std::vector<std::string> keys;
    for (int i = 0; i < map.GetSize(); ++i)
        keys.insert(keys.end(), map.GetItemMD(i)->GetKeys().begin(), map.GetItemMD(i)->GetKeys().end());
    return HintOf(keys, word);
}

const IKeywordAssignmentMD* FindAssignment(const IKeywordMapData& map, const std::string& key)
{
    const std::string upper = ToUpper(key);
    for (int i = 0; i < map.GetSize(); ++i) {
        const auto& keys = map.GetItemMD(i)->GetKeys();
        if (std::find(keys.begin(), keys.end(), upper) != keys.end())
            return map.GetItemMD(i);
    }
    return nullptr;
}

} // namespace Veld::Quor::Tools::Deck
