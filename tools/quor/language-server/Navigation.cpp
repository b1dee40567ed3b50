#include "tools/quor/language-server/Cursor.h"
#include "tools/quor/language-server/Inclusions.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/language-server/NamesAt.h"

#include <algorithm>
#include <set>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

/// Locations, each once.
class Locations {
public:
    explicit Locations(const Places& places)
        : places_(places)
    {
    }

    void Add(const Decks::TextRange& range)
    {
        Json location = places_.LocationOf(range);
        if (!location.is_null() && known_.insert(location.dump()).second)
            all_.push_back(std::move(location));
    }
    Json Take() { return std::move(all_); }
    bool IsEmpty() const { return all_.empty(); }

private:
    const Places& places_;
    std::set<std::string> known_;
    Json all_ = Json::array();
};

void AddKeywords(Locations& locations, const Decks::Deck& deck, const std::string& name)
{
    for (const Decks::DeckKeyword& keyword : deck.GetAll(name))
        locations.Add(keyword.GetNameRange());
}

/// Where the names are; if they are defined nowhere, and keywords have the name, as those of arrays do:
/// these.
void AddDefinitions(Locations& locations, const DeckState& state, const std::vector<std::uint32_t>& names)
{
    const NameIndex& index = state.GetNames();
    for (const std::uint32_t name : names) {
        for (const std::uint32_t use : index.GetNames()[name].uses) {
            if (index.GetUses()[use].isDefinition)
                locations.Add(index.GetUses()[use].range);
        }
    }
    for (const std::uint32_t name : names) {
        if (!index.GetNames()[name].isDefined)
            AddKeywords(locations, state.GetDeck(), index.GetNames()[name].text);
    }
}

void AddUses(Locations& locations, const NameIndex& index, const std::vector<std::uint32_t>& names,
    bool withDefinitions)
{
    for (const std::uint32_t name : names) {
        for (const std::uint32_t use : index.GetNames()[name].uses) {
            if (withDefinitions || !index.GetUses()[use].isDefinition)
                locations.Add(index.GetUses()[use].range);
        }
    }
}

} // namespace

Json Definition(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    if (!view.places)
        return {};
    const std::size_t offset = view.OffsetOf(PositionIn(params.at("position")));
    for (const InclusionAt& inclusion : InclusionsOf(view)) {
        if (inclusion.path.Touches(offset))
            return {{"uri", view.places->UriOf(inclusion.file)}, {"range", ToJson(Span())}};
    }
    Locations locations(*view.places);
    AddDefinitions(locations, view.GetState(), NamesAt(view, offset));
    return locations.Take();
}

/// Of a name; or of a keyword, those of its name and the names that are it, as those of arrays are.
Json References(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    if (!view.places)
        return {};
    const std::size_t offset = view.OffsetOf(PositionIn(params.at("position")));
    const bool withDefinitions = MemberAt(params, {"context", "includeDeclaration"}) != false;
    const NameIndex& index = view.GetState().GetNames();
    Locations locations(*view.places);
    const auto keyword = FindKeywordAt(view, offset);
    if (keyword && IsAtName(view, *keyword, offset)) {
        AddKeywords(locations, view.GetDeck(), keyword->GetName());
        for (std::size_t kind = 0; kind < view.GetState().GetNameRules().GetKinds().size(); ++kind) {
            const auto name = index.FindNumber(kind, keyword->GetName());
            if (name && keyword->GetSyntax().GetCellPropertyInfo())
                AddUses(locations, index, {*name}, true);
        }
        return locations.Take();
    }
    const auto names = NamesAt(view, offset);
    AddUses(locations, index, names, withDefinitions);
    return locations.Take();
}

/// Where the document has the name at the position.
Json Highlights(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    Json all = Json::array();
    if (!view.places)
        return all;
    const NameIndex& index = view.GetState().GetNames();
    for (const std::uint32_t name : NamesAt(view, view.OffsetOf(PositionIn(params.at("position"))))) {
        for (const std::uint32_t use : index.GetNames()[name].uses) {
            if (const auto now = view.ToNow(index.GetUses()[use].range))
                all.push_back({{"range", ToJson(view.SpanOf(*now))}});
        }
    }
    return all;
}

} // namespace Veld::Quor::Tools::LanguageServer
