#pragma once

#include "quor/deck/FindingCodes.h"
#include "quor/deck/Target.h"
#include "quor/deck/internal/text/Vocabulary.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"

#include <optional>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Why a keyword may not stand where it stands.
struct Objection {
    Code code;
    std::string message;
    std::string hint;
};

/// One objection at most, the gravest: the section before the simulator before the mode. Empty if the keyword
/// is fine. With `SectionType::None` the section doesn't matter.
std::optional<Objection> FindObjection(
    const Entry& entry, Core::Keywords::SectionType::Enum section, const Target& target);

bool IsValidInAllSections(const Entry& entry);

/// The section to which the keyword belongs; `SectionType::None` if there is none, or several.
Core::Keywords::SectionType::Enum FindOnlySection(const Entry& entry, const Target& target);

} // namespace Veld::Quor::Core::Decks
