#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/service/Time.h"

#include <cstddef>
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
};

/// All units of a deck. The keywords that advance the time are not among them: they make the steps.
std::map<Step, StepUnits> SplitDeck(const DeckContents& deck);

} // namespace Veld::Quor::Core::Decks
