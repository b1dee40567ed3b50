#include "quor/deck/Target.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Keywords;

std::string NameOf(const Target& target)
{
    const std::string& simulator = SimulatorType::ToString(target.simulator);
    if (target.mode == SimulatorModeType::Any)
        return simulator;
    const std::string& mode = SimulatorModeType::ToString(target.mode);
    return simulator.empty() ? fmt::format("mode {}", mode) : fmt::format("{} in mode {}", simulator, mode);
}

} // namespace Veld::Quor::Core::Decks
