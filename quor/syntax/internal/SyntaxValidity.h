#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeFlags.h"
#include "quor/foundation/internal/DocumentTree.h"
#include "quor/syntax/internal/ValidityFacts.h"

#include <array>
#include <vector>

namespace Veld::Quor::Core::Keywords {

/// The elements of a document that say where a keyword is valid. A null one restricts nothing.
struct ValidityElements {
    Service::XML::Internal::TreeElement simulators;
    Service::XML::Internal::TreeElement options;
    Service::XML::Internal::TreeElement sections;

    /// Remembers `child` if it is one of the three, a later one in place of an earlier one; returns whether
    /// it was.
    bool Note(const Service::XML::Internal::TreeElement& child);
    bool IsEmpty() const { return !simulators && !options && !sections; }
    /// These, and those of `other` where there is none.
    ValidityElements Or(const ValidityElements& other) const;
    ValidityFacts ReadFacts() const;
};

/// In which sections, by which simulators and in which modes a keyword may be used. Exported for those who
/// read documents in their own way.
class VELD_QUOR_EXPORT SyntaxValidity {
public:
    /// Adds what a document says; meant for a new object. Exported for those who read documents in their own
    /// way.
    void Set(const ValidityFacts& facts);

    /// In the mode, or in some mode. `SimulatorType::Any` asks for some simulator; no section is valid for
    /// nobody.
    bool IsValid(SectionType::Enum section, SimulatorType::Enum simulator,
        SimulatorModeType::Enum mode = SimulatorModeType::Any) const
    {
        if (section == SectionType::None)
            return false;
        const SimulatorModeFlags& flags = sections_[static_cast<std::size_t>(section)];
        return simulator == SimulatorType::Any ? IsValidForSome(flags, mode) : flags.Get(simulator, mode);
    }
    bool IsValidSimulator(SimulatorType::Enum simulator) const;
    std::vector<SimulatorType::Enum> GetValidSimulators() const;
    std::vector<SectionType::Enum> GetValidSections() const;
    SectionType::Enum GetFirstValidSection() const;

private:
    using Modes = std::array<unsigned, SimulatorType::Count>; // bit m of a simulator: mode m

    static bool IsValidForSome(const SimulatorModeFlags& flags, SimulatorModeType::Enum mode);
    static Modes MakeModes(const ValidityFacts& facts);
    void SetSection(const ValidityFacts::Section& section, const Modes& modes);

    std::array<SimulatorModeFlags, SectionType::Count> sections_;
};

} // namespace Veld::Quor::Core::Keywords
