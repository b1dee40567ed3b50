#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "tools/quor/KeywordTree.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// Each adds an option that takes the words of an enumeration, in any case, and refuses others. `value` keeps
/// what it holds if the option isn't given, and must outlive the application.
void AddSectionOption(CLI::App& command, Core::Keywords::SectionType::Enum& value);
void AddSimulatorOption(CLI::App& command, Core::Keywords::SimulatorType::Enum& value,
    const char* name = "--simulator", const char* description = "Simulator that runs the deck");
void AddModeOption(CLI::App& command, Core::Keywords::SimulatorModeType::Enum& value,
    const char* name = "--mode", const char* description = "Mode of the simulator");

/// The type of the values, as `ValueTypeOf` tells it.
void AddTypeOption(CLI::App& command, std::optional<MDType::Enum>& value);

/// `isJson` becomes true for `--format json`.
void AddFormatOption(CLI::App& command, bool& isJson);

} // namespace Veld::Quor::Tools
