#pragma once

#include "tools/quor/findings/FindingFormat.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// A log of one run. `codes`: its rules, among them the codes of all findings.
std::string SarifText(const FindingSets& sets, const std::vector<Core::Decks::CodeInfo>& codes);

} // namespace Veld::Quor::Tools
