#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// One line of a keyword's text, as words with their columns. Columns count from 0, as an editor shows them:
/// tabs go to the next multiple of 8.
struct TextRow {
    static constexpr std::size_t slash = static_cast<std::size_t>(-3);
    static constexpr std::size_t comment = static_cast<std::size_t>(-2);
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    struct Word {
        std::string text;
        std::size_t column = 0;
        std::size_t cell = none; ///< of the row: the number of the first value that the word stands for
        bool isNumber = false; ///< or stands for a default
        bool isRepeated = false; ///< it stands for several values
        std::size_t sourceColumn = column; ///< where it was

        /// `2*`: there are no digits to align.
        bool IsDefault() const { return isNumber && text.back() == '*'; }

        std::size_t GetEnd() const { return column + text.size(); }
    };

    std::string_view source; ///< without the line end
    std::vector<Word> words; ///< the slash and the comment too
    bool isRow = false; ///< a whole row, to be aligned with those beside it
    bool isChanged = false; ///< also if no word is at another column

    /// The line as it is to be written: the source if nothing changed.
    std::string GetText() const;
};

/// The columns of a line, which is asked from its beginning on.
class LineColumns {
public:
    explicit LineColumns(std::string_view line = {})
        : line_(line)
    {
    }

    /// Of the byte at `offset`, which doesn't come before one that was asked for.
    std::size_t At(std::size_t offset);

private:
    std::string_view line_;
    std::size_t offset_ = 0;
    std::size_t column_ = 0;
};

/// Aligns rows that are below one another, from `first` to `last`, which is one after, unless blanks are
/// between all their columns already. Where most words of a column are, the others go, or as far to the right
/// as wider words before them need it; numbers have their decimal points below one another.
void AlignRows(std::vector<TextRow>& rows, std::size_t first, std::size_t last);

} // namespace Veld::Quor::Core::Decks
