#pragma once

#include "quor/deck/TextRange.h"
#include "quor/deck/internal/read/contents/DeckContents.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What a slot of a keyword's data is to hold.
struct NewWord {
    std::string text; ///< a word of a deck, or a line; empty: the default
    bool isLine = false;
};
/// By slot, as `DataPosition` counts them.
using NewWords = std::map<std::size_t, NewWord>;

/// Gives slots of a keyword other values, and touches no other value, comment or blank: where a repeat is
/// for several slots, it is split; where a slot is not given, what is before it is left to its defaults.
/// The keyword must have a range for each slot. Throws `EditError` if a slot has no place of its own in the
/// text.
std::vector<TextEdit> EditValues(
    const DeckContents& deck, const KeywordInstance& keyword, const NewWords& words);

} // namespace Veld::Quor::Core::Decks
