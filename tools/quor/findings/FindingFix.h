#pragma once

#include "quor/deck/TextRange.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {
class DeckFiles;
class Findings;
} // namespace Veld::Quor::Core::Decks

namespace Veld::Quor::Tools {

/// A change that a fix makes, in words that need no deck.
struct FixPart {
    /// Counted from 1, columns in characters.
    struct Position {
        std::size_t line;
        std::size_t column;
    };
    Core::Decks::Location location; ///< where the bytes that go begin
    std::size_t length; ///< of them
    Position begin; ///< the same bytes
    Position end;
    std::string text; ///< comes in their place
};

/// Of one finding; empty without a fix.
using Fix = std::vector<FixPart>;

/// Of each finding that is kept; `files`: those of the deck.
std::vector<Fix> FixesOf(const Core::Decks::Findings& findings, const Core::Decks::DeckFiles& files);

} // namespace Veld::Quor::Tools
