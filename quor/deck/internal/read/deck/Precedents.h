#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/contents/DeckContents.h"

#include <set>
#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Follows which keywords a deck has, and reports those that another one needs before it.
class Precedents {
public:
    explicit Precedents(FindingReporter& reporter)
        : reporter_(reporter)
    {
    }

    /// `isSure`: no keyword before it was missed. RUNSPEC has no order: its keywords are judged at its end.
    void Follow(const KeywordInstance& keyword, bool isSure);
    /// A section ends. `isSure`: no keyword in it was missed.
    void EndSection(bool isSure);
    /// From now on nothing is required in SCHEDULE: what comes before it is in another run.
    void SetRestarted() { isRestarted_ = true; }

private:
    /// A keyword of RUNSPEC.
    struct Pending {
        const Core::Keywords::IKeywordSyntax* syntax;
        TextRange name;
    };

    void Check(const Core::Keywords::IKeywordSyntax& syntax, Core::Keywords::SectionType::Enum section,
        const TextRange& name);

    FindingReporter& reporter_;
    std::vector<Pending> pending_;
    bool isRestarted_ = false;
    std::set<std::string> seen_; // names of the keywords so far, and of missing ones that were reported
};

} // namespace Veld::Quor::Core::Decks
