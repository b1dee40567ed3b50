#pragma once

#include "quor/foundation/Export.h"

#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// `text` with a question mark for each character that could control a terminal or change the order of what
/// it shows: the control characters of ASCII without the tab, those from U+0080 to U+009F as UTF-8 and as
/// bytes of their own, separators of lines, and marks of direction. Texts of a deck, of a document and names
/// of files need it before they are shown.
VELD_QUOR_EXPORT std::string MakePrintable(std::string_view text);

} // namespace Veld::Quor::Core::Decks
