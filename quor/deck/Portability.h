#pragma once

#include "quor/deck/Deck.h"
#include "quor/deck/Target.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Something in a deck that another simulator doesn't accept, or reads in another way. Valid without the
/// deck. Later versions may add members.
struct Loss {
    /// What is lost.
    enum class Kind {
        KeywordNotValid,
        ItemNotValid,
        ItemUnsupported, ///< accepted, without an effect
        ChoiceNotValid,
        ChoiceUnsupported,
        NoDefault, ///< left to a default that isn't there
        OtherDefault, ///< left to a default that is another one there
    };

    Kind kind = Kind::KeywordNotValid; ///< what is lost
    std::string keyword; ///< its name
    Keywords::SectionType::Enum section = Keywords::SectionType::None; ///< of the first location
    std::string item; ///< the name within its record, or the key within a map; may be empty
    std::string detail; ///< of a choice its word, of a default "this -> that"
    std::size_t count = 0; ///< how often the deck has it
    Location first; ///< in the order of reading
    std::vector<Location> locations; ///< all, if they were asked for
};

/// Between which simulators a deck is ported.
class PortOptions {
public:
    /// Where the deck runs now. Without it, whatever is valid for any simulator, and the keywords' own
    /// defaults.
    PortOptions& SetFrom(const Target& from)
    {
        from_ = from;
        return *this;
    }
    /// Where it is to run. Without it, the target that the deck was read for.
    PortOptions& SetTo(const Target& to)
    {
        to_ = to;
        return *this;
    }
    /// Whether each loss has all its locations, and not the first alone. False at first.
    PortOptions& SetLocations(bool hasLocations)
    {
        hasLocations_ = hasLocations;
        return *this;
    }

    /// What was set.
    /// @{
    const Target& GetFrom() const { return from_; }
    const std::optional<Target>& GetTo() const { return to_; }
    bool HasLocations() const { return hasLocations_; }
    /// @}

private:
    Target from_;
    std::optional<Target> to_;
    bool hasLocations_ = false;
};

/// By kind, and in the order of the deck. Blocks that were skipped as the deck was read are not among them:
/// read it for the simulator that it is ported to. Reads all data of the deck at each call. Several threads
/// may call it at once. Throws `std::logic_error` if the deck was moved from, `std::bad_alloc`.
VELD_QUOR_EXPORT std::vector<Loss> FindLosses(const Deck& deck, const PortOptions& options = PortOptions());

/// Something in a deck that `FindLosses` can't check: whether another simulator accepts it isn't known. Valid
/// without the deck. Later versions may add members.
struct Unchecked {
    /// Why it can't be checked.
    enum class Kind {
        UnknownKeyword, ///< it is in no document
        File, ///< it couldn't be read
        Variable, ///< it has no value
        Error, ///< the data aren't what they should be
    };

    Kind kind = Kind::UnknownKeyword; ///< why it can't be checked
    std::string text; ///< of an unknown keyword its name, else what was found
    std::size_t count = 0; ///< how often the deck has it
    Location first; ///< in the order of reading
};

/// By kind, and in the order of the deck. They are made of the findings that the deck keeps: see
/// `ReadOptions::SetMaxFindings`. Several threads may call it at once. Throws `std::logic_error` if the deck
/// was moved from, `std::bad_alloc`.
VELD_QUOR_EXPORT std::vector<Unchecked> FindUnchecked(const Deck& deck);

} // namespace Veld::Quor::Core::Decks
