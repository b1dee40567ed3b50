#include "quor/deck/internal/read/values/WordHints.h"

#include "quor/data/IKeywordMapData.h"
#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NearestNames.h"
#include "quor/metadata/IKeywordAssignmentMD.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <vector>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

std::string HintOf(const std::vector<std::string>& known, const std::string& word)
{
    return SuggestionOf(FindNearest(known, word));
}

} // namespace

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
    return hint.empty() && !words.empty() ? fmt::format("expected one of: {}", fmt::join(words, ", ")) : hint;
}

std::string HintOfKey(const IKeywordMapMD& map, const std::string& word)
{
    std::vector<std::string> keys;
    for (int i = 0; i < map.GetSize(); ++i)
        keys.insert(keys.end(), map.GetItemMD(i)->GetKeys().begin(), map.GetItemMD(i)->GetKeys().end());
    return HintOf(keys, word);
}

const IKeywordAssignmentMD* FindAssignment(const IKeywordMapMD& map, const std::string& key)
{
    const std::string upper = ToUpper(key);
    for (int i = 0; i < map.GetSize(); ++i) {
        const auto& keys = map.GetItemMD(i)->GetKeys();
        if (std::find(keys.begin(), keys.end(), upper) != keys.end())
            return map.GetItemMD(i);
    }
    return nullptr;
}

} // namespace Veld::Quor::Core::Decks
