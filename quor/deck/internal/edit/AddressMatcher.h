#pragma once

#include "quor/deck/ValueAddress.h"
#include "quor/deck/internal/read/contents/DeckContents.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A value that an address matches.
struct ValueMatch {
    std::uint32_t keyword; ///< index among those of the deck
    ValuePath path;
};

/// All of them, in the order of the deck, whatever the number of the address.
std::vector<ValueMatch> FindMatches(const DeckContents& deck, const ValueAddress& address);

/// The address of a value without its number.
ValueAddress MakeAddress(const DeckContents& deck, const ValueMatch& match);
/// Equal for values whose addresses without dates match one another: that address with the texts in upper
/// case whose case doesn't matter.
std::string MakeAddressKey(const DeckContents& deck, const ValueMatch& match);

/// The item as addresses name it: its name, or its number if it has none or another item has it too.
std::string ItemText(const Core::Keywords::IKeywordData& record, std::size_t item);

} // namespace Veld::Quor::Core::Decks
