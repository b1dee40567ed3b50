#include "quor/deck/Target.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Keywords;

std::string NameOf(const Target& target)
{
    const std::string& simulator = SimulatorType::ToString(target.simulator);
    if (target.mode == SimulatorModeType::Any)
        return simulator;
    return fmt::format("the mode {}{}", SimulatorModeType::ToString(target.mode),
        simulator.empty() ? "" : " of " + simulator);
}

} // namespace Veld::Quor::Core::Decks
