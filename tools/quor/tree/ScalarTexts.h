#pragma once

#include "quor/foundation/UnitSystem.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "tools/quor/tree/ModeTable.h"

#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// What is said of a scalar, for people; each empty if there is nothing to say.
struct ScalarTexts {
    std::string measurement;
    std::string unit; ///< in the system that was asked for
    std::string defaultText; ///< of all simulators of the keyword alike, or of the keyword as a whole
    std::string otherDefaults; ///< of the simulators that differ
    std::string limits;
    std::vector<std::string> marks; ///< what its type brings with it
    std::string choices;
};

/// Of a scalar in a keyword that is valid in `keyword`. `units`: the system in which units are asked for.
ScalarTexts TextsOf(const Core::Keywords::IKeywordDataMD& scalar, const ModeTable& keyword,
    std::optional<Core::Keywords::UnitSystem::Enum> units);

} // namespace Veld::Quor::Tools
