#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

/// What the library says of itself, by index: 0 "CompanyName", 1 "FileVersion", 2 "FileDescription",
/// 3 "ProductVersion", 4 "InternalName", 5 "LegalCopyright", 6 "OriginalFilename". An index out of range sets
/// both texts to empty ones, not to null. The texts are static.
VELD_QUOR_EXPORT void getLibProperty(int index, const char*& name, const char*& value);

/// How many properties there are: 7.
VELD_QUOR_EXPORT int getNumLibProperties();

} // namespace Veld::Quor::Core::Keywords
