#pragma once

#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IUnsupportedByMD.h"
#include "quor/metadata/IValidityMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <array>
#include <cstdint>

namespace Veld::Quor::Tools {

/// Modes by simulator: bit m of entry s is set for mode m of simulator s.
struct ModeTable : std::array<std::uint8_t, Core::Keywords::SimulatorType::Count> {
    std::uint8_t& operator[](Core::Keywords::SimulatorType::Enum simulator)
    {
        return at(static_cast<std::size_t>(simulator));
    }
    std::uint8_t operator[](Core::Keywords::SimulatorType::Enum simulator) const
    {
        return at(static_cast<std::size_t>(simulator));
    }
};

/// Each mode of each simulator.
ModeTable AllModes();
bool IsNone(const ModeTable& table);

/// Where a keyword is valid, in some section.
ModeTable ModesOf(const Core::Keywords::IKeywordSyntax& syntax);
/// Where an item of a record or a choice is valid.
ModeTable ModesOf(const Core::Keywords::IValidityMD& validity);
/// Who accepts it and does not act on it.
ModeTable ModesOf(const Core::Keywords::IUnsupportedByMD& unsupportedBy);
/// The whole simulators for which an assignment of a map is valid.
ModeTable ModesOf(const Core::Keywords::IKeywordAssignmentMD& assignment);

} // namespace Veld::Quor::Tools
