#pragma once

#include "quor/foundation/Export.h"

#include <string>

/// Numbers of a syntax document. A text that is no number, or continues after one, is not reported: it has
/// the value that the C functions return. The locale has no effect.
namespace Veld::Quor::Core::Keywords {

template <class T>
struct ParsedNumber {
    T value;
    bool isWhole; ///< nothing is left after the number; true for an empty text, which counts as 0
};

/// As `strtod`: the longest number at the start, else 0.
VELD_QUOR_EXPORT ParsedNumber<double> ParseRealAtStart(const std::string& text);
/// As `atoi`: the digits at the start, else 0; cut to 32 bits.
VELD_QUOR_EXPORT ParsedNumber<int> ParseIntegerAtStart(const std::string& text);

/// The same without a look at the rest.
double ParseReal(const std::string& text);
int ParseInteger(const std::string& text);

} // namespace Veld::Quor::Core::Keywords
