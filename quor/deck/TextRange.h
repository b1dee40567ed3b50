#pragma once

#include "quor/foundation/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Bytes of a deck's text.
struct TextRange {
    std::uint32_t file = 0; ///< index among the files of the deck
    std::size_t offset = 0; ///< from the start of the file's text, a byte order mark not counted
    std::size_t length = 0; ///< in bytes
};

/// A position in a file, as people read it. Lines and columns count from 1, columns in bytes.
struct Location {
    std::string file; ///< the path by which it was read
    std::size_t line = 0; ///< from 1; 0 in an empty location alone
    std::size_t column = 0; ///< from 1, in bytes; 0 in an empty location alone
};

/// A change of a deck's text: the bytes of the range are replaced. At a range of no length text is inserted.
struct TextEdit {
    TextRange range; ///< in the text as it was read
    std::string text; ///< replaces the bytes
};

/// The text of one file with the changes made, all of them to that file. Their order does not matter, but for
/// several insertions at one position, which keep theirs. Throws `std::invalid_argument` if two of them
/// overlap, one reaches beyond the text, or they are of more than one file.
VELD_QUOR_EXPORT std::string ApplyEdits(std::string_view text, std::vector<TextEdit> edits);

} // namespace Veld::Quor::Core::Decks
