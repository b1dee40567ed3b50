#pragma once

#include "tools/quor/language-server/Protocol.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools::LanguageServer {

/// Units of UTF-16 that the bytes take; bytes that are no UTF-8 take one each.
std::size_t CountUnits(std::string_view text);

/// Where the lines of a text begin, to tell bytes from positions. Lines end with "\n", "\r\n" or "\r".
class TextLines {
public:
    explicit TextLines(std::string_view text);

    /// `text` has been changed: at `offset` so many bytes went, and so many came.
    void Change(std::string_view text, std::size_t offset, std::size_t removed, std::size_t inserted);

    /// How many lines there are; at least one.
    std::size_t GetCount() const { return starts_.size(); }
    /// The first byte of a line; that of the text's end for a line after the last.
    std::size_t StartOf(std::string_view text, std::size_t line) const;
    /// The line of a byte.
    std::size_t LineOf(std::size_t offset) const;
    /// A line without its end.
    std::string_view LineAt(std::string_view text, std::size_t line) const;

    /// Positions beyond the end of a line, or of the text, are at that end; one within a character is before
    /// it.
    std::size_t OffsetOf(std::string_view text, const Position& position) const;
    Position PositionOf(std::string_view text, std::size_t offset) const;
    Span SpanOf(std::string_view text, std::size_t offset, std::size_t length) const
    {
        return {PositionOf(text, offset), PositionOf(text, offset + length)};
    }

private:
    std::vector<std::size_t> starts_; // the first is 0
};

} // namespace Veld::Quor::Tools::LanguageServer
