#include "quor/deck/internal/check/KeywordValidity.h"

#include <fmt/format.h>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

void Append(std::string& list, const std::string& name)
{
    list += list.empty() ? name : ", " + name;
}

std::string ListSections(const SectionSet& sections)
{
    std::string list;
    for (int i = 0; i < SectionType::Count; ++i) {
        const auto section = static_cast<SectionType::Enum>(i);
        if (sections.Allows(section))
            Append(list, SectionType::ToString(section));
    }
    return list;
}

bool IsValidFor(const Target& target, const Entry& entry, SectionType::Enum section)
{
    return FindValidSections(entry.syntaxes, entry.spelling, target).Allows(section);
}

std::string ListSimulators(const Entry& entry, SectionType::Enum section)
{
    std::string list;
    for (const auto& row : SimulatorType::EnumInfos()) {
        if (IsValidFor({row.value}, entry, section))
            Append(list, row.text);
    }
    return list;
}

std::string ListModes(const Entry& entry, SectionType::Enum section, SimulatorType::Enum simulator)
{
    std::string list;
    for (const auto& row : SimulatorModeType::EnumInfos()) {
        if (IsValidFor({simulator, row.value}, entry, section))
            Append(list, row.text);
    }
    return list;
}

Objection WrongSection(const Entry& entry, SectionType::Enum section, const SectionSet& valid)
{
    return {Code::WrongSection,
        fmt::format("{} is not valid in section {} (valid in {})", entry.spelling,
            SectionType::ToString(section), ListSections(valid)),
        ""};
}

Objection WrongSimulator(const Entry& entry, SectionType::Enum section, SimulatorType::Enum simulator)
{
    return {Code::WrongSimulator,
        fmt::format("{} is not valid for {}", entry.spelling, SimulatorType::ToString(simulator)),
        fmt::format("valid simulators: {}", ListSimulators(entry, section))};
}

Objection WrongMode(const Entry& entry, SectionType::Enum section, const Target& target)
{
    return {Code::WrongMode, fmt::format("{} is not valid for {}", entry.spelling, NameOf(target)),
        fmt::format("valid modes: {}", ListModes(entry, section, target.simulator))};
}

} // namespace

std::optional<Objection> FindObjection(const Entry& entry, SectionType::Enum section, const Target& target)
{
    const ValidSections& valid = entry.valid;
    if (valid.ofTarget.Allows(section))
        return std::nullopt;
    if (valid.ofSimulator.Allows(section))
        return WrongMode(entry, section, target);
    if (valid.ofAny.IsEmpty())
        return Objection{
            Code::WrongSection, fmt::format("{} is not valid in any section", entry.spelling), ""};
    if (section != SectionType::None) {
        if (!valid.ofSimulator.IsEmpty())
            return WrongSection(entry, section, valid.ofSimulator);
        if (!valid.ofAny.Allows(section))
            return WrongSection(entry, section, valid.ofAny);
    }
    return WrongSimulator(entry, section, target.simulator);
}

} // namespace Veld::Quor::Core::Decks
