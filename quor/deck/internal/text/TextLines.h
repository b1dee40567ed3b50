#pragma once

#include <cstddef>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Of the line on which the offset is.
std::size_t StartOfLine(std::string_view text, std::size_t offset);
/// After the end of that line, its line feed included.
std::size_t EndOfLine(std::string_view text, std::size_t offset);
/// The bytes from the offset to the end of its line, without it.
std::string_view RestOfLine(std::string_view text, std::size_t offset);

/// From the offset on, the next byte that is neither white nor in a comment.
std::size_t SkipComments(std::string_view text, std::size_t offset);
/// Where the last word of the data in `text` ends that begins before `limit`, from `begin` on; comments, and
/// what is after a slash on its line, are no words.
std::size_t EndOfWords(std::string_view text, std::size_t begin, std::size_t limit);
/// After the first slash that is a word, or the end of the text.
std::size_t EndOfRecord(std::string_view text);

} // namespace Veld::Quor::Core::Decks
