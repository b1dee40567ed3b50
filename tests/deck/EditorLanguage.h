#pragma once

#include "quor/deck/Deck.h"

#include <string>

namespace Veld::Quor::Tests {

/// A language with every kind of data that an editor meets. The process can have no other one.
const Core::Decks::DeckLanguage& GetEditorLanguage();

/// Reads the text of a deck after its first line, RUNSPEC; editable.
Core::Decks::Deck ReadEditable(const std::string& text);

} // namespace Veld::Quor::Tests
