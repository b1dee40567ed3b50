#pragma once

#include "quor/deck/Deck.h"
#include "quor/deck/Target.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Something that a deck says and that another simulator doesn't take as it is meant.
struct Loss {
    enum class Kind {
        KeywordNotValid,
        ItemNotValid,
        ItemUnsupported, ///< accepted, without an effect
        ChoiceNotValid,
        ChoiceUnsupported,
        NoDefault, ///< left to a default that isn't there
        OtherDefault, ///< left to a default that is another one there
    };

    Kind kind;
    std::string keyword;
    Keywords::SectionType::Enum section; ///< of the first place
    std::string item; ///< the name within its record, or the key within a map; may be empty
    std::string detail; ///< of a choice its word, of a default "this -> that"
    std::size_t count = 0;
    Location first;
    std::vector<Location> locations; ///< all, if they were asked for
};

struct PortOptions {
    Target from; ///< where the deck runs now; without a simulator: whatever is valid for any, and the
                 ///< keywords' own defaults
    Target to;
    bool withLocations = false;
};

/// By kind, and in the order of the deck.
VELD_QUOR_EXPORT std::vector<Loss> FindLosses(const Deck& deck, const PortOptions& options);

} // namespace Veld::Quor::Core::Decks
