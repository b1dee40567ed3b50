#include "quor/deck/internal/text/DeckFile.h"

#include <algorithm>

namespace Veld::Quor::Core::Decks {

namespace {

std::size_t StartOfLine(std::string_view text, std::size_t offset)
{
    const std::size_t end = offset == 0 ? std::string_view::npos : text.rfind('\n', offset - 1);
    return end == std::string_view::npos ? 0 : end + 1;
}

} // namespace

std::uint32_t DeckFiles::Add(DeckFile file)
{
    file.end = file.text->GetText().size();
    files_.push_back({std::move(file)});
    return static_cast<std::uint32_t>(files_.size() - 1);
}

Location DeckFiles::LocationOf(const TextRange& range) const
{
    const Entry& entry = files_[range.file];
    const std::string_view text = GetText(range.file);
    if (range.offset < entry.offset) {
        entry.offset = 0;
        entry.line = 1;
    }
    const auto lines = std::count(text.begin() + static_cast<std::ptrdiff_t>(entry.offset),
        text.begin() + static_cast<std::ptrdiff_t>(range.offset), '\n');
    entry.line += static_cast<std::size_t>(lines);
    entry.offset = range.offset;
    return {entry.file.name, entry.line, range.offset - StartOfLine(text, range.offset) + 1};
}

std::vector<Location> DeckFiles::InclusionsOf(std::uint32_t file) const
{
    std::vector<Location> locations;
    for (const auto* inclusion = &Get(file).inclusion; *inclusion;
         inclusion = &Get((*inclusion)->file).inclusion)
        locations.push_back(LocationOf(**inclusion));
    return locations;
}

std::pair<std::string_view, std::size_t> DeckFiles::LineOf(const TextRange& range) const
{
    const std::string_view text = GetText(range.file);
    const std::size_t start = StartOfLine(text, range.offset);
    std::string_view line = text.substr(start, text.find('\n', range.offset) - start);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return {line, start};
}

} // namespace Veld::Quor::Core::Decks
