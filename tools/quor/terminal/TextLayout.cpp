#include "tools/quor/terminal/TextLayout.h"

#include "quor/foundation/service/Strings.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <sstream>
#include <utility>

namespace Veld::Quor::Tools {

namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t narrowest = 24; // of a column that wraps, on however narrow a terminal

} // namespace

std::string TrimEnd(std::string line)
{
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::string Join(const std::vector<std::string>& words, const char* separator)
{
    return fmt::format("{}", fmt::join(words, separator));
}

std::string ToUpper(std::string text)
{
    Core::Service::StringToUpper(text);
    return text;
}

std::string ToLower(std::string text)
{
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

std::string Wrap(const std::string& head, std::string_view text, std::size_t indent, std::size_t width)
{
    const std::size_t room = std::max(width, indent + narrowest);
    std::string lines = head;
    std::size_t column = CountCharacters(head);
    bool isLineEmpty = true;
    std::istringstream words{std::string(text)};
    words.exceptions(std::ios::badbit); // else memory that runs out leaves words out
    for (std::string word; words >> word;) {
        word = MakePrintable(word);
        const std::size_t length = CountCharacters(word);
        if (!isLineEmpty && column + 1 + length > room) {
            lines = TrimEnd(std::move(lines)) + '\n' + std::string(indent, ' ');
            column = indent;
            isLineEmpty = true;
        }
        lines += isLineEmpty ? word : ' ' + word;
        column += length + (isLineEmpty ? 0 : 1);
        isLineEmpty = false;
    }
    lines = TrimEnd(std::move(lines));
    return lines.empty() ? lines : lines + '\n';
}

Columns::Columns(Row head)
    : head_(std::move(head))
    , widths_(head_.size())
{
}

void Columns::Add(Row row)
{
    row.resize(head_.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i] = MakePrintable(row[i]);
        widths_[i] = std::max(widths_[i], CountCharacters(row[i]));
    }
    rows_.push_back(std::move(row));
}

std::string Columns::GetHead(std::size_t indent) const
{
    std::string line = Start(head_, indent);
    if (widths_.back() > 0)
        line += head_.back();
    return TrimEnd(std::move(line)) + '\n';
}

std::string Columns::GetRow(std::size_t index, std::size_t indent, std::size_t width) const
{
    const Row& row = rows_[index];
    return Wrap(Start(row, indent), row.back(), indent + GetOffset(head_.size() - 1), width);
}

std::size_t Columns::GetOffset(std::size_t column) const
{
    std::size_t offset = 0;
    for (std::size_t i = 0; i < column; ++i) {
        if (widths_[i] > 0)
            offset += WidthOf(i) + gap;
    }
    return offset;
}

std::string Columns::Start(const Row& row, std::size_t indent) const
{
    std::string line(indent, ' ');
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
        if (widths_[i] > 0)
            line += row[i] + std::string(WidthOf(i) - CountCharacters(row[i]) + gap, ' ');
    }
    return line;
}

std::size_t Columns::WidthOf(std::size_t column) const
{
    return std::max(widths_[column], CountCharacters(head_[column]));
}

} // namespace Veld::Quor::Tools
