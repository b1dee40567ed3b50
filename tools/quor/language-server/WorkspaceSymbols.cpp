#include "quor/deck/DeckKeyword.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/terminal/TextLayout.h"

#include <set>
#include <string>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

constexpr std::size_t mostFoundSymbols = 200;
constexpr int nameKind = 19; // as the protocol numbers them
constexpr int keywordKind = 23;

/// Collects what has the text of the query.
class FoundSymbols {
public:
    explicit FoundSymbols(const std::string& query)
        : query_(ToUpper(query))
    {
    }

    bool IsFull() const { return all_.size() >= mostFoundSymbols; }
    void Add(const Places& places, const std::string& name, int kind, const std::string& what,
        const Decks::TextRange& range)
    {
        if (IsFull() || ToUpper(name).find(query_) == std::string::npos)
            return;
        Json location = places.LocationOf(range);
        if (!location.is_null())
            all_.push_back(
                {{"name", name}, {"kind", kind}, {"containerName", what}, {"location", std::move(location)}});
    }
    Json Take() { return std::move(all_); }

private:
    std::string query_;
    Json all_ = Json::array();
};

} // namespace

/// The names that decks define, then keywords, of each name the first.
Json WorkspaceSymbols(Session& session, const Json& params)
{
    FoundSymbols found(MemberOf(params, "query").is_string() ? params.at("query").get<std::string>() : "");
    for (const auto& [root, places] : session.GetDecks()) {
        const NameIndex& names = places->GetState().GetNames();
        std::set<std::uint32_t> known;
        for (const NameUse& use : names.GetUses()) {
            const DeckName& name = names.GetNames()[use.name];
            if (use.isDefinition && known.insert(use.name).second)
                found.Add(*places, name.text, nameKind,
                    places->GetState().GetNameRules().GetKinds()[name.kind], use.range);
        }
    }
    for (const auto& [root, places] : session.GetDecks()) {
        std::set<std::string> known;
        const Decks::Deck& deck = places->GetState().GetDeck();
        for (std::size_t i = 0; i < deck.GetSize() && !found.IsFull(); ++i) {
            if (std::string name = deck[i].GetName(); known.insert(name).second)
                found.Add(*places, name, keywordKind, "keyword", deck[i].GetNameRange());
        }
    }
    return found.Take();
}

} // namespace Veld::Quor::Tools::LanguageServer
