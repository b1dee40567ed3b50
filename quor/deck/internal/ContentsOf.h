#pragma once

namespace Veld::Quor::Core::Decks {

class Deck;
struct DeckContents;

/// What the deck holds, for the library's own use.
const DeckContents& ContentsOf(const Deck& deck);

} // namespace Veld::Quor::Core::Decks
