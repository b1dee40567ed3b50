#include "quor/deck/internal/read/contents/KeywordNames.h"

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/NearestNames.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

const std::vector<std::uint32_t>& KeywordNames::Find(const DeckContents& deck, std::string_view name)
{
    static const std::vector<std::uint32_t> none;
    Make(deck);
    const std::string upper = ToUpper(name);
    const auto known = byName_.find(upper);
    if (known != byName_.end())
        return known->second;
    for (const Keywords::IKeywordSyntax* const syntax : deck.language.LookupAll(upper)) {
        const auto meant = byName_.find(syntax->GetName());
        if (meant != byName_.end())
            return meant->second;
    }
    return none;
}

std::vector<std::string> KeywordNames::FindNearest(const DeckContents& deck, std::string_view name)
{
    Make(deck);
    std::vector<std::string> names;
    for (const auto& [known, keywords] : byName_)
        names.push_back(known);
    std::sort(names.begin(), names.end());
    return Decks::FindNearest(names, ToUpper(name));
}

std::string KeywordNames::ExplainMissing(const DeckContents& deck, std::string_view name)
{
    const std::string suggestion = SuggestionOf(FindNearest(deck, name));
    return fmt::format(
        "the deck has no keyword '{}'{}{}", Shorten(name), suggestion.empty() ? "" : "; ", suggestion);
}

void KeywordNames::Make(const DeckContents& deck)
{
    isMade_.Run([&] {
        decltype(byName_) byName;
        for (std::uint32_t i = 0; i < deck.keywords.size(); ++i)
            byName[deck.NameOf(deck.keywords[i])].push_back(i);
        byName_ = std::move(byName);
    });
}

} // namespace Veld::Quor::Core::Decks
