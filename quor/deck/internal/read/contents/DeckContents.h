#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/deck/DeckFiles.h"
#include "quor/deck/DeckKeyword.h"
#include "quor/deck/Finding.h"
#include "quor/deck/ReadOptions.h"
#include "quor/deck/Target.h"
#include "quor/deck/internal/check/FindingCollector.h"
#include "quor/deck/internal/read/contents/KeywordNames.h"
#include "quor/deck/internal/read/contents/ReadSettings.h"
#include "quor/deck/internal/read/contents/RecordIndex.h"
#include "quor/deck/internal/read/keyword/DataReader.h"
#include "quor/deck/internal/text/LanguageIndex.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Time.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

constexpr std::uint32_t noIndex = std::numeric_limits<std::uint32_t>::max();

/// A known keyword of a deck, and its data there.
struct KeywordInstance {
    const Core::Keywords::IKeywordSyntax* syntax;
    Core::Keywords::SectionType::Enum section; ///< in which it is; `None` before the first
    TextRange name;
    TextRange
        whole; ///< with its data; of no length if they continue in another file, or around a skipped block
    std::unique_ptr<Core::Keywords::IKeywordData> data = {}; ///< null if it has none
    std::unique_ptr<DataNotes> notes = {}; ///< null if there is nothing to note
    std::vector<RecordStart> records =
        {}; ///< of the elements of its outermost list, if that is one of records or lists
    std::uint32_t step =
        noIndex; ///< the last report step of the deck's before it, in its section; `noIndex` if there is none
    std::uint32_t scope = noIndex; ///< the innermost one around it, of the deck's; `noIndex` if there is none
    bool isSound = true; ///< its data are what its text says: nothing is wrong but for warnings and variables
};

/// Where an element of the keyword's outermost list begins; the keyword itself if that isn't known.
TextRange RangeOf(const KeywordInstance& keyword, std::size_t element);

/// What one keyword opens and another closes, or the end of the section.
struct DeckScope {
    std::uint32_t opener; ///< of the deck's keywords
    std::uint32_t around; ///< the scope around this one; `noIndex` if there is none
};

/// A deck as it was read. What was no keyword and no data (comments, blank lines, inclusions, skipped blocks,
/// unknown keywords) is in the texts of the files, between the ranges of the keywords.
struct DeckContents {
    DeckContents(const LanguageIndex& usedLanguage, std::size_t maxFindings)
        : language(usedLanguage)
        , findings(FindingCollector::Make(maxFindings))
    {
    }

    /// The keyword's name; of one that stands for many, as the deck has it.
    std::string NameOf(const KeywordInstance& keyword) const;
    /// "2024-04-01" for a keyword of SCHEDULE; empty for others, and if the deck has no date.
    std::string DateOf(const KeywordInstance& keyword) const;
    /// For which it was read.
    const Target& GetTarget() const { return options.GetTarget(); }

    const std::uint64_t id = MakeId(); ///< that no other contents in this process have, nor had
    const LanguageIndex& language;
    ReadOptions options = {}; ///< with which it was read; set at the end
    DeckFiles files;
    std::vector<KeywordInstance> keywords; ///< in the order of reading
    Core::Service::Time start; ///< undefined if the deck has none
    std::vector<ReportStep> steps; ///< in the order of reading
    std::vector<DeckScope> scopes; ///< in the order of their openers
    Findings findings; ///< in the order in which they were found
    std::size_t sections = 0; ///< different ones
    std::size_t distinctFiles = 0; ///< the deck itself included
    mutable KeywordNames names; ///< of the keywords, made when first asked for
    mutable RecordIndices recordIndices; ///< each made when first asked for

private:
    static std::uint64_t MakeId();
};

/// Reads a deck whole; what is wrong with it is among its findings. Throws `SourceError` if the deck itself
/// can't be read, `ReadCancelled` if it was cancelled; an included file that can't be read is a finding. The
/// language and its table must outlive the deck. Threads may read at once with one language.
std::unique_ptr<DeckContents> ReadDeck(
    const std::string& path, const ReadSettings& options, const LanguageIndex& language);

} // namespace Veld::Quor::Core::Decks
