#pragma once

#include "quor/deck/DeckLanguage.h"
#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <vector>

namespace Veld::Quor::Core::Decks {

/// What the rules say of a keyword, in all sections where it is valid: each once.
std::vector<KeywordRule> DescribeRules(const RuleSet& rules, const Keywords::IKeywordSyntax& syntax);

} // namespace Veld::Quor::Core::Decks
