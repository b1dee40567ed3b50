#pragma once

#include "quor/deck/Finding.h"
#include "tools/quor/commands/Command.h"
#include "tools/quor/findings/Baseline.h"
#include "tools/quor/findings/FindingFix.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// A deck that was checked.
struct CheckedDeck {
    std::string name; ///< as its findings name it
    Core::Decks::Findings findings;
    std::vector<Fix> fixes; ///< of each finding
    std::size_t keywords;
    std::size_t sections;
    std::size_t files;
    bool failsOnWarnings; ///< whether warnings are failures
};

/// What is kept of a deck, in plain data: all that the report on it needs.
struct DeckResult {
    std::string deck; ///< as its findings name it
    std::string failure = {}; ///< why it can't be checked: a whole sentence; empty if it was checked
    ExitStatus status = Success;
    nlohmann::ordered_json counts = {}; ///< of its findings; see `CountsJson`
    nlohmann::ordered_json part = {}; ///< of the report, in the format asked for
    nlohmann::ordered_json tally = {}; ///< for statistics
    Baseline::Counts known = {}; ///< for a new baseline
    std::string key = {}; ///< by which a run that is resumed finds it
};

} // namespace Veld::Quor::Tools
