#pragma once

#include "quor/deck/internal/rules/RuleElement.h"
#include "quor/deck/internal/rules/RuleSet.h"

namespace Veld::Quor::Core::Decks {

/// Adds the rule that an element is to those that are there, by its tag. Throws `RuleFailure`.
void ReadRule(RuleElement& element, RuleSet& rules);

} // namespace Veld::Quor::Core::Decks
