#pragma once

#include "quor/deck/FindingCodes.h"
#include "quor/deck/Target.h"
#include "quor/deck/internal/text/Vocabulary.h"
#include "quor/foundation/SectionType.h"

#include <optional>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Why a keyword isn't valid where it is.
struct Objection {
    Code code;
    std::string message;
    std::string hint;
};

/// One objection at most, the gravest: the section before the simulator before the mode. Empty if the keyword
/// is fine. With `SectionType::None` the section doesn't matter. `target` is the one that the entry was made
/// for.
std::optional<Objection> FindObjection(
    const Entry& entry, Core::Keywords::SectionType::Enum section, const Target& target);

} // namespace Veld::Quor::Core::Decks
