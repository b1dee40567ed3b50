#pragma once

#include "language/generate/Place.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// A word of a table.
struct Word {
    std::string text;
    Place place;
};

/// Cuts the columns off a line of a table, from the left.
class TableLine {
public:
    /// `columns` are the names of all columns, for messages.
    TableLine(std::string_view text, Place begin, const char* columns);

    /// Nothing, or a comment.
    bool IsEmpty() const { return at_ == text_.size() || text_[at_] == '#'; }
    /// A line such as [name of a group].
    bool IsHeading() const { return text_[at_] == '['; }
    /// The name in it. Fails if it isn't closed, or empty.
    Word Heading() const;
    /// The word in the next column. Fails at the end of the line; `column` is its name.
    Word Next(const char* column);
    /// All that is left, for the last column. Fails if nothing is.
    Word Rest(const char* column);

private:
    void SkipBlanks();
    Word Cut(std::size_t end, const char* column);

    std::string text_;
    Place begin_;
    const char* columns_;
    std::size_t at_ = 0;
};

/// Calls `use` with each line of the file that isn't empty.
void ForEachLine(
    const std::string& path, const char* columns, const std::function<void(const TableLine&)>& use);

/// The words between the commas of a word, each with its place; there may be empty ones.
std::vector<Word> CommaSeparated(const Word& word);

[[noreturn]] void FailUnknown(const Word& word, const std::string& what, const std::string& known);

/// The one of `known` with the name that the word has. Fails if there is none.
template <class Known>
const Known& FindByName(const std::vector<Known>& known, const Word& word, const std::string& what)
{
    std::string names;
    for (const Known& one : known) {
        if (one.name == word.text)
            return one;
        names.append(" ").append(one.name);
    }
    FailUnknown(word, what, names);
}
