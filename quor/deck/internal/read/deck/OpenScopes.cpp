#include "quor/deck/internal/read/deck/OpenScopes.h"

#include "quor/deck/internal/rules/RuleSet.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

void OpenScopes::Follow(bool mayMissKeywords)
{
    const KeywordInstance& keyword = deck_.keywords.back();
    if (IsEndedBy(keyword)) {
        const IKeywordSyntax* const end = OpenerOfInnermost().syntax->GetScopeSyntax();
        if (keyword.syntax->HasScope() && keyword.syntax->GetScopeSyntax() == end)
            RemarkOpen();
        Leave();
    } else if (language_.EndsScopes(*keyword.syntax) && !mayMissKeywords)
        reporter_.Report(keyword.name, Code::StrayEnd,
            fmt::format("{} has no matching opening keyword", keyword.syntax->GetName()));
    if (!keyword.syntax->HasScope())
        return;
    deck_.scopes.push_back({static_cast<std::uint32_t>(deck_.keywords.size() - 1), innermost_});
    innermost_ = static_cast<std::uint32_t>(deck_.scopes.size() - 1);
    dimensions_.Enter();
    if (!keyword.data)
        return;
    const std::string& name = keyword.syntax->GetName();
    dimensions_.Add(name, *keyword.data, deck_.scopes.back().opener);
    const std::vector<std::string>& grids = language_.GetRules().localGrids;
    if (std::find(grids.begin(), grids.end(), name) != grids.end())
        dimensions_.NameGrid(*keyword.data);
}

void OpenScopes::CloseAll(bool isSure)
{
    for (; innermost_ != noIndex; Leave()) {
        const KeywordInstance& opener = OpenerOfInnermost();
        const IKeywordSyntax* const end = opener.syntax->GetScopeSyntax();
        if (MayStayOpen(*opener.syntax))
            RemarkOpen();
        else if (end && isSure)
            reporter_.Report(opener.name, Code::UnclosedScope,
                fmt::format("unclosed {}; expected {}", opener.syntax->GetName(), end->GetName()),
                fmt::format("add {} before the end of the section", end->GetName()));
    }
}

/// The innermost scope ends without the keyword that is there to end it, as it may.
void OpenScopes::RemarkOpen()
{
    const KeywordInstance& opener = OpenerOfInnermost();
    if (const IKeywordSyntax* const end = opener.syntax->GetScopeSyntax())
        reporter_.Report(opener.name, Code::ImplicitEnd,
            fmt::format("{} is not closed by {}", opener.syntax->GetName(), end->GetName()),
            fmt::format("add {}", end->GetName()));
}

bool OpenScopes::IsEndedBy(const KeywordInstance& keyword) const
{
    if (innermost_ == noIndex)
        return false;
    const auto& ends = OpenerOfInnermost().syntax->GetScopeKeywords();
    return std::find(ends.begin(), ends.end(), keyword.syntax) != ends.end();
}

void OpenScopes::Leave()
{
    innermost_ = deck_.scopes[innermost_].around;
    dimensions_.Leave();
}

} // namespace Veld::Quor::Core::Decks
