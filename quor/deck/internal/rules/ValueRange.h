#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/contents/Dimensions.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A value of a keyword: an item of a record, or an element of a list of values.
struct ValuePosition {
    std::size_t element = 0; ///< of the keyword's list; 0 if its data are a record
    int item = -1; ///< of the record; -1: the element itself
    bool isFlat = true; ///< the values before it in its record are those of the record alone
    std::size_t slashes = 0; ///< that end what is before the record in the element
};

/// The word of the value in the text of the deck; the record or the keyword if it can't be found.
TextRange FindValue(const DeckContents& deck, const KeywordInstance& keyword, const ValuePosition& position);

/// The word that gives a scalar of an element of the keyword's outermost list: `slot` is its number among
/// those of the element, in the order of the text, from 0. The element if it can't be found.
TextRange FindSlot(
    const DeckContents& deck, const KeywordInstance& keyword, std::size_t element, std::size_t slot);

/// Where the deck gives the size; empty if it is a default.
std::vector<FindingReporter::Related> FindSize(
    const DeckContents& deck, const Dimensions& dimensions, const std::string& size);
/// Where a keyword is.
std::vector<FindingReporter::Related> Related(const KeywordInstance& keyword, const std::string& what);

} // namespace Veld::Quor::Core::Decks
