#pragma once

#include "quor/deck/internal/edit/AddressMatcher.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Why nothing matches the address: the part that the deck doesn't have, and what it has instead.
std::string ExplainNoMatch(const DeckContents& deck, const ValueAddress& address);
/// What to add to an address that several values match.
std::string ExplainMatches(
    const DeckContents& deck, const ValueAddress& address, const std::vector<ValueMatch>& matches);

/// Why the keyword's record has no single value that goes by the item.
std::string ExplainNoItem(
    const DeckKeyword& keyword, std::size_t record, const Core::Keywords::ItemKey& item);

} // namespace Veld::Quor::Core::Decks
