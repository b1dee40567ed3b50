#pragma once

#include "quor/deck/Deck.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Time.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// One file of the deck, as often as it is included.
struct FileSummary {
    std::string name;
    std::size_t depth = 0; ///< inclusions that led here
    std::size_t bytes = 0;
    std::size_t keywords = 0; ///< that stand in the file itself
};

/// A section that the deck has.
struct SectionSummary {
    Keywords::SectionType::Enum section;
    std::size_t keywords = 0;
    Location location; ///< of its first keyword
};

/// The whole numbers that a keyword of RUNSPEC gives.
struct SizeSummary {
    std::string keyword;
    std::vector<std::pair<std::string, int>> sizes; ///< by item
};

/// The values that one keyword gives to a cell property.
struct PropertySummary {
    std::string keyword;
    std::string property;
    std::string measurement; ///< empty: a plain number
    Location location;
    std::size_t count = 0;
    std::size_t defaulted = 0; ///< of these; their values count nowhere
    struct Range {
        double least;
        double mean;
        double greatest;
    };
    std::optional<Range> range; ///< empty if no value was given
};

/// A well that the deck introduces.
struct Well {
    std::string name;
    std::string group;
    std::string control; ///< the last: keyword, fluid that is injected, quantity; empty if there is none
    long long completions = 0; ///< cells in which it was ever completed
    Service::Time since; ///< when it was introduced first
};

/// A group of wells, or of other groups.
struct Group {
    std::string name;
    std::string parent; ///< empty at the top
    std::size_t depth = 0; ///< below the top
    std::size_t wells = 0; ///< its own
};

/// A variable, and what it gives a value to.
struct VariableSummary {
    std::string name; ///< with its "$"
    std::set<std::string> uses; ///< keywords, with the item
};

/// What is in a deck, in short: values of its own, valid without the deck. Later versions may add members to
/// this and to what it consists of.
struct DeckSummary {
    std::string title;
    std::vector<FileSummary> files; ///< each after the one that includes it
    std::vector<SectionSummary> sections;
    std::vector<SizeSummary> sizes;
    std::vector<std::string> options; ///< the keywords of RUNSPEC that carry nothing
    std::string units; ///< the set's keyword; empty if none is named
    Service::Time start; ///< undefined if the deck gives none
    Service::Time end; ///< of the last report
    std::size_t reports = 0;
    std::vector<Well> wells;
    std::vector<Group> groups;
    std::vector<PropertySummary> properties;
    std::vector<VariableSummary> variables; ///< by name
};

/// Works the summary out anew each time. Several threads may ask at once.
VELD_QUOR_EXPORT DeckSummary Summarise(const Deck& deck);

} // namespace Veld::Quor::Core::Decks
