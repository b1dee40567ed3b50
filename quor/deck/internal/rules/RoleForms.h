#pragma once

#include "quor/deck/internal/rules/RuleElement.h"
#include "quor/deck/internal/rules/RuleSet.h"

namespace Veld::Quor::Core::Decks {

// The elements of the rules that are about physics.

void ReadRole(RuleElement& element, RuleSet& rules);
void ReadPlausible(RuleElement& element, RuleSet& rules);

} // namespace Veld::Quor::Core::Decks
