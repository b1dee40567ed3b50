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
    std::string name; ///< the path by which it was read
    std::size_t depth = 0; ///< inclusions that led here
    std::size_t bytes = 0; ///< of its text
    std::size_t keywords = 0; ///< in the file itself, not in those that it includes
};

/// A section that the deck has.
struct SectionSummary {
    Keywords::SectionType::Enum section = Keywords::SectionType::None; ///< which one
    std::size_t keywords = 0; ///< in it, the one that begins it included
    Location location; ///< of its first keyword
};

/// The whole numbers of a keyword of RUNSPEC.
struct SizeSummary {
    std::string keyword; ///< its name
    std::vector<std::pair<std::string, int>> sizes; ///< by item
};

/// The values of one keyword for a cell property.
struct PropertySummary {
    std::string keyword; ///< its name
    std::string property; ///< which cell property
    std::string measurement; ///< empty: a plain number
    Location location; ///< of the keyword
    std::size_t count = 0; ///< of values
    std::size_t defaulted = 0; ///< of these; their values count nowhere
    std::size_t unknown = 0; ///< of these, variables without a value; they count nowhere either
    /// Of the values that were given, in the unit of the deck.
    struct Range {
        double least = 0; ///< minimum
        double mean = 0; ///< arithmetic mean
        double greatest = 0; ///< maximum
    };
    std::optional<Range> range; ///< empty if no value was given
};

/// An array of cells that keywords such as those that set, copy and multiply work on: what it comes to at the
/// end of the deck. One that is only given, for all cells, and copied to others, is none.
struct ArraySummary {
    std::string array; ///< its name
    std::vector<std::string>
        keywords; ///< that made it, each once, in their order; its own name: it was given
    Location location; ///< of the last of them
    std::size_t cells = 0; ///< of the grid
    std::size_t unknown = 0; ///< of these; they have the default of the array, or can't be worked out
    std::string reason; ///< why some can't be worked out; may be empty
    std::optional<PropertySummary::Range> range; ///< of the others; empty if there are none
};

/// A well that the deck introduces.
struct Well {
    std::string name; ///< as the deck has it
    std::string group; ///< the last one that it was put into; may be empty
    std::string control; ///< the last: keyword, fluid that is injected, status unless it is the default,
                         ///< quantity; empty if there is none
    long long completions = 0; ///< cells in which it was ever completed
    Service::Time since; ///< when it was introduced first
};

/// A group of wells, or of other groups.
struct Group {
    std::string name; ///< as the deck has it
    std::string parent; ///< empty at the top
    std::size_t depth = 0; ///< below the top
    std::size_t wells = 0; ///< its own
};

/// A variable, and where the deck uses it.
struct VariableSummary {
    std::string name; ///< with its "$"
    std::set<std::string> uses; ///< keywords, with the item
};

/// What is in a deck, in short. It owns its values: valid without the deck. Later versions may add members to
/// this and to what it consists of.
struct DeckSummary {
    std::string title; ///< empty if the deck has none
    std::vector<FileSummary> files; ///< each after the one that includes it
    std::vector<SectionSummary> sections; ///< in the order of the deck
    std::vector<SizeSummary> sizes; ///< in the order of the deck
    std::vector<std::string> options; ///< the keywords of RUNSPEC without data
    std::string units; ///< the set's keyword; empty if none is named
    Service::Time start; ///< undefined if the deck has none
    Service::Time end; ///< of the last report
    std::size_t reports = 0; ///< report steps
    std::vector<Well> wells; ///< in the order in which they are introduced
    std::vector<Group> groups; ///< those below another after it
    std::vector<PropertySummary> properties; ///< in the order of the deck
    std::vector<ArraySummary> arrays; ///< in the order of the deck
    std::vector<VariableSummary> variables; ///< by name
};

/// Reads all data of the deck at each call. Several threads may call it at once. Throws `std::logic_error` if
/// the deck was moved from, `std::bad_alloc`.
VELD_QUOR_EXPORT DeckSummary Summarize(const Deck& deck);

} // namespace Veld::Quor::Core::Decks
