#pragma once

#include "tools/deck/Finding.h"
#include "tools/deck/SourceText.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Veld::Quor::Tools::Deck {

/// Bytes of a deck's text.
struct Spot {
    std::uint32_t file = 0; ///< among the files of the deck
    std::size_t offset = 0; ///< from the start of the file's text
    std::size_t length = 0;
};

/// A file of a deck. One that is included twice is there twice, with one text.
struct DeckFile {
    std::string name;
    std::shared_ptr<const SourceText> text;
    std::optional<Spot> inclusion; ///< from the keyword that led here to the end of the line with the name;
                                   ///< none for the deck itself
    std::size_t end = 0; ///< where reading left it: before the word that ends an included file, or behind all
};

/// The files of a deck, in the order in which reading came to them: the deck itself is the first.
class DeckFiles {
public:
    std::uint32_t Add(DeckFile file);
    void SetEnd(std::uint32_t file, std::size_t end) { files_[file].file.end = end; }

    std::size_t GetSize() const { return files_.size(); }
    const DeckFile& Get(std::uint32_t file) const { return files_[file].file; }
    std::string_view GetText(std::uint32_t file) const { return files_[file].file.text->GetText(); }
    std::string_view GetText(const Spot& spot) const
    {
        return GetText(spot.file).substr(spot.offset, spot.length);
    }

    /// Cheap for places that rise within a file.
    Place PlaceOf(const Spot& spot) const;
    /// The inclusions that led to a file, innermost first.
    std::vector<Place> InclusionsOf(std::uint32_t file) const;
    /// The line of the place, without its end, and where in the file it begins.
    std::pair<std::string_view, std::size_t> LineOf(const Spot& spot) const;

private:
    struct Entry {
        DeckFile file;
        // The last place that was asked for, so that the next one needn't count lines from the start.
        mutable std::size_t offset = 0;
        mutable std::size_t line = 1;
    };

    std::vector<Entry> files_;
};

} // namespace Veld::Quor::Tools::Deck
