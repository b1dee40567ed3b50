#pragma once

#include "quor/deck/internal/physics/Magnitudes.h"
#include "quor/deck/internal/physics/PhysicsFacts.h"
#include "quor/deck/internal/physics/RolePlans.h"
#include "quor/deck/internal/physics/WellLimits.h"
#include "quor/deck/internal/physics/Wells.h"

#include <optional>

namespace Veld::Quor::Core::Decks {

/// Follows a deck as it is read, and checks what physics says of its numbers. It knows what keywords and
/// items are, as documents of rules say, and no keyword by name.
class PhysicsChecks {
public:
    PhysicsChecks(const RuleSet& rules, const DeckContents& deck, const Dimensions& dimensions,
        FindingReporter& reporter, Keywords::SimulatorType::Enum simulator);

    /// Follows the last keyword of the deck. `isKnown`: its data are what its text says, without variables
    /// that have no value.
    void Follow(bool isKnown);
    /// A keyword of the deck was missed.
    void Lose() { facts_.Lose(); }
    void EndSection();

private:
    void AddKeyword(const KeywordRoles& roles);
    void FollowRecords(const RecordRoles& roles);
    bool ChangesActiveCells(const RecordRoles& roles);

    const DeckContents& deck_;
    Keywords::SimulatorType::Enum simulator_;
    RolePlans plans_;
    PhysicsFacts facts_;
    Magnitudes magnitudes_;
    std::optional<Wells> wells_; // once there is one
    WellLimits limits_;
    bool hasNewDepths_ = false; // of cells, that are not checked
};

} // namespace Veld::Quor::Core::Decks
