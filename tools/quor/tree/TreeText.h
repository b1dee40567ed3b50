#pragma once

#include "tools/quor/tree/KeywordTree.h"

#include <cstddef>
#include <string>

namespace Veld::Quor::Tools {

/// What a keyword carries, for people; on lines of `width` characters.
std::string TreeText(const KeywordTree& tree, std::size_t width);

} // namespace Veld::Quor::Tools
