#pragma once

#include "quor/deck/internal/check/KeywordValidity.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/read/values/DataPlan.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Writes a deck from its trees. What is no keyword stays as it is: comments, blank lines, inclusions,
/// skipped blocks, unknown keywords. So does a keyword with errors in it, one of raw text, and one whose data
/// continue in another file or around a skipped block.
class DeckWriter {
public:
    /// The deck must outlive it. `isNormalized`: each keyword is written from its data, in one form; else its
    /// text is kept as far as it is in order: see `KeptText`.
    DeckWriter(const DeckContents& deck, bool isNormalized);

    /// The text of one of the deck's files.
    std::string WriteFile(std::uint32_t file);
    /// The whole deck, with the included files in place of their inclusions.
    std::string WriteAll();

private:
    /// A keyword, or an inclusion.
    struct Part {
        TextRange range;
        const KeywordInstance* keyword; // null for an inclusion
        std::uint32_t inclusion; // the file
        bool mayShareLine; // its data, with its name
    };

    void AddParts();
    std::string Write(std::uint32_t file, std::size_t end, bool takesInclusions);
    std::string Write(const Part& part);
    std::string WriteNormalized(const KeywordInstance& keyword, bool mayShareLine);
    std::string Keep(const KeywordInstance& keyword);

    const DeckContents& deck_;
    bool isNormalized_;
    DataPlans plans_;
    std::vector<std::vector<Part>> parts_; // by file, in the order of their ranges
};

} // namespace Veld::Quor::Core::Decks
