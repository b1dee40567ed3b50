#pragma once

#include "quor/deck/internal/read/data/DataNotes.h"
#include "quor/deck/internal/text/WordText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A word as a text has it.
struct SourceWord {
    DataWord word;
    std::string_view spelling; ///< without the repeat count, with quotes
    std::size_t offset = 0;
    bool isFirst = true; ///< false: it stands for one more value
};

/// The words of a keyword's data, as its text has them, for a writer that keeps their spelling. It follows
/// the data slot by slot. Whether a word is that of a slot is for the writer to see: it is if it reads as the
/// value.
class SourceWords {
public:
    /// There is no text.
    SourceWords() = default;
    /// `text`: of the file, up to the end of the data. They begin at `begin`. Both must outlive it;
    /// `comments`, which may be null, are those within the data.
    SourceWords(std::string_view text, std::size_t begin, const std::vector<DataComment>* comments)
        : text_(text)
        , position_(begin)
        , comments_(comments)
    {
    }

    bool IsThere() const { return !text_.empty(); }

    /// The next word, for a value; null if none is left. `mayBeDefault`: a word that stands for a default
    /// elsewhere may be the value.
    const SourceWord* TakeValue(bool mayBeDefault);
    /// The next word, if it stands for a default; else null, and it comes again.
    const SourceWord* TakeDefault();
    /// Passes over so many values and defaults.
    void Skip(std::size_t slots);
    /// Passes over all up to the slash that ends a record, a list or a map, and over that too.
    void PassEnd();
    /// Passes over the word that ends a list.
    void PassEndWord();
    /// The names of a map with what is assigned to them, up to its slash or the end of the line; an
    /// assignment is one word without blanks.
    std::vector<std::string> TakeNames(bool isOneLine);
    /// No word comes any more.
    void Lose();

    /// The comments on the lines directly above the line with the next word.
    std::vector<std::string_view> FindCommentsAbove() const;
    /// `part`: of the text.
    std::size_t OffsetOf(std::string_view part) const
    {
        return static_cast<std::size_t>(part.data() - text_.data());
    }
    /// Where the line of an offset begins.
    std::size_t LineOf(std::size_t offset) const;
    /// The column of an offset as an editor shows it, from 0: tabs go to the next multiple of 8.
    std::size_t ColumnOf(std::size_t offset) const;

private:
    enum class Kind { Word, Slash, End };

    Kind Peek();
    void PassComments();
    const SourceWord* TakeWord();
    void TakeSlash();

    std::string_view text_;
    std::size_t position_ = 0;
    const std::vector<DataComment>* comments_ = nullptr;
    std::size_t nextComment_ = 0;
    SourceWord word_;
    std::size_t left_ = 0; // values that `word_` still stands for
};

/// The column after a text that begins at one.
std::size_t ColumnAfter(std::string_view text, std::size_t column);

} // namespace Veld::Quor::Core::Decks
