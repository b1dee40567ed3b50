#include "quor/data/Access.h"
#include "quor/deck/ValueAddress.h"
#include "quor/deck/WrittenWords.h"
#include "quor/metadata/IKeywordListMD.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/language-server/Cursor.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;
using namespace Core::Keywords;

namespace {

constexpr std::size_t mostLenses = 5000;

/// The data as a list of records; null for other data.
const IKeywordListData* FindRecords(const Decks::DeckKeyword& keyword)
{
    const IKeywordData* const data = keyword.FindData();
    if (!data || data->GetMD()->GetType() != IKeywordDataMD::MDType::List)
        return nullptr;
    const IKeywordListData& list = AsList(*data);
    const auto* const item = AsList(*data->GetMD()).GetItemMD();
    return item && item->GetType() == IKeywordDataMD::MDType::Record ? &list : nullptr;
}

/// What identifies each record: the words of its identifiers, and a number for those that come again.
std::vector<std::string> IdentitiesOf(const Decks::Deck& deck, const Decks::DeckKeyword& keyword)
{
    const auto* const ranges = FindValueRanges(deck, keyword);
    std::vector<std::string> identities(static_cast<std::size_t>(FindRecords(keyword)->GetSize()));
    if (!ranges)
        return identities;
    ForEachScalar(*keyword.FindData(), false, [&](const ScalarPlace& place) {
        const Decks::TextRange& range = (*ranges)[place.slot];
        if (!place.record || !place.record->IsIdentifier(place.item) || range.length == 0)
            return;
        const auto words = Decks::FindWords(deck.GetFiles().GetText(range));
        if (!words.empty())
            identities[place.element] += ToUpper(std::string(words.front().text)) + ' ';
    });
    std::map<std::string, int> counts;
    for (std::string& identity : identities)
        identity += fmt::format("{}", counts[identity]++);
    return identities;
}

std::optional<Decks::DeckKeyword> FindBefore(const Decks::Deck& deck, const Decks::DeckKeyword& keyword)
{
    std::optional<Decks::DeckKeyword> before;
    for (const Decks::DeckKeyword& other : deck.GetAll(keyword.GetName())) {
        if (other.GetIndex() >= keyword.GetIndex())
            break;
        before = other;
    }
    return before && FindRecords(*before) ? before : std::nullopt;
}

/// What is otherwise than in the last keyword of its name; empty if there is none, or it can't be compared.
std::string ChangesText(const Decks::Deck& deck, const Decks::DeckKeyword& keyword)
{
    const auto before = FindBefore(deck, keyword);
    if (!before || !keyword.GetSyntax().HasIdentifiers() || !FindValueRanges(deck, *before))
        return {};
    std::map<std::string, const IKeywordData*> earlier;
    const auto names = IdentitiesOf(deck, *before);
    for (std::size_t i = 0; i < names.size(); ++i)
        earlier[names[i]] = &RecordAt(*FindRecords(*before), i);
    std::size_t changed = 0;
    std::size_t added = 0;
    const auto now = IdentitiesOf(deck, keyword);
    for (std::size_t i = 0; i < now.size(); ++i) {
        const auto same = earlier.find(now[i]);
        if (same == earlier.end())
            ++added;
        else if (!(*same->second == RecordAt(*FindRecords(keyword), i)))
            ++changed;
    }
    const std::string date = Decks::DateText(before->GetTime());
    return fmt::format("; against {}: {} changed, {} added",
        date.empty() ? "line " + fmt::format("{}", before->GetLocation().line) : date, changed, added);
}

} // namespace

/// One for each keyword with records; what it says is worked out when it is shown.
Json CodeLenses(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    Json lenses = Json::array();
    if (!view.places)
        return lenses;
    for (const std::uint32_t index : view.GetState().GetKeywordsIn(view.file)) {
        const Decks::DeckKeyword keyword = view.GetDeck()[index];
        const auto name = FindRecords(keyword) ? view.ToNow(keyword.GetNameRange()) : std::nullopt;
        if (name && lenses.size() < mostLenses)
            lenses.push_back({{"range", ToJson(view.SpanOf(*name))},
                {"data", {{"uri", view.document->GetUri()}, {"offset", name->offset}}}});
    }
    return lenses;
}

Json ResolveCodeLens(Session& session, const Json& params)
{
    Json lens = params;
    const Json& data = params.at("data");
    const View view = session.ViewOf(data.at("uri").get<std::string>());
    const auto keyword =
        view.places ? FindKeywordAt(view, data.at("offset").get<std::size_t>()) : std::nullopt;
    std::string title = "no records";
    if (keyword && FindRecords(*keyword))
        title = Plural(static_cast<std::size_t>(FindRecords(*keyword)->GetSize()), "record")
            + ChangesText(view.GetDeck(), *keyword);
    lens["command"] = {{"title", title}, {"command", ""}};
    return lens;
}

} // namespace Veld::Quor::Tools::LanguageServer
