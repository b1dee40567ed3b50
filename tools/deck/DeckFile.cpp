#include "tools/deck/DeckFile.h"

#include <algorithm>

namespace Veld::Quor::Tools::Deck {

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

Place DeckFiles::PlaceOf(const Spot& spot) const
{
    const Entry& entry = files_[spot.file];
    const std::string_view text = GetText(spot.file);
    if (spot.offset < entry.offset) {
        entry.offset = 0;
        entry.line = 1;
    }
    const auto lines = std::count(text.begin() + static_cast<std::ptrdiff_t>(entry.offset),
        text.begin() + static_cast<std::ptrdiff_t>(spot.offset), '\n');
    entry.line += static_cast<std::size_t>(lines);
    entry.offset = spot.offset;
    return {entry.file.name, entry.line, spot.offset - StartOfLine(text, spot.offset) + 1};
}

std::vector<Place> DeckFiles::InclusionsOf(std::uint32_t file) const
{
    std::vector<Place> places;
    for (const auto* inclusion = &Get(file).inclusion; *inclusion;
         inclusion = &Get((*inclusion)->file).inclusion)
        places.push_back(PlaceOf(**inclusion));
    return places;
}

std::pair<std::string_view, std::size_t> DeckFiles::LineOf(const Spot& spot) const
{
    const std::string_view text = GetText(spot.file);
    const std::size_t start = StartOfLine(text, spot.offset);
    std::string_view line = text.substr(start, text.find('\n', spot.offset) - start);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return {line, start};
}

} // namespace Veld::Quor::Tools::Deck
