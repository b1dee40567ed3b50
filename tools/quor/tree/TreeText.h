#pragma once

#include "quor/syntax/IKeywordSyntax.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Tools {

/// The data of a keyword, for people; on lines of `width` characters.
std::string TreeText(const Core::Keywords::IKeywordSyntax& syntax, std::size_t width);

} // namespace Veld::Quor::Tools
