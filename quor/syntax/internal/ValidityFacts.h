#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/internal/SimulatorEntry.h"

#include <optional>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// What the elements of a document say of where a keyword is valid, apart from their form; what is absent
/// restricts nothing.
struct ValidityFacts {
    using Entries = std::vector<SimulatorEntry>;

    struct Section {
        SectionType::Enum section;
        std::optional<Entries> simulators; ///< absent: all of the keyword
    };

    std::optional<Entries> simulators; ///< without those that ignore the keyword: a list may be empty
    std::optional<std::vector<SimulatorModeType::Enum>> modes;
    std::vector<Section> sections; ///< none: valid in all
};

} // namespace Veld::Quor::Core::Keywords
