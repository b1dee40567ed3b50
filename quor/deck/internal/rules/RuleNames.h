#pragma once

#include "quor/deck/internal/rules/RuleSet.h"

#include <string>

namespace Veld::Quor::Core::Keywords {
class KeywordSyntaxTable;
}

namespace Veld::Quor::Core::Decks {

/// Throws `RuleError` if the rules name a keyword or an item that the table does not have: they would never
/// report anything. `document`: for the message.
void CheckNames(const RuleSet& rules, Keywords::KeywordSyntaxTable& table, const std::string& document);

} // namespace Veld::Quor::Core::Decks
