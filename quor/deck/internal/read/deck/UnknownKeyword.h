#pragma once

#include "quor/deck/TextRange.h"
#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/text/Vocabulary.h"
#include "quor/foundation/SectionType.h"

#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// The keyword that a word which is none is a misspelling of: the only one that it differs from by one letter
/// and that may be in the section. Null if there is none.
const Entry* FindMeantKeyword(
    const std::string& word, Core::Keywords::SectionType::Enum section, Vocabulary& vocabulary);

/// The same for the first word of a deck: the section that decks begin with, whatever else is near.
const Entry* FindMeantStart(std::string_view word, Vocabulary& vocabulary);

/// Reports a word that is no keyword. The keyword that was meant, if one is nearer than all others and ends
/// neither the deck nor a file; else null.
const Entry* ReportUnknownKeyword(const TextRange& range, std::string_view word,
    Core::Keywords::SectionType::Enum section, Vocabulary& vocabulary, FindingReporter& reporter);

} // namespace Veld::Quor::Core::Decks
