#pragma once

#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/findings/FindingFormat.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// What a command line says of a check of decks.
struct CheckOptions {
    std::vector<std::string> decks; ///< empty: those of the project
    DeckReadOptions read;
    std::string root; ///< the deck that the others are files of; empty: they are decks
    FindingFormat format = FindingFormat::Text;
    bool isAll = false; ///< each finding, not one for all that are alike
    bool isQuiet = false; ///< findings alone
    bool isFixing = false; ///< fixes what is certain, and reports the rest
    bool hasStatistics = false; ///< counts in place of findings
    std::size_t jobs = 1; ///< how many decks are checked at once, at most
    std::string resumeFile; ///< keeps the results of a run that is ended; empty: none
    std::string newBaseline; ///< a file; empty: none is written
};

} // namespace Veld::Quor::Tools
