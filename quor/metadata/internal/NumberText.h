#pragma once

#include <string>

/// Numbers of a syntax document. A text that is no number, or goes on behind one, is not reported: it gives
/// what the C functions give. The locale plays no part.
namespace Veld::Quor::Core::Keywords {

/// As `strtod`: the longest number at the start, else 0.
double ParseReal(const std::string& text);
/// As `atoi`: the digits at the start, else 0; cut to 32 bits.
int ParseInteger(const std::string& text);
/// The same, and whether nothing is left behind the number. An empty text counts as 0.
bool ParseWholeInteger(const std::string& text, int& value);

} // namespace Veld::Quor::Core::Keywords
