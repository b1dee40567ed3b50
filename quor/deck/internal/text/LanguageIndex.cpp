#include "quor/deck/internal/text/LanguageIndex.h"

#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/KeywordUtils.h"

#include <algorithm>
#include <utility>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

void AppendIntegers(const IKeywordDataMD* md, std::vector<const IKeywordIntegerMD*>& integers)
{
    if (KeywordUtils::GetMDType(md) != MDType::Record)
        return;
    const auto& record = static_cast<const IKeywordRecordMD&>(*md);
    for (int i = 0; i < record.GetSize(); ++i) {
        if (KeywordUtils::GetMDType(record.GetItemMD(i)) == MDType::Integer)
            integers.push_back(static_cast<const IKeywordIntegerMD*>(record.GetItemMD(i)));
    }
}

} // namespace

bool MayStayOpen(const IKeywordSyntax& opener)
{
    const auto& ends = opener.GetScopeKeywords();
    const auto isOwn = [&](const IKeywordSyntax* end) {
        return end == &opener || end == opener.GetScopeSyntax();
    };
    return std::find(ends.begin(), ends.end(), &opener) != ends.end()
        && std::all_of(ends.begin(), ends.end(), isOwn);
}

LanguageIndex::LanguageIndex(KeywordSyntaxTable& table, std::unique_ptr<const RuleSet> rules)
    : table_(table)
    , rules_(std::move(rules))
    , nearestNames_(table)
{
    KeywordSyntaxEnumerator enumerator = table.KeywordsEnumerator();
    while (enumerator.NextWithHidden()) {
        const IKeywordSyntax& syntax = *enumerator.Current()->second;
        const KeywordDeckRole::Enum role = syntax.GetDeckRole();
        if (role == KeywordDeckRole::Include || role == KeywordDeckRole::Section)
            structureNames_.push_back(*enumerator.Current()->first);
        if (syntax.HasScope() && syntax.GetScopeSyntax() && !MayStayOpen(syntax))
            scopeEnds_.insert(syntax.GetScopeSyntax());
        if (syntax.GetFirstValidSection() == SectionType::RUNSPEC)
            AppendIntegers(syntax.GetDataMD(), sizes_);
    }
    for (const RoleRule& rule : rules_->roles) {
        for (const std::string& keyword : rule.keywords) {
            if (!rule.item.empty())
                continue;
            for (const IKeywordSyntax* const syntax : table.LookupAll(keyword))
                roles_[syntax].Add(rule.role);
        }
    }
}

LanguageIndex::~LanguageIndex() = default;

const std::vector<std::string>& LanguageIndex::GetOwnCodes() const
{
    return rules_->ownCodes;
}

const std::string& LanguageIndex::FindNameOf(Role::Enum role) const
{
    static const std::string none;
    for (const RoleRule& rule : rules_->roles) {
        if (rule.role == role && rule.item.empty())
            return rule.keywords.front();
    }
    return none;
}

std::string LanguageIndex::FindName(std::string_view name) const
{
    std::string upper = ToUpper(name);
    const auto syntaxes = LookupAll(upper);
    return syntaxes.empty() || syntaxes.front()->IsWildcard() ? upper : syntaxes.front()->GetName();
}

} // namespace Veld::Quor::Core::Decks
