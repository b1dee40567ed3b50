#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/DeckContents.h"

#include <set>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Follows which keywords a deck has, and reports those that another one needs before it.
class Precedents {
public:
    explicit Precedents(FindingReporter& reporter)
        : reporter_(reporter)
    {
    }

    /// `isSure`: no keyword before it was missed.
    void Follow(const KeywordInstance& keyword, bool isSure);

private:
    void Check(const KeywordInstance& keyword);

    FindingReporter& reporter_;
    std::set<std::string> seen_; // names of the keywords so far, and of missing ones that were reported
};

} // namespace Veld::Quor::Core::Decks
