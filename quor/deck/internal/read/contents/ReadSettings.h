#pragma once

#include "quor/data/PathAliases.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/ReadOptions.h"
#include "quor/deck/Target.h"
#include "quor/deck/internal/check/CodeChoices.h"
#include "quor/deck/internal/read/words/VariableValues.h"

#include <cstddef>
#include <memory>

namespace Veld::Quor::Core::Decks {

/// What `ReadOptions` holds.
struct ReadSettings {
    Target target;
    std::size_t maxFindings = 200;
    std::size_t maxRepeatedValues = 50'000'000;
    ReadProgress progress = {};
    VariableTexts variables = {}; ///< what the variables of the deck stand for
    bool keepsValueRanges = false; ///< whether the notes of each keyword get the ranges of its values
    bool isStrict = false; ///< whether findings of strict codes are reported
    CodeChoices codes = {};
    Keywords::PathAliases aliases = {}; ///< that the deck has before its first PATHS
    bool isConfined = false; ///< whether files outside the folder of the deck are not read
    bool isOutsideTextShown = true; ///< whether findings quote them
    /// Of which the text is a part; `None`: it is a whole deck.
    Keywords::SectionType::Enum section = Keywords::SectionType::None;
    KnownFinding isKnown = {};
    ReportedFile isReported = {}; ///< empty: findings in all files are reported
    std::shared_ptr<const DeckSource> source = {}; ///< null: the files of the system
    ReadCancellation isCancelled = {}; ///< asked now and then; once it is true the read ends
};

} // namespace Veld::Quor::Core::Decks
