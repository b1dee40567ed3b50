#pragma once

#include "tests/trust/Mistake.h"

#include <functional>
#include <string>
#include <vector>

namespace Veld::Quor::Trust {

/// Another text for the word of a value; empty: this value has none that is a mistake.
using Rewrite = std::function<std::string(const SampleDeck& deck, const Value& value, Random& random)>;

/// Rewrites one of the values that `where` describes. `places`, where a finding is right too: "record", from
/// the value to the end of its record; "keyword", all of it; "uses", where the word was; else names of
/// keywords.
MakeMistake OnValue(const std::string& where, Rewrite rewrite, const std::string& places = "");
std::vector<Core::Decks::TextRange> PlacesOf(
    const SampleDeck& deck, const Value& value, const std::string& places);

/// This text.
Rewrite Constant(const std::string& text);
/// The number times this; not for 0.
Rewrite Times(double factor);
/// The text with these around it.
Rewrite Around(const std::string& before, const std::string& after);
/// The text with a part replaced that is not at its start.
Rewrite Within(const std::string& part, const std::string& replacement);

} // namespace Veld::Quor::Trust
