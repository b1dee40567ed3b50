#pragma once

#include "quor/deck/Finding.h"

#include <optional>
#include <string>

namespace Veld::Quor::Core::Decks {

/// How the author of a rule has its findings reported; what is empty is as the code of the finding says.
struct FindingVoice {
    std::string code;
    std::optional<Severity> severity;
    std::string text; ///< in place of the message
};

} // namespace Veld::Quor::Core::Decks
