#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Bytes of a deck's text.
struct TextRange {
    std::uint32_t file = 0; ///< index among the files of the deck
    std::size_t offset = 0; ///< from the start of the file's text, a byte order mark not counted
    std::size_t length = 0;
};

/// A place in a file, as people read it. Lines and columns count from 1, columns in bytes.
struct Location {
    std::string file;
    std::size_t line = 0;
    std::size_t column = 0;
};

} // namespace Veld::Quor::Core::Decks
