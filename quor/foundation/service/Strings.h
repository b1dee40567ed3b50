#pragma once

#include "quor/foundation/Export.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Service {

/// @file
/// All of these work on ASCII: a blank is a space, tab, line end, vertical tab or form feed, letters are A to
/// Z, and other bytes stay as they are, whatever the locale.

/// True if there is nothing but blanks (space, tab, line end, vertical tab, form feed); so for an empty text.
VELD_QUOR_EXPORT bool AllBlanks(const std::string& text);
/// Equal but for the case of the letters A to Z.
VELD_QUOR_EXPORT bool NoCaseStringEqual(const std::string& a, const std::string& b);
/// Removes the blanks at the named ends, in place.
VELD_QUOR_EXPORT void StringTrimBlank(std::string& text, bool left, bool right);
/// The letters a to z alone, in place.
VELD_QUOR_EXPORT void StringToUpper(std::string& text);
/// Replaces `parts` by what is between the characters of `separators`. Empty parts are kept only with
/// `keepEmpty`.
VELD_QUOR_EXPORT void StringSplit(
    const std::string& text, std::vector<std::string>& parts, const std::string& separators, bool keepEmpty);

} // namespace Veld::Quor::Core::Service
