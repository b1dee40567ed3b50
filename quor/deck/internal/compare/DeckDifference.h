#pragma once

#include "quor/deck/internal/compare/DataComparison.h"
#include "quor/deck/internal/read/Deck.h"
#include "quor/foundation/SectionType.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// One difference between two decks.
struct Change {
    enum class Kind { Changed, Added, Gone };

    Kind kind = Kind::Changed;
    std::string keyword; ///< empty: it is the report step itself that was added, or is gone
    std::string identity; ///< the identifiers of the instance; may be empty
    ItemChange item = {}; ///< of what has changed
    std::optional<Location> before = {}; ///< in the first deck
    std::optional<Location> after = {}; ///< in the second one
};

/// The differences in one section, or in SCHEDULE at one report step.
struct ChangeGroup {
    Core::Keywords::SectionType::Enum section;
    std::string step; ///< date, or number of the report; empty: no step, or before the first
    std::vector<Change> changes;
};

struct Difference {
    std::vector<ChangeGroup> groups; ///< in the order of sections and dates; none of them empty
    std::array<std::size_t, 3> counts = {}; ///< by kind

    std::size_t GetCount(Change::Kind kind) const { return counts[static_cast<std::size_t>(kind)]; }
};

/// Compares what the decks say and not how: comments, layout, inclusions and the order of independent
/// keywords don't matter, nor how records are spread over keywords. Instances of a keyword that have the same
/// identifiers are matched in their order. Both decks were read with one language.
Difference Compare(const Deck& a, const Deck& b, const ComparisonOptions& options);

} // namespace Veld::Quor::Core::Decks
