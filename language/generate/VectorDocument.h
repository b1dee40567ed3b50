#pragma once

#include "language/generate/Markup.h"
#include "language/generate/VectorTable.h"

#include <vector>

/// The document with the keywords of the vectors, in short form.
Document VectorDocument(const std::vector<Vector>& vectors);
