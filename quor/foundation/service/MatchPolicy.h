#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Service {

/// The process-wide policy on choice words that match no choice even as an abbreviation: whether the choice
/// that they agree with furthest is taken. Off at the start. Safe from any thread.
/// @{
VELD_QUOR_EXPORT bool UseLaxMatch();
VELD_QUOR_EXPORT void SetUseLaxMatch(bool use);
/// @}

} // namespace Veld::Quor::Core::Service
