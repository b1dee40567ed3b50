#pragma once

#include "quor/foundation/service/Time.h"
#include "tools/deck/Deck.h"
#include "tools/deck/Finding.h"
#include "tools/deck/Teller.h"
#include "tools/deck/TimeLine.h"

#include <string>
#include <vector>

namespace Veld::Quor::Tools::Deck {

/// Follows the simulated time of a deck that was read, report by report. What is wrong with its dates was
/// told when it was read.
class ReportSteps {
public:
    explicit ReportSteps(const DeckFiles& files)
        : findings_(0)
        , teller_(files, findings_)
        , timeLine_(teller_)
    {
    }

    /// The times of the reports that the keyword leads to. They are undefined as long as the deck gives no
    /// date.
    std::vector<Core::Service::Time> Follow(const DeckKeyword& keyword);

    const Core::Service::Time& GetStart() const { return timeLine_.GetStart(); }

private:
    Findings findings_;
    Teller teller_;
    TimeLine timeLine_;
};

/// "2030-01-31", with the time of day if that isn't midnight; empty for an undefined time.
std::string DateText(const Core::Service::Time& time);

} // namespace Veld::Quor::Tools::Deck
