#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/service/xml/DomForward.h"

#include <array>
#include <cstdint>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// The elements of a document that say where a keyword is valid. A null one restricts nothing.
struct ValidityElements {
    const xercesc::DOMElement* simulators = nullptr;
    const xercesc::DOMElement* options = nullptr;
    const xercesc::DOMElement* sections = nullptr;

    /// Remembers `child` if it is one of the three, a later one in place of an earlier one; tells whether it
    /// was.
    bool Note(const xercesc::DOMElement& child);
    bool IsEmpty() const { return !simulators && !options && !sections; }
    /// These, and those of `other` where there is none.
    ValidityElements Or(const ValidityElements& other) const;
};

/// In which sections, by which simulators and in which modes a keyword may be used.
class SyntaxValidity {
public:
    /// Adds what the elements say; meant for a new object.
    void Read(const ValidityElements& elements);

    bool IsValid(SectionType::Enum section, SimulatorType::Enum simulator) const
    {
        if (section == SectionType::None)
            return false;
        const std::uint64_t bits = sections_[static_cast<std::size_t>(section)];
        return simulator == SimulatorType::Any ? bits != 0 : (bits & AllModesOf(simulator)) != 0;
    }
    bool IsValid(
        SectionType::Enum section, SimulatorType::Enum simulator, SimulatorModeType::Enum mode) const;
    bool IsValidSimulator(SimulatorType::Enum simulator) const;
    std::vector<SimulatorType::Enum> GetValidSimulators() const;
    std::vector<SectionType::Enum> GetValidSections() const;
    SectionType::Enum GetFirstValidSection() const;

private:
    // One word a section: four bits a simulator, one of them a mode. The fourth stays clear.
    static constexpr int modeBits = 4;
    static constexpr int ShiftOf(int simulator) { return modeBits * simulator; }
    static constexpr std::uint64_t AllModesOf(int simulator)
    {
        return std::uint64_t{0xF} << ShiftOf(simulator);
    }

    using Modes = unsigned; // the bits of one simulator
    using Work = std::array<Modes, SimulatorType::Count>;

    static Work ReadSimulatorsAndOptions(const ValidityElements& elements);
    void ReadSection(const xercesc::DOMElement& element, const Work& work);
    void Set(SectionType::Enum section, int simulator, Modes modes);

    std::array<std::uint64_t, SectionType::Count> sections_{};
};

} // namespace Veld::Quor::Core::Keywords
