#pragma once

#include "quor/deck/internal/physics/PhysicsFacts.h"

namespace Veld::Quor::Core::Decks {

/// Reports the first fractions of a keyword that are not the whole of a fluid.
void CheckFractionSums(const PhysicsFacts& facts, const KeywordInstance& keyword, const RecordRoles& roles);

} // namespace Veld::Quor::Core::Decks
