#pragma once

#include <cstddef>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// One line of a keyword's text, as words with their columns. Columns count from 0, as an editor shows them:
/// tabs go to the next multiple of 8.
struct TextRow {
    static constexpr std::size_t slash = static_cast<std::size_t>(-3);
    static constexpr std::size_t comment = static_cast<std::size_t>(-2);
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    struct Word {
        std::string_view text; ///< of the source, or of `TextRows`
        std::size_t column = 0;
        std::size_t cell = none; ///< of the row: the number of the first value that the word stands for
        std::size_t whole = 0; ///< of a number: how many characters are before its decimal point
        bool isNumber = false; ///< or stands for a default
        bool isRepeated = false; ///< it stands for several values
        std::size_t sourceColumn = column; ///< where it was

        /// `2*`: there are no digits to align.
        bool IsDefault() const { return isNumber && text.back() == '*'; }

        std::size_t GetEnd() const { return column + text.size(); }
    };

    std::string_view source; ///< without the line end
    std::size_t begin = 0; ///< the first of its words, among those of all rows
    std::size_t end = 0; ///< after the last; the slash and the comment are words too
    bool isRow = false; ///< a whole row, to be aligned with those beside it
    bool isChanged = false; ///< also if no word is at another column
};

/// The lines of a keyword's text, which must outlive them.
class TextRows {
public:
    /// Words that are added from now on are those of the line.
    void Begin(std::string_view source)
    {
        rows_.emplace_back().source = source;
        rows_.back().begin = rows_.back().end = words_.size();
    }
    void Add(const TextRow::Word& word)
    {
        words_.push_back(word);
        rows_.back().end = words_.size();
    }
    /// Keeps a text that is none of the source.
    std::string_view Keep(std::string text) { return texts_.emplace_back(std::move(text)); }

    TextRow& GetLast() { return rows_.back(); }
    const std::vector<TextRow>& GetAll() const { return rows_; }
    /// Until the next one is added.
    std::span<TextRow::Word> GetWords(const TextRow& row)
    {
        return std::span(words_).subspan(row.begin, row.end - row.begin);
    }

    /// Adds the line as it is to be written: the source if nothing changed.
    void Write(const TextRow& row, std::string& text);

    /// Aligns rows that are below one another, from `first` to `last`, which is one after, unless blanks are
    /// between all their columns already. Where most words of a column are, the others go, or as far to the
    /// right as wider words before them need it; numbers have their decimal points below one another.
    void Align(std::size_t first, std::size_t last);

private:
    std::vector<TextRow> rows_;
    std::vector<TextRow::Word> words_; // of one row after the other
    std::deque<std::string> texts_;
};

/// The columns of a line, which is asked from its beginning on.
class LineColumns {
public:
    explicit LineColumns(std::string_view line = {})
        : line_(line)
        , hasTabs_(line.find('\t') != std::string_view::npos)
    {
    }

    /// Of the byte at `offset`, which doesn't come before one that was asked for.
    std::size_t At(std::size_t offset) { return hasTabs_ ? Count(offset) : offset; }

private:
    std::size_t Count(std::size_t offset);

    std::string_view line_;
    bool hasTabs_;
    std::size_t offset_ = 0;
    std::size_t column_ = 0;
};

} // namespace Veld::Quor::Core::Decks
