#pragma once

#include "tools/quor/findings/FindingFormat.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// The results of a log: the findings of a deck or of documents.
nlohmann::ordered_json SarifResults(const FindingSet& set);

/// The log of one run. `codes`: its rules; a code of a result that is not among them becomes one. `failures`:
/// why something could not be checked.
std::string SarifLog(nlohmann::ordered_json results, const std::vector<Core::Decks::CodeInfo>& codes,
    const std::vector<std::string>& failures);

} // namespace Veld::Quor::Tools
