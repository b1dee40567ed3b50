#include "quor/deck/DeckKeyword.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/KeywordUtils.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "tools/quor/language-server/Methods.h"
#include "tools/quor/language-server/Sections.h"

#include <string>
#include <utility>

namespace Veld::Quor::Tools::LanguageServer {

using namespace Core::Keywords;

namespace {

constexpr std::size_t mostSymbols = 5000; // beyond, keywords below sections and steps are left out
constexpr std::size_t mostDetails = 1000; // beyond, descriptions are

/// As the protocol numbers them.
enum class SymbolKind { Module = 2, Property = 7, ListOfValues = 18, Struct = 23, Event = 24 };

std::size_t CountNodes(const std::vector<SectionNode>& nodes)
{
    std::size_t count = nodes.size();
    for (const SectionNode& node : nodes)
        count += CountNodes(node.children);
    return count;
}

SymbolKind KindOf(const SectionNode& node, const IKeywordSyntax& syntax)
{
    if (node.isSection)
        return SymbolKind::Module;
    if (!node.dates.empty())
        return SymbolKind::Event;
    const IKeywordDataMD* const md = syntax.GetDataMD();
    if (!md)
        return SymbolKind::Property;
    const bool isList = md->GetType() == IKeywordDataMD::MDType::List;
    return isList && KeywordUtils::IsItemMDType(static_cast<const IKeywordListMD&>(*md).GetItemMD())
        ? SymbolKind::ListOfValues
        : SymbolKind::Struct;
}

Json SymbolsOf(const View& view, const std::vector<SectionNode>& nodes, bool withKeywords, bool withDetails)
{
    Json symbols = Json::array();
    for (const SectionNode& node : nodes) {
        if (!withKeywords && !node.isSection && node.dates.empty())
            continue;
        const Core::Decks::DeckKeyword keyword = view.GetDeck()[node.keyword];
        Json symbol = {
            {"name", node.dates.empty() ? keyword.GetName() : keyword.GetName() + ' ' + node.dates},
            {"kind", KindOf(node, keyword.GetSyntax())},
            {"range", ToJson(view.SpanOf({node.whole.offset, node.GetEnd() - node.whole.offset}))},
            {"selectionRange", ToJson(view.SpanOf(node.name))}};
        if (withDetails)
            symbol["detail"] = keyword.GetSyntax().GetDescription();
        if (!node.children.empty())
            symbol["children"] = SymbolsOf(view, node.children, withKeywords, withDetails);
        symbols.push_back(std::move(symbol));
    }
    return symbols;
}

void AddFold(Json& folds, const View& view, std::size_t begin, std::size_t end)
{
    const std::size_t first = view.document->GetLines().LineOf(begin);
    const std::size_t last = view.document->GetLines().LineOf(end > begin ? end - 1 : begin);
    if (last > first)
        folds.push_back({{"startLine", first}, {"endLine", last}});
}

void AddFolds(Json& folds, const View& view, const std::vector<SectionNode>& nodes, bool withKeywords)
{
    for (const SectionNode& node : nodes) {
        const bool isGroup = !node.children.empty();
        if (isGroup || withKeywords)
            AddFold(folds, view, node.whole.offset, isGroup ? node.GetEnd() : node.whole.GetEnd());
        AddFolds(folds, view, node.children, withKeywords);
    }
}

} // namespace

Json DocumentSymbols(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    if (!view.places)
        return Json::array();
    const std::vector<SectionNode> nodes = SectionsOf(view);
    const std::size_t count = CountNodes(nodes);
    return SymbolsOf(view, nodes, count <= mostSymbols, count <= mostDetails);
}

Json FoldingRanges(Session& session, const Json& params)
{
    const View view = session.ViewOf(UriIn(params));
    Json folds = Json::array();
    if (!view.places)
        return folds;
    const std::vector<SectionNode> nodes = SectionsOf(view);
    AddFolds(folds, view, nodes, CountNodes(nodes) <= mostSymbols);
    return folds;
}

} // namespace Veld::Quor::Tools::LanguageServer
