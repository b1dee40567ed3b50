#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools {

/// In the letters of ASCII.
std::string ToUpper(std::string text);
std::string ToLower(std::string text);

/// Without the blanks at its end.
std::string TrimEnd(std::string line);
std::string Join(const std::vector<std::string>& words, const char* separator = ", ");

/// The words of `text` after `head`, on lines of at most `width` characters where the words allow; further
/// lines are indented to `indent`. Ends in a line end; empty if there are no words and no head.
std::string Wrap(const std::string& head, std::string_view text, std::size_t indent, std::size_t width);

/// Rows of a table in which the last column wraps.
class Columns {
public:
    using Row = std::vector<std::string>;

    /// `head` names the columns; those that no row fills are left out.
    explicit Columns(Row head);

    void Add(Row row);
    /// The head, with a line end.
    std::string GetHead(std::size_t indent) const;
    /// The row added as number `index`.
    std::string GetRow(std::size_t index, std::size_t indent, std::size_t width) const;
    /// Columns after the indent before column `column`.
    std::size_t GetOffset(std::size_t column) const;

private:
    std::string Start(const Row& row, std::size_t indent) const;
    std::size_t WidthOf(std::size_t column) const;

    Row head_;
    std::vector<Row> rows_;
    std::vector<std::size_t> widths_; // of the widest text below the head; 0: nothing there
};

} // namespace Veld::Quor::Tools
