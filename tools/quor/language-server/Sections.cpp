#include "tools/quor/language-server/Sections.h"

#include "quor/syntax/IKeywordSyntax.h"

#include <algorithm>

namespace Veld::Quor::Tools::LanguageServer {

namespace Decks = Core::Decks;

namespace {

std::optional<SectionNode> NodeOf(const View& view, const Decks::DeckKeyword& keyword)
{
    const auto name = view.ToNow(keyword.GetNameRange());
    const auto whole = view.ToNowAround(keyword.GetRange());
    if (!name)
        return std::nullopt;
    SectionNode node{static_cast<std::uint32_t>(keyword.GetIndex()), *name, *name};
    if (whole && whole->length >= name->length && whole->offset <= name->offset)
        node.whole = *whole;
    node.isSection = keyword.GetSyntax().GetDeckRole() == Core::Keywords::KeywordDeckRole::Section;
    return node;
}

/// The first and the last date of the steps that the keyword leads to.
std::string DatesOf(const std::vector<Decks::ReportStep>& steps, std::uint32_t keyword)
{
    const auto [first, end] = std::equal_range(steps.begin(), steps.end(), Decks::ReportStep{{}, keyword, {}},
        [](const Decks::ReportStep& a, const Decks::ReportStep& b) { return a.keyword < b.keyword; });
    if (first == end)
        return {};
    const std::string from = Decks::DateText(first->time);
    const std::string to = Decks::DateText(std::prev(end)->time);
    return from == to ? from : from + " to " + to;
}

} // namespace

std::vector<SectionNode> SectionsOf(const View& view)
{
    std::vector<SectionNode> top;
    SectionNode* section = nullptr;
    std::vector<SectionNode>* list = &top; // where keywords go
    for (const std::uint32_t keyword : view.GetState().GetKeywordsIn(view.file)) {
        auto node = NodeOf(view, view.GetDeck()[keyword]);
        if (!node)
            continue;
        node->dates = DatesOf(view.GetDeck().GetSteps(), keyword);
        if (node->isSection) {
            section = &top.emplace_back(std::move(*node));
            list = &section->children;
        } else if (!node->dates.empty()) {
            auto& steps = section ? section->children : top;
            list = &steps.emplace_back(std::move(*node)).children;
        } else {
            list->push_back(std::move(*node));
        }
    }
    return top;
}

} // namespace Veld::Quor::Tools::LanguageServer
