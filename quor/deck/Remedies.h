#pragma once

#include "quor/deck/FindingCodes.h"
#include "quor/deck/Target.h"
#include "quor/foundation/Export.h"

#include <vector>

namespace Veld::Quor::Core::Decks {

/// What to do about the findings of a code.
struct Remedy {
    Code code;
    const char* text; ///< one or two sentences
    const char* wrong; ///< a deck that has such a finding and no other; empty if one file can't show it
    const char* right; ///< the same, fixed
    Target target = {}; ///< for which the decks are
};

/// One row for each code, in the order of the codes.
VELD_QUOR_EXPORT const std::vector<Remedy>& Remedies();
VELD_QUOR_EXPORT const Remedy& RemedyOf(Code code);

} // namespace Veld::Quor::Core::Decks
