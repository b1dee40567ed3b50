#pragma once

#include "quor/syntax/IKeywordSyntax.h"

#include <string>

namespace Veld::Quor::Tools::LanguageServer {

/// The lines of a keyword to be filled in: a comment with the names of the items, a record with a placeholder
/// for each item up to the last one without a default, the slashes. In the form of the protocol.
std::string SnippetOf(const Core::Keywords::IKeywordSyntax& syntax, const std::string& spelling);

} // namespace Veld::Quor::Tools::LanguageServer
