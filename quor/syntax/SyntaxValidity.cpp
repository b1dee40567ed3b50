#include "quor/syntax/internal/SyntaxValidity.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"

#include <algorithm>
#include <bitset>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML;
using namespace Service::XML::Internal;
using xercesc::DOMElement;

namespace {

constexpr unsigned Bit(SimulatorModeType::Enum mode)
{
    return 1U << mode;
}

constexpr unsigned threeModes = Bit(SimulatorModeType::BlackOil) | Bit(SimulatorModeType::Compositional)
    | Bit(SimulatorModeType::Thermal);

/// What each simulator can run at all.
unsigned ModesOf(SimulatorType::Enum simulator)
{
    unsigned modes = 0;
    for (const auto& mode : SimulatorModeType::EnumInfos()) {
        if (SimulatorType::HasMode(simulator, mode.value))
            modes |= Bit(mode.value);
    }
    return modes;
}

using SimulatorFlags = std::bitset<SimulatorType::Count>;

SimulatorFlags ReadSimulators(const DOMElement* element)
{
    SimulatorFlags flags;
    bool any = false;
    if (element) {
        for (const DOMElement& child : ChildElements(*element)) {
            if (!Is(child, Tags::Simulator()))
                continue;
            any = true; // an ignored entry too: a list of nothing else leaves no simulator
            if (!GetAttributeValueEqual(&child, Tags::SupportLevel(), Tags::Ignored()))
                ApplySimulatorEntry(
                    child, [&](SimulatorType::Enum row) { flags.set(static_cast<std::size_t>(row)); },
                    [&](SimulatorType::Enum row) { flags.reset(static_cast<std::size_t>(row)); });
        }
    }
    return any ? flags : flags.set();
}

unsigned ReadOptions(const DOMElement* element)
{
    unsigned modes = 0;
    bool any = false;
    if (element) {
        for (const DOMElement& child : ChildElements(*element)) {
            if (!Is(child, Tags::Option()))
                continue;
            any = true;
            modes |= Bit(ReadMode(child));
        }
    }
    return any ? modes : threeModes;
}

} // namespace

bool ValidityElements::Note(const DOMElement& child)
{
    if (Is(child, Tags::ValidSimulators()))
        simulators = &child;
    else if (Is(child, Tags::ValidOptions()))
        options = &child;
    else if (Is(child, Tags::ValidSections()))
        sections = &child;
    else
        return false;
    return true;
}

ValidityElements ValidityElements::Or(const ValidityElements& other) const
{
    return {simulators ? simulators : other.simulators, options ? options : other.options,
        sections ? sections : other.sections};
}

void SyntaxValidity::Read(const ValidityElements& elements)
{
    const Modes modes = ReadModes(elements);
    bool any = false;
    if (elements.sections) {
        for (const DOMElement& section : Descendants(*elements.sections, Tags::Section())) {
            any = true;
            ReadSection(section, modes);
        }
    }
    if (any)
        return;
    for (SimulatorModeFlags& flags : sections_) {
        for (int row = 0; row < SimulatorType::Count; ++row)
            flags.SetModes(SimulatorType::Enum(row), modes[static_cast<std::size_t>(row)]);
    }
}

SyntaxValidity::Modes SyntaxValidity::ReadModes(const ValidityElements& elements)
{
    const SimulatorFlags simulators = ReadSimulators(elements.simulators);
    const unsigned options = ReadOptions(elements.options);
    Modes modes{};
    for (std::size_t row = 0; row < modes.size(); ++row) {
        if (!simulators[row])
            continue;
        const unsigned own = ModesOf(SimulatorType::Enum(row));
        // A simulator that is listed, but has none of the listed modes, is valid in all of its own.
        modes[row] = (own & options) ? (own & options) : own;
    }
    return modes;
}

void SyntaxValidity::ReadSection(const DOMElement& element, const Modes& modes)
{
    SimulatorModeFlags& flags = sections_[static_cast<std::size_t>(Keywords::ReadSection(element))];
    const auto set = [&](SimulatorType::Enum row) {
        flags.SetModes(row, modes[static_cast<std::size_t>(row)]);
    };
    if (!HasChildTagName(&element, Tags::Simulator())) {
        for (int row = 0; row < SimulatorType::Count; ++row)
            set(SimulatorType::Enum(row));
        return;
    }
    for (const DOMElement& entry : Descendants(element, Tags::Simulator()))
        ApplySimulatorEntry(entry, set, [&](SimulatorType::Enum row) { flags.SetModes(row, 0); });
}

bool SyntaxValidity::IsValidForSome(const SimulatorModeFlags& flags, SimulatorModeType::Enum mode)
{
    if (mode == SimulatorModeType::Any)
        return flags.Any();
    for (int row = 0; row < SimulatorType::Count; ++row) {
        if (flags.Get(SimulatorType::Enum(row), mode))
            return true;
    }
    return false;
}

bool SyntaxValidity::IsValidSimulator(SimulatorType::Enum simulator) const
{
    return std::any_of(sections_.begin(), sections_.end(), [simulator](const SimulatorModeFlags& flags) {
        return flags.Get(simulator, SimulatorModeType::Any);
    });
}

std::vector<SimulatorType::Enum> SyntaxValidity::GetValidSimulators() const
{
    std::vector<SimulatorType::Enum> simulators;
    for (int row = 0; row < SimulatorType::Count; ++row) {
        if (IsValidSimulator(SimulatorType::Enum(row)))
            simulators.push_back(SimulatorType::Enum(row));
    }
    return simulators;
}

std::vector<SectionType::Enum> SyntaxValidity::GetValidSections() const
{
    std::vector<SectionType::Enum> sections;
    for (int section = 0; section < SectionType::Count; ++section) {
        if (IsValid(SectionType::Enum(section), SimulatorType::Any))
            sections.push_back(SectionType::Enum(section));
    }
    return sections;
}

SectionType::Enum SyntaxValidity::GetFirstValidSection() const
{
    const std::vector<SectionType::Enum> sections = GetValidSections();
    return sections.empty() ? SectionType::None : sections.front();
}

} // namespace Veld::Quor::Core::Keywords
