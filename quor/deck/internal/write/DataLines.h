#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Lays out the words of a keyword's data on lines.
class DataLines {
public:
    /// `name`: of the keyword, on the first line.
    explicit DataLines(std::string_view name, std::size_t width = 100);

    /// Puts a word after the one before it, or on a new line if it doesn't fit.
    void Word(std::string_view word);
    /// The same for numbers of an array, which get a column each; a missing one is empty.
    void Numbers(const std::vector<std::string>& words);
    /// A line as it is; words may come after it.
    void Line(std::string_view text);
    /// The next word starts a line.
    void Break() { isBroken_ = isBroken_ || !line_.empty(); }
    /// Blanks before the words of a line.
    void SetIndent(std::size_t indent) { indent_ = indent; }
    std::size_t GetIndent() const { return indent_; }
    /// Whether words may continue on another line.
    void SetWrapping(bool wraps) { wraps_ = wraps; }

    /// A comment on a separate line: its hyphens are where the words do, or at the start of the line.
    void Comment(std::string_view comment, bool isIndented);
    /// After what was written last; the line ends with it. Gets hyphens if it has none and doesn't stand
    /// after a slash.
    void After(std::string_view comment);

    /// All lines, without the end of the last one.
    std::string Take();

private:
    void EndLine();

    std::size_t width_;
    std::size_t indent_ = 2;
    bool isBroken_ = false;
    bool wraps_ = true;
    bool isBehindSlash_ = false; // the last word was one
    std::string text_;
    std::string line_;
};

/// The word that stands for so many values that aren't given.
std::string MissingText(std::size_t count);

} // namespace Veld::Quor::Core::Decks
