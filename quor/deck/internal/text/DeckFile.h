#pragma once

#include "quor/deck/internal/check/Finding.h"
#include "quor/deck/internal/text/SourceText.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Bytes of a deck's text.
struct TextRange {
    std::uint32_t file = 0; ///< among the files of the deck
    std::size_t offset = 0; ///< from the start of the file's text
    std::size_t length = 0;
};

/// A file of a deck. One that is included twice is there twice, with one text.
struct DeckFile {
    std::string name;
    std::shared_ptr<const SourceText> text;
    std::optional<TextRange> inclusion; ///< from the keyword that led here to the end of the line with the
                                        ///< name; none for the deck itself
    std::size_t end = 0; ///< where reading left it: before the word that ends an included file, or after all
};

/// The files of a deck, in the order in which reading came to them: the deck itself is the first.
class DeckFiles {
public:
    std::uint32_t Add(DeckFile file);
    void SetEnd(std::uint32_t file, std::size_t end) { files_[file].file.end = end; }

    std::size_t GetSize() const { return files_.size(); }
    const DeckFile& Get(std::uint32_t file) const { return files_[file].file; }
    std::string_view GetText(std::uint32_t file) const { return files_[file].file.text->GetText(); }
    std::string_view GetText(const TextRange& range) const
    {
        return GetText(range.file).substr(range.offset, range.length);
    }

    /// Cheap for places that rise within a file.
    Location LocationOf(const TextRange& range) const;
    /// The inclusions that led to a file, innermost first.
    std::vector<Location> InclusionsOf(std::uint32_t file) const;
    /// The line of the place, without its end, and where in the file it begins.
    std::pair<std::string_view, std::size_t> LineOf(const TextRange& range) const;

private:
    struct Entry {
        DeckFile file;
        // The last place that was asked for, so that the next one needn't count lines from the start.
        mutable std::size_t offset = 0;
        mutable std::size_t line = 1;
    };

    std::vector<Entry> files_;
};

} // namespace Veld::Quor::Core::Decks
