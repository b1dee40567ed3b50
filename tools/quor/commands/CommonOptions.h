#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/UnitSystem.h"
#include "tools/quor/tree/MetadataFacts.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace Veld::Quor::Tools {

/// Each adds an option that takes the words of an enumeration, in any case, and refuses others. `set` is
/// called with the value.
void AddSectionOption(CLI::App& command, const std::function<void(Core::Keywords::SectionType::Enum)>& set,
    const char* description = "Section of the deck");
void AddSimulatorOption(CLI::App& command,
    const std::function<void(Core::Keywords::SimulatorType::Enum)>& set, const char* name = "--simulator",
    const char* description = "Simulator that runs the deck");
void AddModeOption(CLI::App& command, const std::function<void(Core::Keywords::SimulatorModeType::Enum)>& set,
    const char* name = "--mode", const char* description = "Mode of the simulator");

void AddUnitsOption(
    CLI::App& command, std::optional<Core::Keywords::UnitSystem::Enum>& value, const char* description);

/// What sets a value, which must outlive the application.
template <class T>
std::function<void(T)> Into(T& value)
{
    return [&value](T word) { value = word; };
}

/// The type of the values, as `ValueTypeOf` tells it.
void AddTypeOption(CLI::App& command, std::optional<MDType::Enum>& value);

/// A whole number, 0 or more; the help has the value without the option.
void AddCountOption(CLI::App& command, const std::string& name, const std::string& description,
    std::size_t without, const std::function<void(std::size_t)>& set);

/// `isJson` becomes true for `--format json`.
void AddFormatOption(CLI::App& command, bool& isJson);

} // namespace Veld::Quor::Tools
