#pragma once

#include "quor/deck/Deck.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorType.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// How two lists differ: of numbers, or of rows of which many differ.
struct ArrayChange {
    std::size_t differing = 0; ///< of the elements that both have
    std::size_t sizeBefore = 0; ///< elements in the first deck
    std::size_t sizeAfter = 0; ///< elements in the second deck
    std::size_t first = 0; ///< from 1; 0: none differ
    double greatest = 0; ///< difference; of numbers that both have
    bool isOfRows = false; ///< the elements are records
};

/// One item of a keyword's data that differs.
struct ItemChange {
    std::string item; ///< the path to it: names of items, and numbers of elements from 1 as in "[3]"
    /// As text; "absent" for an element that the other list has in excess, "unknown" for a number of a list
    /// in whose place a variable without a value is.
    std::string before;
    std::string after; ///< the same in the second deck
    std::optional<ArrayChange> array = {}; ///< `before` and `after` are of the first element that differs
};

/// How two decks are compared.
class ComparisonOptions {
public:
    /// Whose defaults hold. Without it, those of the simulator that the first deck was read for.
    ComparisonOptions& SetSimulator(Keywords::SimulatorType::Enum simulator)
    {
        simulator_ = simulator;
        return *this;
    }
    /// Whether a value left to its default differs from that value. False at first.
    ComparisonOptions& SetDefaultsDiffer(bool doDiffer)
    {
        doDefaultsDiffer_ = doDiffer;
        return *this;
    }

    /// What was set; without a value: the simulator of the first deck.
    const std::optional<Keywords::SimulatorType::Enum>& GetSimulator() const { return simulator_; }
    /// What was set.
    bool DoDefaultsDiffer() const { return doDefaultsDiffer_; }

private:
    std::optional<Keywords::SimulatorType::Enum> simulator_;
    bool doDefaultsDiffer_ = false;
};

/// One difference between two decks.
struct Change {
    /// Whether both decks have it, or the second alone, or the first alone.
    enum class Kind { Changed, Added, Removed };

    Kind kind = Kind::Changed; ///< seen from the first deck
    std::string keyword; ///< empty: it is the report step itself that was added or removed
    std::string identity; ///< the identifiers of the instance; may be empty
    ItemChange item = {}; ///< of what has changed
    std::optional<Location> before = {}; ///< in the first deck
    std::optional<Location> after = {}; ///< in the second one
};

/// The differences in one section, or in SCHEDULE at one report step.
struct ChangeGroup {
    Keywords::SectionType::Enum section = Keywords::SectionType::None; ///< in which they are
    std::string step; ///< date, or number of the report; empty: no step, or before the first
    std::vector<Change> changes; ///< in the order of the decks
};

/// All differences between two decks. It owns its values: valid without the decks. Later versions may add
/// members to this and to what it consists of.
struct Difference {
    std::vector<ChangeGroup> groups; ///< in the order of sections and dates; none of them empty
    std::array<std::size_t, 3> counts = {}; ///< by kind

    /// How many changes of the kind the groups have.
    std::size_t GetCount(Change::Kind kind) const { return counts[static_cast<std::size_t>(kind)]; }
};

/// Compares what the decks say and not how: comments, layout, inclusions and the order of independent
/// keywords don't matter, nor how records are spread over keywords. Instances of a keyword that have the same
/// identifiers are matched in their order. Both decks were read with one language. Reads all data of both
/// decks at each call. Several threads may compare at once. Throws `std::logic_error` if a deck was moved
/// from, `std::bad_alloc`.
VELD_QUOR_EXPORT Difference Compare(
    const Deck& a, const Deck& b, const ComparisonOptions& options = ComparisonOptions());

} // namespace Veld::Quor::Core::Decks
