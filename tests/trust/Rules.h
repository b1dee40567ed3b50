#pragma once

#include "quor/deck/internal/rules/RuleElement.h"

#include <string>
#include <vector>

namespace Veld::Quor::Trust {

/// An element of a document of rules: see `docs/writing-rules.md`.
struct Rule : Core::Decks::RuleNode {
    /// Such as <define> and <refer>.
    std::vector<Rule> GetChildren() const;
    /// Empty if there is no such attribute.
    std::string Get(const std::string& attribute) const;
    /// Words separated by blanks.
    std::vector<std::string> GetWords(const std::string& attribute) const;
};

/// All rules of the library.
std::vector<Rule> ReadRules();

/// In the form of `Where`: what a rule, <define> or <refer> is about; such an item of its keywords; its
/// condition.
/// @{
std::string ItemsOf(const Rule& rule);
std::string WhereOf(const Rule& rule, const std::string& item);
std::string ConditionOf(const Rule& rule);
/// @}

} // namespace Veld::Quor::Trust
