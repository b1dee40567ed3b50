#pragma once

#include "quor/deck/FindingCodes.h"
#include "tools/quor/findings/FindingFormat.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// A code of findings, wherever they come from. Two subcommands may have codes of one name.
struct FindingCode {
    const char* command; ///< the subcommand that tells such findings
    FindingRule rule;
    const Core::Decks::Remedy* remedy; ///< null for codes of documents
    const char* seeAlso = ""; ///< what of the program helps to fix such findings; empty for most
};

/// Those of decks, then those of documents.
std::vector<FindingCode> AllFindingCodes();
/// Each name once, sorted.
std::vector<std::string> FindingCodeNames();

} // namespace Veld::Quor::Tools
