#pragma once

#include "quor/deck/Finding.h"
#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/Deck.h"
#include "quor/deck/internal/read/TimeLine.h"
#include "quor/foundation/service/Time.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// Follows the simulated time of a deck that was read, report by report. What is wrong with its dates was
/// reported when it was read.
class ReportSteps {
public:
    explicit ReportSteps(const DeckFiles& files)
        : findings_(0)
        , reporter_(files, findings_)
        , timeLine_(reporter_)
    {
    }

    /// The times of the reports that the keyword leads to. They are undefined as long as the deck gives no
    /// date.
    std::vector<Core::Service::Time> Follow(const DeckKeyword& keyword);

    const Core::Service::Time& GetStart() const { return timeLine_.GetStart(); }

private:
    Findings findings_;
    FindingReporter reporter_;
    TimeLine timeLine_;
};

/// "2030-01-31", with the time of day if that isn't midnight; empty for an undefined time.
std::string DateText(const Core::Service::Time& time);

} // namespace Veld::Quor::Core::Decks
