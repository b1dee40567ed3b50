#include "quor/syntax/internal/SyntaxValidity.h"

#include "quor/foundation/internal/DocumentWalk.h"
#include "quor/foundation/internal/DocumentWords.h"

#include <algorithm>
#include <bitset>
#include <iterator>

namespace Veld::Quor::Core::Keywords {

using namespace Service::XML::Internal;

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

SimulatorFlags FlagsOf(const std::optional<ValidityFacts::Entries>& entries)
{
    SimulatorFlags flags;
    if (!entries)
        return flags.set();
    for (const SimulatorEntry& entry : *entries)
        ApplySimulatorEntry(
            entry, [&](SimulatorType::Enum row) { flags.set(static_cast<std::size_t>(row)); },
            [&](SimulatorType::Enum row) { flags.reset(static_cast<std::size_t>(row)); });
    return flags;
}

unsigned FlagsOf(const std::optional<std::vector<SimulatorModeType::Enum>>& modes)
{
    if (!modes)
        return threeModes;
    unsigned flags = 0;
    for (const SimulatorModeType::Enum mode : *modes)
        flags |= Bit(mode);
    return flags;
}

/// Of a list of nothing but entries that ignore the keyword an empty one is left.
std::optional<ValidityFacts::Entries> ReadSimulators(const TreeElement& element)
{
    std::optional<ValidityFacts::Entries> entries;
    if (!element)
        return entries;
    for (const TreeElement child : ChildElements(element)) {
        if (!child.Is(Tag::Simulator))
            continue;
        if (!entries)
            entries.emplace();
        if (!child.Says(Tag::SupportLevel, Tag::Ignored))
            entries->push_back(ReadSimulatorEntry(child));
    }
    return entries;
}

std::optional<std::vector<SimulatorModeType::Enum>> ReadModes(const TreeElement& element)
{
    std::optional<std::vector<SimulatorModeType::Enum>> modes;
    if (!element)
        return modes;
    for (const TreeElement child : ChildElements(element)) {
        if (!child.Is(Tag::Option))
            continue;
        if (!modes)
            modes.emplace();
        modes->push_back(ReadMode(child));
    }
    return modes;
}

ValidityFacts::Section ReadSectionFacts(const TreeElement& element)
{
    ValidityFacts::Section section = {ReadSection(element), std::nullopt};
    if (!element.HasChild(Tag::Simulator))
        return section;
    section.simulators.emplace();
    for (const TreeElement entry : Descendants(element, Tag::Simulator))
        section.simulators->push_back(ReadSimulatorEntry(entry));
    return section;
}

} // namespace

bool ValidityElements::Note(const TreeElement& child)
{
    if (child.Is(Tag::ValidSimulators))
        simulators = child;
    else if (child.Is(Tag::ValidOptions))
        options = child;
    else if (child.Is(Tag::ValidSections))
        sections = child;
    else
        return false;
    return true;
}

ValidityElements ValidityElements::Or(const ValidityElements& other) const
{
    return {simulators ? simulators : other.simulators, options ? options : other.options,
        sections ? sections : other.sections};
}

ValidityFacts ValidityElements::ReadFacts() const
{
    ValidityFacts facts = {ReadSimulators(simulators), ReadModes(options), {}};
    if (sections) {
        for (const TreeElement section : Descendants(sections, Tag::Section))
            facts.sections.push_back(ReadSectionFacts(section));
    }
    return facts;
}

void SyntaxValidity::Set(const ValidityFacts& facts)
{
    const Modes modes = MakeModes(facts);
    for (const ValidityFacts::Section& section : facts.sections)
        SetSection(section, modes);
    if (!facts.sections.empty())
        return;
    for (SimulatorModeFlags& flags : sections_) {
        for (int row = 0; row < SimulatorType::Count; ++row)
            flags.SetModes(SimulatorType::Enum(row), modes[static_cast<std::size_t>(row)]);
    }
}

SyntaxValidity::Modes SyntaxValidity::MakeModes(const ValidityFacts& facts)
{
    const SimulatorFlags simulators = FlagsOf(facts.simulators);
    const unsigned options = FlagsOf(facts.modes);
    Modes modes{};
    for (std::size_t row = 0; row < modes.size(); ++row) {
        if (!simulators[row])
            continue;
        const unsigned own = ModesOf(SimulatorType::Enum(row));
        // A simulator that is listed, but has none of the listed modes, is valid in all its modes.
        modes[row] = (own & options) ? (own & options) : own;
    }
    return modes;
}

void SyntaxValidity::SetSection(const ValidityFacts::Section& section, const Modes& modes)
{
    SimulatorModeFlags& flags = sections_[static_cast<std::size_t>(section.section)];
    const auto set = [&](SimulatorType::Enum row) {
        flags.SetModes(row, modes[static_cast<std::size_t>(row)]);
    };
    if (!section.simulators) {
        for (int row = 0; row < SimulatorType::Count; ++row)
            set(SimulatorType::Enum(row));
        return;
    }
    for (const SimulatorEntry& entry : *section.simulators)
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
    const auto first = std::find_if(
        sections_.begin(), sections_.end(), [](const SimulatorModeFlags& flags) { return flags.Any(); });
    return first == sections_.end() ? SectionType::None
                                    : SectionType::Enum(std::distance(sections_.begin(), first));
}

} // namespace Veld::Quor::Core::Keywords
