#pragma once

#include "quor/syntax/IKeywordSyntax.h"
#include "quor/syntax/KeywordDeckRole.h"

#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

// What is said of a keyword beside its data and where it is valid, for people; each text empty if there is
// nothing to say.

/// Null for an ordinary keyword.
const char* FindRoleText(Core::Keywords::KeywordDeckRole::Enum role);
/// The names of the keywords that come before it.
std::set<std::string> PrecedentsOf(const Core::Keywords::IKeywordSyntax& syntax);
/// "wildcard", "generic", "hidden"
std::vector<std::string> MarksOf(const Core::Keywords::IKeywordSyntax& syntax);
std::string AliasList(const Core::Keywords::IKeywordSyntax& syntax);
/// Which keywords end what it opens.
std::string ScopeText(const Core::Keywords::IKeywordSyntax& syntax);
/// The categories of an output vector.
std::string SummaryText(const Core::Keywords::IKeywordSyntax& syntax);
/// Which cell property it gives.
std::string CellText(const Core::Keywords::IKeywordSyntax& syntax);

} // namespace Veld::Quor::Tools
