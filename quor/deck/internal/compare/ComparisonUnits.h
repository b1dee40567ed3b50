#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Time.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What is compared with what: a keyword, or one record of a keyword whose records have identifiers.
struct ComparisonUnit {
    std::string key; ///< of units that are the same thing: the scopes around it, keyword, identifiers
    std::string name; ///< of the keyword
    std::string identity; ///< the identifiers for people; empty if there are none
    const KeywordInstance* keyword;
    const Core::Keywords::IKeywordData* data; ///< null if it has none
    TextRange range;
};

/// A part of a deck whose units are compared with those of the same part of another.
struct Step {
    Core::Keywords::SectionType::Enum section = Core::Keywords::SectionType::None;
    Core::Service::Time time; ///< of the report that was reached; undefined if the deck gives no date
    std::size_t number = 0; ///< of the report if its time is undefined; 0 before the first

    bool IsReport() const { return time.IsDef() || number > 0; }
    friend bool operator<(const Step& a, const Step& b)
    {
        return std::tie(a.section, a.time, a.number) < std::tie(b.section, b.time, b.number);
    }
};

struct StepUnits {
    std::vector<ComparisonUnit> units; ///< in the order of the deck
    TextRange range; ///< of the keyword that leads to the report
    std::vector<std::uint32_t> keywords; ///< of the deck's, in their order
    bool hasScopes = false; ///< some of them open scopes, or are in one
    bool isSame = false; ///< in the other deck
};

/// The steps of a deck, without their units.
std::map<Step, StepUnits> FindSteps(const DeckContents& deck);
/// Marks the steps whose keywords and data are the same in both decks, one by one: their units needn't be
/// made.
void MarkSame(const DeckContents& a, std::map<Step, StepUnits>& stepsOfA, const DeckContents& b,
    std::map<Step, StepUnits>& stepsOfB);
/// Makes the units of all other steps. The keywords that advance the time are not among them: they make the
/// steps.
void SplitSteps(const DeckContents& deck, std::map<Step, StepUnits>& steps);

} // namespace Veld::Quor::Core::Decks
