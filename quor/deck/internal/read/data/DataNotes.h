#pragma once

#include "quor/deck/DeckFiles.h"
#include "quor/deck/internal/read/data/DataVariables.h"
#include "quor/deck/internal/read/words/DeckText.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A place between the values of a keyword. A slot is a scalar of a record, given or not, or an element of a
/// list of scalars, in the order of the tree; what maps and raw texts hold has none.
struct DataPosition {
    std::uint64_t slots = 0; ///< before it
    std::uint64_t ends = 0; ///< slashes and words that end records, lists and maps before it

    bool IsUpTo(const DataPosition& other) const { return slots <= other.slots && ends <= other.ends; }
};

struct DataComment {
    TextRange range;
    CommentKind kind;
    DataPosition position;
};

/// What the text of a keyword holds beside its data.
struct DataNotes {
    std::vector<DataComment> comments; ///< in their order
    std::vector<std::string> endWords; ///< that ended lists which end with words of their own, in their order
    std::unique_ptr<DataVariables> variables; ///< or null
    std::vector<int> switches; ///< of a map in its older form, which is a list of numbers
    std::vector<TextRange> values; ///< of each slot, if asked for: repeated ones have one range, and one that
                                   ///< is not given an empty range where it would be

    bool IsEmpty() const
    {
        return comments.empty() && endWords.empty() && !variables && switches.empty() && values.empty();
    }
};

} // namespace Veld::Quor::Core::Decks
