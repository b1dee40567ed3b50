#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/Deck.h"
#include "quor/foundation/service/Time.h"

namespace Veld::Quor::Core::Decks {

/// Follows the simulated time of a deck from keyword to keyword.
class TimeLine {
public:
    explicit TimeLine(FindingReporter& reporter)
        : reporter_(reporter)
    {
    }

    /// Reports dates that can't be, and times that don't go forward.
    void Follow(const DeckKeyword& keyword);
    /// Whether each element of the keyword's list is a step on.
    static bool Advances(const DeckKeyword& keyword);

    const Core::Service::Time& GetStart() const { return start_; }
    const Core::Service::Time& GetNow() const { return now_; }

private:
    void FollowStart(const DeckKeyword& keyword);
    void FollowDates(const DeckKeyword& keyword);
    void Advance(const DeckKeyword& keyword);

    FindingReporter& reporter_;
    Core::Service::Time start_; // undefined as long as the deck gives none
    Core::Service::Time now_;
    long long ticksPerUnit_ = 24LL * 3600 * Core::Service::Time::TicksPerSecond;
};

} // namespace Veld::Quor::Core::Decks
