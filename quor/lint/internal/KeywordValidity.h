#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/lint/Document.h"
#include "quor/syntax/internal/ValidityFacts.h"

#include <bitset>
#include <cstddef>
#include <vector>

namespace Veld::Quor::Core::Lint {

using Core::Keywords::SectionType;
using Core::Keywords::SimulatorEntry;
using Core::Keywords::SimulatorModeType;
using Core::Keywords::SimulatorType;
using Core::Keywords::ValidityFacts;

constexpr std::size_t simulatorCount = SimulatorType::Count;
constexpr std::size_t modeCount = SimulatorModeType::Any;
constexpr std::size_t sectionCount = SectionType::Count;
constexpr std::size_t runCount = simulatorCount * modeCount;

using Simulators = std::bitset<simulatorCount>;
/// A bit for each mode of each simulator.
using Runs = std::bitset<runCount>;
/// A bit for each section in each run.
using Cells = std::bitset<runCount * sectionCount>;

inline std::size_t RunOf(std::size_t simulator, std::size_t mode)
{
    return simulator * modeCount + mode;
}

/// The elements that restrict a keyword or an alias; null: no restriction.
struct ValidityElements {
    const Element* simulators = nullptr;
    const Element* options = nullptr;
    const Element* sections = nullptr;

    /// Keeps the child if it is one of the three.
    bool Note(const Element& child);
    bool IsEmpty() const { return !simulators && !options && !sections; }
    ValidityElements Or(const ValidityElements& other) const;
    ValidityFacts ReadFacts() const;
};

/// Where a keyword, or an alias, may be used: what the loader makes of the elements.
struct KeywordValidity {
    explicit KeywordValidity(const ValidityElements& elements);

    Cells cells;
    Simulators modeless; ///< that have none of the listed modes, and are valid in all their modes

    /// The runs in some section.
    Runs GetRuns() const;
    bool IsValidFor(SimulatorType::Enum simulator) const;

private:
    void FindModeless(const ValidityFacts& facts);
};

/// The runs for which an item or a choice is valid.
Runs ReadItemRuns(const Element& validity);

/// "A, B and C", of those that are set.
std::string ListSimulators(const Simulators& simulators);

} // namespace Veld::Quor::Core::Lint
