#pragma once

#include "quor/foundation/SimulatorType.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "tools/quor/tree/ModeTable.h"

#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace Veld::Quor::Tools {

/// Of a choice the word; `std::monostate` for a default that names no choice.
using Value = std::variant<std::monostate, bool, int, double, std::string>;

struct Default {
    enum class Type { None, Calculated, Specified };

    Type type = Type::None;
    Value value = {}; ///< if specified

    friend bool operator==(const Default&, const Default&) = default;
};

struct SimulatorDefault {
    Core::Keywords::SimulatorType::Enum simulator;
    bool isOfKeyword; ///< whether the keyword is valid for the simulator
    Default value;
    std::string overrideType; ///< empty: the document has no separate default for the simulator
};

struct Defaults {
    Default keyword; ///< of the keyword as a whole
    std::vector<SimulatorDefault> simulators; ///< those of the keyword and those with an override, ascending
};

/// The default of a scalar for one simulator, as a user writes it.
template <class MD>
Default DefaultOf(const MD& md, Core::Keywords::SimulatorType::Enum simulator)
{
    if (!md.IsDefaultSpecified(simulator))
        return {};
    const auto value = md.GetDefault(simulator);
    if (!value)
        return {Default::Type::Calculated};
    if constexpr (std::is_same_v<MD, Core::Keywords::IKeywordChoiceMD>)
        return {Default::Type::Specified,
            *value >= 0 && *value < md.NumChoices() ? Value(md.GetChoice(*value)) : Value()};
    else
        return {Default::Type::Specified, Value(*value)};
}

/// Those of a scalar in a keyword that is valid in `keyword`.
template <class MD>
Defaults DefaultsOf(const MD& md, const ModeTable& keyword)
{
    using Core::Keywords::SimulatorType;
    Defaults defaults = {DefaultOf(md, SimulatorType::Any), {}};
    for (const auto& row : SimulatorType::EnumInfos()) {
        const bool isOfKeyword = keyword[row.value] != 0;
        if (isOfKeyword || md.hasOverride(row.value))
            defaults.simulators.push_back(
                {row.value, isOfKeyword, DefaultOf(md, row.value), md.GetOverrideType(row.value)});
    }
    return defaults;
}

} // namespace Veld::Quor::Tools
