#include "quor/deck/DeckLanguage.h"

#include "quor/deck/internal/rules/RuleReader.h"
#include "quor/deck/internal/text/LanguageIndex.h"
#include "quor/deck/internal/text/LineText.h"
#include "quor/syntax/KeywordSyntaxTable.h"

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
    : index_(std::make_unique<LanguageIndex>(table, BuiltinRules()))
{
}

DeckLanguage::~DeckLanguage() = default;

std::vector<std::string> DeckLanguage::FindNearest(
    const std::string& name, Keywords::SectionType::Enum section) const
{
    return index_->GetNearestNames().Find(ToUpper(name), section);
}

} // namespace Veld::Quor::Core::Decks
