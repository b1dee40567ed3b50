#pragma once

#include "language/generate/VectorTable.h"

#include <string>
#include <vector>

/// The syntax document with the keywords of the vectors, laid out like those that are written by hand.
std::string VectorDocument(const std::vector<Vector>& vectors);
