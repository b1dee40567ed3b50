#pragma once

#include "language/generate/Markup.h"
#include "language/generate/UnitTables.h"

/// Fails for a quantity in or below `element` that is no measurement. `place` is that of what is around it.
void CheckQuantities(const Element& element, const Measurements& measurements, const Place& place = {});
