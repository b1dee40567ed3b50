#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// A character that looks like one of the deck's, and is read as a letter.
struct OddCharacter {
    std::string_view text; ///< its bytes
    const char* name; ///< for messages
    const char* instead; ///< what to write, for hints
    std::string replacement; ///< the same, for the deck
};

/// The first curly quote, long dash or hard space of a text in UTF-8.
std::optional<OddCharacter> FindOddCharacter(std::string_view text);

} // namespace Veld::Quor::Core::Decks
