#include "quor/syntax/internal/SyntaxValidity.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/Tags.h"

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

constexpr unsigned allThree = Bit(SimulatorModeType::BlackOil) | Bit(SimulatorModeType::Compositional)
    | Bit(SimulatorModeType::Thermal);

/// What each simulator can run at all.
constexpr unsigned ModesOf(int simulator)
{
    switch (simulator) {
    case SimulatorType::Carrow:
        return Bit(SimulatorModeType::BlackOil);
    case SimulatorType::Sedge:
        return Bit(SimulatorModeType::BlackOil) | Bit(SimulatorModeType::Compositional);
    default:
        return allThree;
    }
}

// Wanted, here and in the two below: a name that is not known counts as row 0, and nobody is told.
SimulatorType::Enum ReadSimulatorName(const DOMElement& element)
{
    return SimulatorType::FromString(GetAttributeValue(&element, Tags::Name()));
}

SectionType::Enum ReadSectionName(const DOMElement& element)
{
    return SectionType::FromString(GetAttributeValue(&element, Tags::Name()));
}

SimulatorModeType::Enum ReadMode(const DOMElement& element)
{
    return SimulatorModeType::FromString(GetAttributeValue(&element, Tags::Value()));
}

bool IsFlagged(const DOMElement& element, const XMLCh* attribute)
{
    return GetAttributeValueEqual(&element, attribute, Tags::True());
}

using SimulatorFlags = std::bitset<SimulatorType::Count>;

/// An entry for `Wend` speaks for its two variants as well, unless it is marked for one of them.
template <class SetRow, class ClearRow>
void ApplyToVariants(const DOMElement& entry, SimulatorType::Enum row, SetRow set, ClearRow clear)
{
    set(row);
    if (row != SimulatorType::Wend)
        return;
    set(SimulatorType::Wend_GE);
    set(SimulatorType::Wend_CLASSIC);
    if (IsFlagged(entry, Tags::GridEditsOnly()))
        clear(SimulatorType::Wend_CLASSIC);
    if (IsFlagged(entry, Tags::ClassicOnly()))
        clear(SimulatorType::Wend_GE);
}

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
                ApplyToVariants(
                    child, ReadSimulatorName(child),
                    [&](int row) { flags.set(static_cast<std::size_t>(row)); },
                    [&](int row) { flags.reset(static_cast<std::size_t>(row)); });
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
    return any ? modes : allThree;
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
    const Work work = ReadSimulatorsAndOptions(elements);
    bool any = false;
    if (elements.sections) {
        for (const DOMElement& section : Descendants(*elements.sections, Tags::Section())) {
            any = true;
            ReadSection(section, work);
        }
    }
    if (any)
        return;
    for (int section = 0; section < SectionType::Count; ++section) {
        for (int simulator = 0; simulator < SimulatorType::Count; ++simulator)
            Set(SectionType::Enum(section), simulator, work[static_cast<std::size_t>(simulator)]);
    }
}

SyntaxValidity::Work SyntaxValidity::ReadSimulatorsAndOptions(const ValidityElements& elements)
{
    const SimulatorFlags simulators = ReadSimulators(elements.simulators);
    const Modes options = ReadOptions(elements.options);
    Work work{};
    for (std::size_t simulator = 0; simulator < work.size(); ++simulator) {
        if (!simulators[simulator])
            continue;
        const Modes modes = ModesOf(static_cast<int>(simulator));
        // A simulator that is listed, but has none of the listed modes, is valid in all of its own.
        work[simulator] = (modes & options) ? (modes & options) : modes;
    }
    return work;
}

void SyntaxValidity::ReadSection(const DOMElement& element, const Work& work)
{
    const SectionType::Enum section = ReadSectionName(element);
    const auto set = [&](int row) { Set(section, row, work[static_cast<std::size_t>(row)]); };
    if (!HasChildTagName(&element, Tags::Simulator())) {
        for (int row = 0; row < SimulatorType::Count; ++row)
            set(row);
        return;
    }
    for (const DOMElement& simulator : Descendants(element, Tags::Simulator()))
        ApplyToVariants(simulator, ReadSimulatorName(simulator), set, [&](int row) { Set(section, row, 0); });
}

void SyntaxValidity::Set(SectionType::Enum section, int simulator, Modes modes)
{
    std::uint64_t& bits = sections_[static_cast<std::size_t>(section)];
    bits = (bits & ~AllModesOf(simulator)) | (std::uint64_t{modes} << ShiftOf(simulator));
}

bool SyntaxValidity::IsValid(
    SectionType::Enum section, SimulatorType::Enum simulator, SimulatorModeType::Enum mode) const
{
    if (mode == SimulatorModeType::Any || section == SectionType::None)
        return IsValid(section, simulator);
    const auto isSet = [&](int row) {
        return (sections_[static_cast<std::size_t>(section)] >> ShiftOf(row) & Bit(mode)) != 0;
    };
    if (simulator != SimulatorType::Any)
        return isSet(simulator);
    for (int row = 0; row < SimulatorType::Count; ++row) {
        if (isSet(row))
            return true;
    }
    return false;
}

bool SyntaxValidity::IsValidSimulator(SimulatorType::Enum simulator) const
{
    return std::any_of(sections_.begin(), sections_.end(),
        [simulator](std::uint64_t bits) { return (bits & AllModesOf(simulator)) != 0; });
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
    for (int section = 0; section < SectionType::Count; ++section) {
        if (IsValid(SectionType::Enum(section), SimulatorType::Any))
            return SectionType::Enum(section);
    }
    return SectionType::None;
}

} // namespace Veld::Quor::Core::Keywords
