#include "quor/deck/DeckLanguage.h"

#include "quor/deck/internal/rules/RuleReader.h"
#include "quor/deck/internal/rules/RuleTexts.h"
#include "quor/deck/internal/text/LanguageIndex.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <algorithm>
#include <cstddef>

namespace Veld::Quor::Core::Decks {

RuleError::RuleError(const std::string& message)
    : Exception(message)
{
}

RuleError::~RuleError() = default;

DeckLanguage::DeckLanguage()
    : DeckLanguage(Keywords::KeywordSyntaxTable::Instance())
{
}

DeckLanguage::DeckLanguage(Keywords::KeywordSyntaxTable& table)
    : DeckLanguage(table, {})
{
}

DeckLanguage::DeckLanguage(Keywords::KeywordSyntaxTable& table, const std::vector<std::string>& ruleFiles)
{
    index_ = std::make_unique<LanguageIndex>(
        table, std::make_unique<const RuleSet>(ReadAllRules(table, ruleFiles)));
}

DeckLanguage::~DeckLanguage() = default;

std::vector<std::string> DeckLanguage::FindNearest(
    const std::string& name, Keywords::SectionType::Enum section) const
{
    return index_->GetNearestNames().Find(ToUpper(name), section);
}

std::vector<KeywordRule> DeckLanguage::GetRules(const Keywords::IKeywordSyntax& syntax) const
{
    return DescribeRules(index_->GetRules(), syntax);
}

std::vector<KeywordRole> DeckLanguage::GetRoles(const Keywords::IKeywordSyntax& syntax) const
{
    std::vector<KeywordRole> roles;
    for (const RoleRule& rule : index_->GetRules().roles) {
        if (std::find(rule.keywords.begin(), rule.keywords.end(), syntax.GetName()) != rule.keywords.end())
            roles.push_back({Role::EnumInfos()[static_cast<std::size_t>(rule.role)].text, rule.item});
    }
    return roles;
}

std::vector<std::string> DeckLanguage::GetNameKinds() const
{
    std::vector<std::string> kinds;
    for (const NameRule& rule : index_->GetRules().names)
        kinds.push_back(rule.noun);
    return kinds;
}

std::vector<std::string> DeckLanguage::GetOwnCodes() const
{
    return index_->GetOwnCodes();
}

} // namespace Veld::Quor::Core::Decks
