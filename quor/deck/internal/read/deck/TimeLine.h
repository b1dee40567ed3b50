#pragma once

#include "quor/deck/internal/check/FindingReporter.h"
#include "quor/deck/internal/read/contents/DeckContents.h"
#include "quor/deck/internal/text/LanguageIndex.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/UnitSystem.h"
#include "quor/foundation/service/Time.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace Veld::Quor::Core::Decks {

/// Follows the simulated time of a deck as it is read: keeps its report steps with the deck, and reports
/// dates that can't be and times that don't go forward.
class TimeLine {
public:
    TimeLine(DeckContents& deck, FindingReporter& reporter, Core::Keywords::SimulatorType::Enum simulator)
        : deck_(deck)
        , reporter_(reporter)
        , simulator_(simulator)
    {
    }

    /// Follows the last keyword of the deck. One that isn't `isSound` makes report steps, as far as its data
    /// can be made out, but nothing is reported by it.
    void Follow(bool isSound);
    /// The report step in which a next keyword of `section` is; `noIndex` before the first of the section.
    std::uint32_t StepIn(Core::Keywords::SectionType::Enum section);

    /// Whether each element of the keyword's list is a step on. `roles`: of the keyword.
    static bool Advances(const KeywordInstance& keyword, const RolesOfKeyword& roles);

private:
    struct Clock {
        /// The time after a step; `isFromStart`: of the length that has passed since the start.
        Core::Service::Time After(double length, bool isFromStart) const;

        Core::Service::Time start; // undefined as long as the deck gives none
        Core::Service::Time now;
        long long ticksPerUnit = 24LL * 3600 * Core::Service::Time::TicksPerSecond;
    };

    void FollowStart(const KeywordInstance& keyword, bool isSound);
    TextRange FirstWordOf(const KeywordInstance& keyword) const;
    void FollowDates(const KeywordInstance& keyword, bool isSound);
    void FollowPeriods(const KeywordInstance& keyword, bool isFromStart, bool isSound);
    void CheckDate(const Core::Service::Time& time, const KeywordInstance& keyword, std::size_t record);
    void CheckPeriods(const KeywordInstance& keyword, bool isFromStart);
    void SetUnits(Core::Keywords::UnitSystem::Enum system, bool isSound);
    void Reach(const Core::Service::Time& time, std::size_t element);

    DeckContents& deck_;
    FindingReporter& reporter_;
    Core::Keywords::SimulatorType::Enum simulator_; // whose defaults stand for what a date leaves out
    Clock reached_; // by all keywords
    Clock sound_; // by those that are sound: what others say may be wrong
    Core::Keywords::SectionType::Enum section_ = Core::Keywords::SectionType::None;
    std::uint32_t step_ = noIndex;
};

} // namespace Veld::Quor::Core::Decks
