#pragma once

#include "tests/trust/Mistake.h"
#include "tests/trust/Rules.h"

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

/// The name or number of something that the deck doesn't have.
std::string Undefined(const SampleDeck& deck, const Value& value, Random& random);
/// The same for the only definition of something that others refer to; removes its record.
/// @{
Rewrite UndefinedName(const std::string& definitions, const std::string& references);
MakeMistake RemoveDefinition(const std::string& definitions, const std::string& references);
/// @}
/// Removes what a rule says that a record requires.
MakeMistake RemoveRequired(const Rule& rule);
/// The record of a value once more, with another text for one of its items.
MakeMistake RepeatRecord(const std::string& where, const Rewrite& rewrite);
/// A keyword once more, after itself.
MakeMistake RepeatKeyword(const std::string& where, const std::string& part, const std::string& replacement);

/// This text.
Rewrite Constant(const std::string& text);
/// The number times this; not for 0.
Rewrite Times(double factor);
/// The text with these around it.
Rewrite Around(const std::string& before, const std::string& after);
/// Only in a deck with the keyword.
Rewrite IfThere(const std::string& keyword, const Rewrite& rewrite);
/// The text with a part replaced that is not at its start.
Rewrite Within(const std::string& part, const std::string& replacement);

} // namespace Veld::Quor::Trust
