#pragma once

#include "quor/deck/internal/rules/RuleElement.h"
#include "quor/deck/internal/rules/RuleSet.h"

#include <functional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Adds the rules of a document to those that are there. `onFailure` is called for what is no rule; the
/// others are read all the same.
void ReadRules(const RuleNode& root, const RuleOrigin& origin, RuleSet& rules,
    const std::function<void(const RuleFailure&)>& onFailure);

/// The documents of rules that the library carries, below one root.
const RuleNode& BuiltinRules();
/// These rules, and those of files, which are checked as what comes from a stranger.
/// Throws `RuleError`.
RuleSet ReadAllRules(Keywords::KeywordSyntaxTable& table, const std::vector<std::string>& files);

} // namespace Veld::Quor::Core::Decks
