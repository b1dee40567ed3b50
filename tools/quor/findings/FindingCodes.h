#pragma once

#include "quor/deck/CodeInfo.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// A code of findings, wherever they come from. Two subcommands may have codes of one name.
struct FindingCode {
    const char* command; ///< the subcommand that reports such findings
    const Core::Decks::CodeInfo* info;
    const char* seeAlso = ""; ///< what of the program helps to fix such findings; empty for most
};

/// Those of decks, then those of documents.
std::vector<FindingCode> AllFindingCodes();
/// Those of the name: none, or one for each subcommand that has it.
std::vector<FindingCode> FindFindingCodes(const std::string& name);
/// Each name once, sorted.
std::vector<std::string> FindingCodeNames();

} // namespace Veld::Quor::Tools
