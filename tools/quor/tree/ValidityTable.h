#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <nlohmann/json_fwd.hpp>

#include <array>
#include <string>
#include <vector>

namespace Veld::Quor::Tools {

/// Where a keyword is valid for one simulator.
struct ValidityRow {
    Core::Keywords::SimulatorType::Enum simulator;
    /// By section: letters of modes; empty: not valid.
    std::array<std::string, Core::Keywords::SectionType::Count> cells;

    bool IsEmpty() const;
    /// In each section all modes of the simulator.
    bool IsFull() const;
};

/// A row for each simulator.
std::vector<ValidityRow> ValidityRows(
    const Core::Keywords::IKeywordSyntax& syntax, const std::string& spelling);
/// What the letters stand for: "B BlackOil, C Compositional".
std::string ModeLegend();

/// Where a keyword is valid under `spelling`: a line, or a table of simulators by sections with a letter for
/// each mode.
std::string ValidityText(const Core::Keywords::IKeywordSyntax& syntax, const std::string& spelling);

/// An object: section to simulator to modes.
nlohmann::ordered_json ValidityJson(
    const Core::Keywords::IKeywordSyntax& syntax, const std::string& spelling);

} // namespace Veld::Quor::Tools
