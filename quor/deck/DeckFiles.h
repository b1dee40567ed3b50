#pragma once

#include "quor/deck/DeckSource.h"
#include "quor/deck/TextRange.h"
#include "quor/foundation/Export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A file of a deck. One that is included twice is there twice, with one text.
struct DeckFile {
    std::string name; ///< the path that it was read from
    std::shared_ptr<const SourceText> text; ///< its bytes; lives as long as somebody holds it
    std::optional<TextRange> inclusion; ///< from the keyword that led here to the end of the line with the
                                        ///< name; none for the deck itself
    std::size_t end = 0; ///< where reading left it: before the word that ends an included file, or the size
    std::string includedAs = {}; ///< the name in the deck, path aliases replaced; empty for the deck itself
    bool isOutside = false; ///< whether it is not below the folder of the deck, links followed
};

class DeckText;

/// The files of a deck, in the order in which they were read: the deck itself is the first. What is const
/// here may be called by several threads at once.
class VELD_QUOR_EXPORT DeckFiles {
public:
    DeckFiles();
    ~DeckFiles();
    DeckFiles(const DeckFiles&) = delete;
    DeckFiles& operator=(const DeckFiles&) = delete;

    /// How many files there are, those that are included twice counted twice.
    std::size_t GetSize() const;
    /// Throws `std::out_of_range` for an index that no file has, as all functions below; they also for a
    /// range that begins after the end of its file. Valid as long as this object.
    const DeckFile& Get(std::uint32_t file) const;
    /// The text of a file, without a byte order mark; valid as long as this object.
    std::string_view GetText(std::uint32_t file) const;
    /// The bytes of a range that is one of the deck's.
    std::string_view GetText(const TextRange& range) const;

    /// Where the range, which is one of the deck's, begins. The first call reads the file up to there.
    Location LocationOf(const TextRange& range) const;
    /// The inclusions that led to a file, innermost first; empty for the deck itself.
    std::vector<Location> InclusionsOf(std::uint32_t file) const;
    /// The line in which the range begins, without its end, and the offset of that line in the file.
    std::pair<std::string_view, std::size_t> LineOf(const TextRange& range) const;

private:
    friend class DeckText; // which reads them
    /// Returns the index of the file.
    std::uint32_t Add(DeckFile file);
    void SetEnd(std::uint32_t file, std::size_t end);

    struct Entry;
    Entry& GetEntry(std::uint32_t file) const;

    std::vector<std::unique_ptr<Entry>> entries_;
};

} // namespace Veld::Quor::Core::Decks
