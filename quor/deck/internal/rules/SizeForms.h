#pragma once

#include "quor/deck/internal/rules/RuleElement.h"
#include "quor/deck/internal/rules/RuleSet.h"

namespace Veld::Quor::Core::Decks {

/// The element of a size that a keyword chooses.
void ReadSize(RuleElement& element, RuleSet& rules);

} // namespace Veld::Quor::Core::Decks
