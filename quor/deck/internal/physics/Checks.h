#pragma once

#include "quor/deck/internal/physics/PhysicsFacts.h"

namespace Veld::Quor::Core::Decks {

// One check each, in a file of its name. They are asked at the end of each section, and report what is wrong
// with its tables.

void CheckSaturationEnds(const PhysicsFacts& facts);
void CheckSaturationPairs(const PhysicsFacts& facts);
void CheckCapillaryOrder(const PhysicsFacts& facts);
void CheckContactOrder(const PhysicsFacts& facts);
void CheckFluidTrends(const PhysicsFacts& facts);
void CheckTotalCompressibility(const PhysicsFacts& facts);
void CheckCellJumps(const PhysicsFacts& facts);
void CheckCornerDepths(const PhysicsFacts& facts);
void CheckDatumPressure(PhysicsFacts& facts);

} // namespace Veld::Quor::Core::Decks
