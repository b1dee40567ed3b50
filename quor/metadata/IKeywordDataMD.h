#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// A node of a keyword's metadata: what the keyword may carry at that place. The tree belongs to the keyword,
/// and is valid as long as the table, as is all that these interfaces return. Read-only once the table is
/// loaded.
class VELD_QUOR_EXPORT IKeywordDataMD {
public:
    /// The type of a node. It decides the interface of the node and of its data: `VisitMD` calls by it.
    struct MDType {
        /// In the order of the names.
        enum Enum : int {
            None = 0, ///< no node
            Assignment = 1, ///< a named integer of a map
            Boolean = 2,
            Choice = 3,
            Integer = 4,
            Line = 5, ///< the rest of a line
            List = 6,
            Map = 7,
            Raw = 8, ///< text that nobody parses
            Real = 9,
            Record = 10,
            String = 11,
        };
        /// The name of the value above, as "Real"; for messages. Never freed.
        VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
    };

    /// How a record, a list or a map ends in a deck.
    struct TerminationType {
        /// What a document leaves open follows from the items: see `GetTermination` of the container.
        enum Enum : int {
            NONE = 0, ///< by itself: with its last item
            SLASH = 1,
            EOL = 2, ///< with the line
            CUSTOMIZED = 3, ///< by words that the list names, or as its reader knows
        };
        /// The names above. Exact, case included, and not null. For an unknown name the answer is value 0,
        /// and only `found`, which may be null, says so.
        /// @{
        VELD_QUOR_EXPORT static Enum FromString(const std::string& name, bool* found = nullptr);
        VELD_QUOR_EXPORT static Enum FromString(const char* name, bool* found = nullptr);
        /// @}
        /// Empty for a value that has no string form. Never freed.
        VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
    };

    /// The order that the values of an item keep down the rows of a table.
    struct ColumnConstraintType {
        /// A strict order excludes equal neighbours.
        enum Enum : int {
            None = 0, ///< no order is asked for; has no string form
            StrictlyIncreasing = 1,
            StrictlyDecreasing = 2,
            Increasing = 3,
            Decreasing = 4,
        };
        /// "strictly_increasing", "strictly_decreasing", "increasing" or "decreasing". Otherwise as
        /// `TerminationType::FromString`.
        /// @{
        VELD_QUOR_EXPORT static Enum FromString(const std::string& name, bool* found = nullptr);
        VELD_QUOR_EXPORT static Enum FromString(const char* name, bool* found = nullptr);
        /// @}
        /// Empty for a value that has no string form. Never freed.
        VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
    };

    virtual ~IKeywordDataMD();

    /// Never `MDType::None` for a node of a table.
    virtual MDType::Enum GetType() const = 0;
    /// The name of the record item; empty for all other nodes.
    virtual const std::string& GetName() const = 0;
    /// For people; empty if the document has none. Of a record, a map and raw text it is not kept.
    virtual const std::string& GetDescription() const = 0;
    /// One-based position among the items of a record; 0 for all other nodes.
    virtual unsigned int GetItemNumber() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
