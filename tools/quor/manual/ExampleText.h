#pragma once

#include "quor/syntax/IKeywordSyntax.h"

#include <string>

namespace Veld::Quor::Tools {

/// The keyword as a deck has it, with values that its metadata allow: defaults where there are some, and the
/// names of items for texts. The name alone for one without data, or whose data no example can show.
std::string KeywordExample(const Core::Keywords::IKeywordSyntax& syntax);

} // namespace Veld::Quor::Tools
