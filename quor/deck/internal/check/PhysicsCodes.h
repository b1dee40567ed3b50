#pragma once

#include "quor/deck/CodeInfo.h"

#include <vector>

namespace Veld::Quor::Core::Decks {

/// What the codes of the checks of physics mean, in their order: they are the last ones.
std::vector<CodeInfo> PhysicsCodes();

} // namespace Veld::Quor::Core::Decks
