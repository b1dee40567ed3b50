#pragma once

namespace Veld::Quor::Core::Decks {

class Deck;
class DeckKeyword;
struct DeckContents;

/// What the deck holds, for the library's own use. Throws `std::logic_error` if it was moved from.
const DeckContents& ContentsOf(const Deck& deck);

/// Throws `std::invalid_argument` if the keyword is another deck's.
void CheckIsOf(const Deck& deck, const DeckKeyword& keyword);

} // namespace Veld::Quor::Core::Decks
