#pragma once

#include "tools/quor/tree/ModeTable.h"

#include <string>

namespace Veld::Quor::Tools {

// `keyword` is where the keyword is valid: what is outside is not shown.

/// Where a part of a keyword is valid: "only for Sedge" or "not for Carrow"; empty if it is wherever the
/// keyword is.
std::string ValidText(const ModeTable& table, const ModeTable& keyword);

/// The same, and who doesn't act on it.
std::string RestrictionsText(const ModeTable& valid, const ModeTable& unsupported, const ModeTable& keyword);

} // namespace Veld::Quor::Tools
