#pragma once

#include "quor/deck/TextRange.h"
#include "quor/foundation/Export.h"

#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A change of a deck's text: the bytes of the range are replaced. A range of no length is a place to insert.
struct TextEdit {
    TextRange range; ///< in the text as it was read
    std::string text; ///< takes the place of the bytes
};

/// The text of one file with the changes made, all of them to that file. Their order does not matter, but for
/// several insertions at one place, which keep theirs. Throws `std::invalid_argument` if two of them overlap,
/// or one reaches beyond the text.
VELD_QUOR_EXPORT std::string ApplyEdits(std::string_view text, std::vector<TextEdit> edits);

} // namespace Veld::Quor::Core::Decks
