#pragma once

#include "quor/foundation/service/Time.h"
#include "tools/deck/Deck.h"
#include "tools/deck/Teller.h"

namespace Veld::Quor::Tools::Deck {

/// Follows the simulated time of a deck from keyword to keyword.
class TimeLine {
public:
    explicit TimeLine(Teller& teller)
        : teller_(teller)
    {
    }

    /// Tells dates that can't be, and times that don't go forward.
    void Follow(const DeckKeyword& keyword);
    /// Whether each element of the keyword's list is a step on.
    static bool Advances(const DeckKeyword& keyword);

    const Core::Service::Time& GetStart() const { return start_; }
    const Core::Service::Time& GetNow() const { return now_; }

private:
    void FollowStart(const DeckKeyword& keyword);
    void FollowDates(const DeckKeyword& keyword);
    void Advance(const DeckKeyword& keyword);

    Teller& teller_;
    Core::Service::Time start_; // undefined as long as the deck gives none
    Core::Service::Time now_;
    long long ticksPerUnit_ = 24LL * 3600 * Core::Service::Time::TicksPerSecond;
};

} // namespace Veld::Quor::Tools::Deck
