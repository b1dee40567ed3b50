#pragma once

#include "language/generate/TableLine.h"

#include <map>
#include <string>

/// A unit in SI: value in SI = value * factor + offset.
struct SiUnit {
    long double factor = 1; ///< of more digits than a double, so that rounding in products isn't seen
    long double offset = 0;
    std::map<std::string, int> powers; ///< of the units of SI, without those of power 0
};

using SiUnits = std::map<std::string, SiUnit>;

/// Reads a product of known units, such as cP.rm3/day/bar or psi/(rft3/day)2. Fails for an unknown unit, for
/// what is no product, and for one with a unit that has an offset.
SiUnit ReadUnit(const Word& word, const SiUnits& known);
