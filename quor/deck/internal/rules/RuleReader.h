#pragma once

#include "quor/deck/internal/rules/RuleSet.h"
#include "quor/foundation/service/xml/DomForward.h"

#include <string>

namespace Veld::Quor::Core::Decks {

/// Adds the rules of a document to those that are there; `name` is for messages. Throws `RuleError` for what
/// is no rule.
void ReadRules(const xercesc::DOMElement& root, const std::string& name, RuleSet& rules);

/// The same for a file, which is checked as one that comes from a stranger.
void ReadRuleFile(const std::string& path, RuleSet& rules);

/// Adds rules to others.
void Append(RuleSet more, RuleSet& rules);

/// The built-in rules.
const RuleSet& BuiltinRules();

} // namespace Veld::Quor::Core::Decks
