#pragma once

#include "quor/deck/TextRange.h"

#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools {

/// The changes of one file as `patch` and `git apply` take them, with three lines of context. Empty if
/// nothing changes. `edits` are all of the file `name`, whose text is `before`.
std::string UnifiedDiff(
    const std::string& name, std::string_view before, const std::vector<Core::Decks::TextEdit>& edits);

} // namespace Veld::Quor::Tools
