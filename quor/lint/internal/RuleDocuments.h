#pragma once

#include "quor/lint/internal/Reporter.h"

namespace Veld::Quor::Core::Lint {

/// Whether the root is that of a document of rules.
bool IsOfRules(const Element& root);
/// Reports each element of a document of rules that is no rule. The language is the table of the process.
void CheckRuleDocument(const Element& root, const Reporter& reporter);

} // namespace Veld::Quor::Core::Lint
