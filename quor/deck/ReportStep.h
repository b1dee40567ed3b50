#pragma once

#include "quor/deck/TextRange.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/service/Time.h"

#include <cstdint>
#include <string>

namespace Veld::Quor::Core::Decks {

/// A report that the deck asks for. Its number, counted from 1, is its index among the steps of the deck
/// plus 1.
struct ReportStep {
    Service::Time time; ///< undefined as long as the deck gives no date
    std::uint32_t keyword; ///< index of the deck's keyword that leads to it; those of the step come after it
    TextRange range; ///< of the element that leads to it, or of the keyword if that isn't known
};

/// "2030-01-31", with the time of day if that isn't midnight; empty for an undefined time.
VELD_QUOR_EXPORT std::string DateText(const Service::Time& time);

} // namespace Veld::Quor::Core::Decks
