#include "quor/deck/DeckFiles.h"

#include "quor/deck/internal/text/LineText.h"
#include "quor/deck/internal/text/TextLines.h"

#include <fmt/format.h>

#include <algorithm>
#include <mutex>
#include <stdexcept>

namespace Veld::Quor::Core::Decks {

namespace {

std::size_t CountLines(std::string_view text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

struct DeckFiles::Entry {
    explicit Entry(DeckFile added)
        : file(std::move(added))
    {
    }

    /// The number of the line of an offset. Counts lines from the start of the offset's block.
    std::size_t LineNumberOf(std::string_view text, std::size_t offset)
    {
        const std::size_t block = offset / blockSize;
        return LineOfBlock(text, block) + CountLines(text.substr(block * blockSize, offset % blockSize));
    }

    DeckFile file;

private:
    static constexpr std::size_t blockSize = 4096;

    /// The number of the line in which a block of the text begins.
    std::size_t LineOfBlock(std::string_view text, std::size_t block)
    {
        const std::lock_guard lock(mutex_);
        while (lines_.size() <= block)
            lines_.push_back(
                lines_.back() + CountLines(text.substr((lines_.size() - 1) * blockSize, blockSize)));
        return lines_[block];
    }

    std::mutex mutex_;
    std::vector<std::size_t> lines_ = {1}; // of the blocks up to the last one that was asked for
};

DeckFiles::DeckFiles() = default;
DeckFiles::~DeckFiles() = default;

std::uint32_t DeckFiles::Add(DeckFile file)
{
    file.end = file.text->GetText().size();
    entries_.push_back(std::make_unique<Entry>(std::move(file)));
    return static_cast<std::uint32_t>(entries_.size() - 1);
}

void DeckFiles::SetEnd(std::uint32_t file, std::size_t end)
{
    entries_[file]->file.end = end;
}

std::size_t DeckFiles::GetSize() const
{
    return entries_.size();
}

DeckFiles::Entry& DeckFiles::GetEntry(std::uint32_t file) const
{
    if (file >= entries_.size())
        throw std::out_of_range(fmt::format(
            "file index {} is out of range (the deck has {})", file, Counted(entries_.size(), "file")));
    return *entries_[file];
}

const DeckFile& DeckFiles::Get(std::uint32_t file) const
{
    return GetEntry(file).file;
}

std::string_view DeckFiles::GetText(std::uint32_t file) const
{
    return Get(file).text->GetText();
}

std::string_view DeckFiles::GetText(const TextRange& range) const
{
    const std::string_view text = GetText(range.file);
    if (range.offset > text.size())
        throw std::out_of_range(fmt::format(
            "byte {} is out of range (the file has {})", range.offset, Counted(text.size(), "byte")));
    return text.substr(range.offset, range.length);
}

Location DeckFiles::LocationOf(const TextRange& range) const
{
    GetText(range); // throws if there is none
    const std::string_view text = GetText(range.file);
    return {Get(range.file).name, GetEntry(range.file).LineNumberOf(text, range.offset),
        range.offset - StartOfLine(text, range.offset) + 1};
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
    GetText(range); // throws if there is none
    const std::string_view text = GetText(range.file);
    const std::size_t start = StartOfLine(text, range.offset);
    std::string_view line = text.substr(start, text.find('\n', range.offset) - start);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return {line, start};
}

} // namespace Veld::Quor::Core::Decks
