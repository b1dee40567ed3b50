#pragma once

#include "quor/foundation/Export.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A word of data as it is written, before anything is known of its keyword: `5`, `3*5`, `3*`, `'text'`, or
/// the slash that ends a record.
struct WrittenWord {
    std::size_t offset = 0; ///< in the text
    std::size_t length = 0; ///< of all of it, quotes and repeat count included
    std::string_view text; ///< without the repeat count and the quotes; "/" for a slash
    long long count = 1; ///< how many values it stands for
    bool isDefault = false; ///< it stands for values that are not given
    bool isQuoted = false; ///< in quotes, the last of which may be missing
    bool isSlash = false; ///< it ends a record; the rest of its line is no data
};

/// The words of lines of data, comments left out, such as those of a record that is still being written. A
/// quote that isn't closed makes one word of the rest of its line. The texts refer to `lines`. Throws
/// `std::bad_alloc`.
VELD_QUOR_EXPORT std::vector<WrittenWord> FindWords(std::string_view lines);

} // namespace Veld::Quor::Core::Decks
