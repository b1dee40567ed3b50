// Part of the implementation of ValidityMDImpl and UnsupportedByMDImpl: hosts use IValidityMD and
// IUnsupportedByMD instead.

#pragma once

#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"

#include <cstdint>

namespace Veld::Quor::Core::Keywords {

/// One flag for each simulator and mode, in one word: four bits a simulator, the fourth for
/// `SimulatorModeType::Any`. A simulator is one of the ten that exist, never `SimulatorType::Any`.
class SimulatorModeFlags {
public:
    SimulatorModeFlags() = default;
    /// All flags are `value`, those of `SimulatorModeType::Any` too.
    explicit SimulatorModeFlags(bool value)
        : bits_(value ? all : 0)
    {
    }

    /// The flag of the mode. `SimulatorModeType::Any` asks whether one of the three modes is set; its own bit
    /// is never looked at.
    bool Get(SimulatorType::Enum simulator, SimulatorModeType::Enum mode) const
    {
        const std::uint64_t wanted = mode == SimulatorModeType::Any ? threeModes : std::uint64_t{1} << mode;
        return (bits_ >> Shift(simulator) & wanted) != 0;
    }
    /// Whether some flag is set, one of `SimulatorModeType::Any` too.
    bool Any() const { return bits_ != 0; }

    /// Writes that one flag; for `SimulatorModeType::Any` too it is only its own bit.
    void Set(SimulatorType::Enum simulator, SimulatorModeType::Enum mode, bool value)
    {
        const std::uint64_t bit = std::uint64_t{1} << (Shift(simulator) + mode);
        bits_ = value ? bits_ | bit : bits_ & ~bit;
    }
    /// Writes all flags of a simulator: bit `m` of `modes` is that of mode `m`.
    void SetModes(SimulatorType::Enum simulator, unsigned modes)
    {
        bits_ = (bits_ & ~(std::uint64_t{allModes} << Shift(simulator)))
            | std::uint64_t{modes} << Shift(simulator);
    }
    /// All flags at once.
    void Reset(bool value) { *this = SimulatorModeFlags(value); }

    /// The four bits of a simulator, for `SetModes`.
    static constexpr unsigned allModes = 0xF;

private:
    static constexpr int modeBits = 4;
    static constexpr std::uint64_t threeModes = 0x7;
    static constexpr std::uint64_t all = (std::uint64_t{1} << modeBits * SimulatorType::Count) - 1;
    static constexpr int Shift(SimulatorType::Enum simulator) { return modeBits * simulator; }

    std::uint64_t bits_ = 0;
};

} // namespace Veld::Quor::Core::Keywords
