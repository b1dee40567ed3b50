#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// A node of a keyword's metadata: what the keyword may carry at that place. The tree belongs to the keyword,
/// and dies with the table; all that these interfaces hand out does too. Read-only once the table is loaded.
class VELD_QUOR_EXPORT IKeywordDataMD {
public:
    struct MDType {
        enum Enum : int {
            None = 0, ///< no node
            Assignment = 1,
            Boolean = 2,
            Choice = 3,
            Integer = 4,
            Line = 5,
            List = 6,
            Map = 7,
            Raw = 8,
            Real = 9,
            Record = 10,
            String = 11,
        };
        /// The name of the value above, as "Real"; for messages.
        VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
    };

    /// How a record, a list or a map ends in a deck.
    struct TerminationType {
        enum Enum : int {
            NONE = 0, ///< by itself: with its last item
            SLASH = 1,
            EOL = 2, ///< with the line
            CUSTOMIZED = 3, ///< by words that the list names, or as its reader knows
        };
        VELD_QUOR_EXPORT static Enum FromString(const std::string& name, bool* found = nullptr);
        VELD_QUOR_EXPORT static Enum FromString(const char* name, bool* found = nullptr);
        VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
    };

    /// The order that the values of an item keep down the rows of a table.
    struct ColumnConstraintType {
        enum Enum : int {
            None = 0, ///< has no string form
            StrictlyIncreasing = 1,
            StrictlyDecreasing = 2,
            Increasing = 3,
            Decreasing = 4,
        };
        VELD_QUOR_EXPORT static Enum FromString(const std::string& name, bool* found = nullptr);
        VELD_QUOR_EXPORT static Enum FromString(const char* name, bool* found = nullptr);
        VELD_QUOR_EXPORT static const std::string& ToString(Enum value);
    };

    virtual ~IKeywordDataMD();

    virtual MDType::Enum GetType() const = 0;
    /// The name of the record item; empty for all other nodes.
    virtual const std::string& GetName() const = 0;
    virtual const std::string& GetDescription() const = 0;
    /// One-based position among the items of a record; 0 for all other nodes.
    virtual unsigned int GetItemNumber() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
