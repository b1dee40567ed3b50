#pragma once

#include "quor/deck/DeckEditor.h"
#include "quor/deck/TextRange.h"
#include "quor/deck/ValueAddress.h"
#include "quor/foundation/UnitSystem.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// The word that leaves a value to its default.
constexpr const char* defaultWord = "1*";

/// The value as a word of a deck: "1*" if it isn't given, "$NAME" if a variable without a value gives it, and
/// a name if that is of a quantity of the user. One that is invalid as it is written.
std::string WordOf(const Core::Decks::Deck& deck, const Core::Decks::DeckValue& value);

/// The errors of a deck that was read with all its findings.
class ValueErrors {
public:
    /// `deck` must outlive it.
    explicit ValueErrors(const Core::Decks::Deck& deck);

    /// The error because of which the word of the deck is no value, such as an unknown word of a choice; null
    /// if there is none.
    const Core::Decks::Finding* Find(const Core::Decks::DeckValue& value) const;
    /// As `WordOf`; empty if the value isn't given, a variable without a value gives it, or it is invalid.
    std::string TextOf(const Core::Decks::DeckValue& value) const;
    /// The value by its type: a number, a boolean, or a text. Null if `TextOf` is empty.
    nlohmann::ordered_json JsonOf(const Core::Decks::DeckValue& value) const;

private:
    const Core::Decks::Deck& deck_;
    std::vector<const Core::Decks::Finding*> errors_; // by file and place
};

/// Where the value is, or its keyword if it isn't given.
Core::Decks::Location LocationOf(const Core::Decks::Deck& deck, const Core::Decks::DeckValue& value);

/// The unit of the value in a system; empty if it has none.
std::string UnitOf(const Core::Decks::DeckValue& value, Core::Keywords::UnitSystem::Enum system);

/// The value that a word of the command line means for the item; none for "1*". Throws
/// `std::invalid_argument` with a whole sentence if the item takes numbers or booleans and it is neither.
std::optional<Core::Decks::NewValue> NewValueOf(const Core::Decks::DeckValue& value, const std::string& word);

} // namespace Veld::Quor::Tools
