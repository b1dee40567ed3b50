#include "quor/deck/DeckLanguage.h"

#include "quor/deck/internal/rules/RuleNames.h"
#include "quor/deck/internal/rules/RuleReader.h"
#include "quor/deck/internal/text/LanguageIndex.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/syntax/KeywordSyntaxTable.h"

#include <utility>

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
    RuleSet rules = BuiltinRules();
    for (const std::string& path : ruleFiles) {
        RuleSet more;
        ReadRuleFile(path, more);
        CheckNames(more, table, path);
        Append(std::move(more), rules);
    }
    index_ = std::make_unique<LanguageIndex>(table, std::move(rules));
}

DeckLanguage::~DeckLanguage() = default;

std::vector<std::string> DeckLanguage::FindNearest(
    const std::string& name, Keywords::SectionType::Enum section) const
{
    return index_->GetNearestNames().Find(ToUpper(name), section);
}

} // namespace Veld::Quor::Core::Decks
