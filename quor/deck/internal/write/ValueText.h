#pragma once

#include "quor/deck/internal/read/data/DataValue.h"
#include "quor/deck/internal/read/values/DataPlan.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Keywords {
class IKeywordNumericMD;
}

namespace Veld::Quor::Core::Decks {

/// The shortest text that reads back as the same number, or that of the item's format if it does so too.
std::string NumberToText(double value, const Core::Keywords::IKeywordNumericMD& md);
std::string NumberToText(int value, const Core::Keywords::IKeywordNumericMD& md);

/// A scalar as a word of a deck, of a choice its word; empty if it isn't given. A line stands for itself.
std::string WordOf(const Core::Keywords::IKeywordDataMD& md, const ScalarValue& value);
/// What of a number is before the decimal point, or the exponent.
std::size_t CountWhole(std::string_view number);
/// Whether a text that begins with no quote is read as the one word that it is.
bool IsWord(const std::string& text);
/// The text of a value with variables in it: a bare word where it may be, unless it is the value of a text.
std::string VariableText(const DataPlan& item, const std::string& text);

/// The text as a word of a deck, in quotes where it needs them, or always. Throws `std::invalid_argument` for
/// a text that no deck can hold: one of several lines, or with both kinds of quotes.
std::string Quote(const std::string& text, bool always = false);

} // namespace Veld::Quor::Core::Decks
