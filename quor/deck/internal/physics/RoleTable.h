#pragma once

#include "quor/deck/internal/physics/RolePlans.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/foundation/SimulatorType.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// The numbers of one element of a keyword's list that have a role. An element that is a record is a table of
/// one row; one of records with rows of their own has their numbers in each row.
struct RoleTable {
    struct Column {
        Role::Enum role;
        std::string name; ///< of the item
        std::vector<double> values; ///< one for each row; NaN if it is not known
        std::vector<std::uint32_t> slots; ///< of the values, among the scalars of the element
    };

    std::uint32_t keyword; ///< of the deck's keywords
    std::size_t element; ///< of the keyword's list
    std::vector<Column> columns; ///< all of the same size
    std::vector<std::size_t> branches; ///< the first row of each record that has rows of its own

    /// Null if no item has the role.
    const Column* Find(Role::Enum role) const;
};

/// The tables of a keyword that carries a record, a list of records, or of lists of them. A table without
/// rows is as the one before it.
std::vector<RoleTable> MakeTables(const DeckContents& deck, std::uint32_t keyword, const RecordRoles& roles,
    Keywords::SimulatorType::Enum simulator);

/// The word of a value of a table.
TextRange RangeOf(
    const DeckContents& deck, const RoleTable& table, const RoleTable::Column& column, std::size_t row);

} // namespace Veld::Quor::Core::Decks
