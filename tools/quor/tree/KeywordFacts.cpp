#include "tools/quor/tree/KeywordFacts.h"

#include "quor/syntax/ICellPropertyInfo.h"
#include "tools/quor/commands/SummaryFilter.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

const char* FindRoleText(KeywordDeckRole::Enum role)
{
    switch (role) {
    case KeywordDeckRole::End:
        return "ends the deck";
    case KeywordDeckRole::EndInclude:
        return "ends an included file";
    case KeywordDeckRole::Include:
        return "includes a file";
    case KeywordDeckRole::Skip:
        return "opens a skipped block";
    case KeywordDeckRole::EndSkip:
        return "closes a skipped block";
    case KeywordDeckRole::Section:
        return "opens a section";
    case KeywordDeckRole::Ordinary:
        break;
    }
    return nullptr;
}

std::set<std::string> PrecedentsOf(const IKeywordSyntax& syntax)
{
    if (!syntax.HasPrecedents())
        return {};
    return syntax.GetPrecedents(syntax.GetFirstValidSection());
}

std::vector<std::string> MarksOf(const IKeywordSyntax& syntax)
{
    std::vector<std::string> marks;
    if (syntax.IsWildcard())
        marks.push_back("wildcard");
    if (syntax.IsGeneric())
        marks.push_back("generic");
    if (syntax.IsHidden())
        marks.push_back("hidden");
    return marks;
}

std::string AliasList(const IKeywordSyntax& syntax)
{
    std::vector<std::string> texts;
    for (const std::string& alias : syntax.GetAliases())
        texts.push_back(syntax.IsHidden(alias) ? alias + " (hidden)" : alias);
    return fmt::format("{}", fmt::join(texts, ", "));
}

std::string ScopeText(const IKeywordSyntax& syntax)
{
    if (!syntax.HasScope())
        return "";
    std::vector<std::string> texts;
    for (const IKeywordSyntax* end : syntax.GetScopeKeywords())
        texts.push_back(end->GetName() + (end == syntax.GetScopeSyntax() ? " (explicit)" : ""));
    return texts.empty() ? "no known keyword ends it" : fmt::format("ends with {}", fmt::join(texts, " or "));
}

std::string SummaryText(const IKeywordSyntax& syntax)
{
    const ISummaryMnemonicInfo* const info = syntax.GetSummaryMnemonicInfo();
    if (!info)
        return "";
    std::vector<std::string> texts;
    for (const auto& [category, name] : CategoriesOf(*info))
        texts.push_back(fmt::format("{} {}", category, name));
    return texts.empty() ? "no category" : fmt::format("{}", fmt::join(texts, ", "));
}

std::string CellText(const IKeywordSyntax& syntax)
{
    const ICellPropertyInfo* const info = syntax.GetCellPropertyInfo();
    if (!info)
        return "";
    std::string text = info->GetPropertyName();
    if (info->HasComponents())
        text += ", for each component";
    if (info->CopyLayerAboveByDefault())
        text += ", copied from the layer above by default";
    if (info->DualPorosityMatrixOnly())
        text += ", in matrix cells only";
    return text;
}

} // namespace Veld::Quor::Tools
