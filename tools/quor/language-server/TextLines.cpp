#include "tools/quor/language-server/TextLines.h"

#include <algorithm>
#include <iterator>

namespace Veld::Quor::Tools::LanguageServer {

namespace {

struct Character {
    std::size_t bytes;
    std::size_t units;
};

/// `text` isn't empty.
Character FirstCharacter(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t bytes = lead < 0xC2 || lead > 0xF4 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (bytes > text.size())
        return {1, 1};
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U)
            return {1, 1};
    }
    return {bytes, bytes == 4 ? std::size_t(2) : std::size_t(1)};
}

/// The bytes of so many units; fewer if the text ends, or the last character would be cut.
std::size_t BytesOf(std::string_view text, std::size_t units)
{
    std::size_t bytes = 0;
    while (bytes < text.size()) {
        const Character character = FirstCharacter(text.substr(bytes));
        if (character.units > units)
            break;
        units -= character.units;
        bytes += character.bytes;
    }
    return bytes;
}

/// The starts of lines that begin after `begin`, up to `end`, which may be one of them.
void AppendStarts(std::vector<std::size_t>& starts, std::string_view text, std::size_t begin, std::size_t end)
{
    for (std::size_t i = begin; i < end; ++i) {
        i = std::min(text.find_first_of("\r\n", i), end);
        if (i < end && (text[i] == '\n' || i + 1 == text.size() || text[i + 1] != '\n'))
            starts.push_back(i + 1);
    }
}

} // namespace

std::size_t CountUnits(std::string_view text)
{
    std::size_t units = 0;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        units += character.units;
        text.remove_prefix(character.bytes);
    }
    return units;
}

TextLines::TextLines(std::string_view text)
    : starts_{0}
{
    AppendStarts(starts_, text, 0, text.size());
}

void TextLines::Change(std::string_view text, std::size_t offset, std::size_t removed, std::size_t inserted)
{
    // One byte to both sides: a line end of two bytes may be made or parted.
    const std::size_t first = LineOf(offset > 0 ? offset - 1 : 0);
    const std::size_t last = LineOf(offset + removed + 1);
    const std::size_t end = last + 1 < starts_.size() ? starts_[last + 1] - removed + inserted : text.size();
    std::vector<std::size_t> starts;
    AppendStarts(starts, text, starts_[first], end);
    if (last + 1 < starts_.size() && !starts.empty() && starts.back() == end)
        starts.pop_back(); // it is that of the next line
    const auto at = [this](std::size_t line) { return starts_.begin() + static_cast<std::ptrdiff_t>(line); };
    for (auto start = at(last + 1); start != starts_.end(); ++start)
        *start = *start - removed + inserted;
    const auto rest = starts_.erase(at(first + 1), at(last + 1));
    starts_.insert(rest, starts.begin(), starts.end());
}

std::size_t TextLines::StartOf(std::string_view text, std::size_t line) const
{
    return line < starts_.size() ? starts_[line] : text.size();
}

std::size_t TextLines::LineOf(std::size_t offset) const
{
    const auto after = std::upper_bound(starts_.begin(), starts_.end(), offset);
    return static_cast<std::size_t>(std::distance(starts_.begin(), after)) - 1;
}

std::string_view TextLines::LineAt(std::string_view text, std::size_t line) const
{
    const std::size_t begin = StartOf(text, line);
    const std::string_view whole = text.substr(begin, StartOf(text, line + 1) - begin);
    return whole.substr(0, std::min(whole.find_first_of("\r\n"), whole.size()));
}

std::size_t TextLines::OffsetOf(std::string_view text, const Position& position) const
{
    if (position.line >= starts_.size())
        return text.size();
    return starts_[position.line] + BytesOf(LineAt(text, position.line), position.character);
}

Position TextLines::PositionOf(std::string_view text, std::size_t offset) const
{
    offset = std::min(offset, text.size());
    const std::size_t line = LineOf(offset);
    return {line, CountUnits(text.substr(starts_[line], offset - starts_[line]))};
}

} // namespace Veld::Quor::Tools::LanguageServer
