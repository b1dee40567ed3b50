#pragma once

#include "quor/deck/internal/text/NumberText.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A word of data, as it is written at the beginning of a text: `5`, `3*5`, `3*`, `'text'` or `3*'text'`.
struct DataWord {
    enum class Quotes {
        None,
        Closed,
        Unclosed, ///< the word ends before the next blank, as if it were closed there
        Unopened, ///< the last character is a quote, and part of the text
    };
    std::string_view text; ///< without the repeat count, the quotes around it and blanks within them
    std::size_t length = 0; ///< of all of it
    Repeat repeat;
    Quotes quotes = Quotes::None;
    bool isPlain = true; ///< false: a bare word with characters beyond ASCII

    bool IsQuoted() const { return quotes == Quotes::Closed || quotes == Quotes::Unclosed; }
    /// A blank text in quotes stands for a default too.
    bool IsDefault() const { return text.empty() && quotes != Quotes::Unclosed; }
    /// Whether blanks within the quotes are no part of the text.
    bool IsPadded() const { return quotes == Quotes::Closed && length - repeat.length > text.size() + 2; }
};

/// `text` begins with the word, and may continue after it. A quoted word ends on its line. A quote ends a
/// bare word only where a repeat count is before it.
DataWord FindDataWord(std::string_view text);

/// The words of a line up to the slash.
struct LineWords {
    std::vector<DataWord> words;
    std::vector<std::size_t> offsets; ///< of the words in the line
    std::size_t end = 0; ///< of what was looked at: the slash if there is one
    bool isEnded = false; ///< there is a slash
};
/// A quote that isn't closed makes one word of the rest of the line.
LineWords FindLineWords(std::string_view line);

/// How many values the words stand for.
std::size_t CountValues(const LineWords& line);

} // namespace Veld::Quor::Core::Decks
