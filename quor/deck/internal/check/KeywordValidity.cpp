#include "quor/deck/internal/check/KeywordValidity.h"

#include "quor/syntax/KeywordSyntaxUtils.h"

#include <fmt/format.h>

#include <algorithm>

namespace Veld::Quor::Core::Decks {

using namespace Core::Keywords;

namespace {

using Simulator = SimulatorType::Enum;
using Mode = SimulatorModeType::Enum;

/// A name with several definitions is valid where any of them is.
bool IsValid(const Entry& entry, SectionType::Enum section, Simulator simulator, Mode mode)
{
    return std::any_of(entry.syntaxes.begin(), entry.syntaxes.end(), [&](const IKeywordSyntax* syntax) {
        return KeywordSyntaxUtils::IsValid(*syntax, entry.spelling, section, simulator, mode);
    });
}

std::vector<SectionType::Enum> ValidSections(const Entry& entry, Simulator simulator, Mode mode)
{
    std::vector<SectionType::Enum> sections;
    for (int i = 0; i < SectionType::Count; ++i) {
        const auto section = static_cast<SectionType::Enum>(i);
        if (IsValid(entry, section, simulator, mode))
            sections.push_back(section);
    }
    return sections;
}

bool IsValidIn(const Entry& entry, SectionType::Enum section, Simulator simulator, Mode mode)
{
    return section == SectionType::None ? !ValidSections(entry, simulator, mode).empty()
                                        : IsValid(entry, section, simulator, mode);
}

void Append(std::string& list, const std::string& name)
{
    list += list.empty() ? name : ", " + name;
}

std::string ListSections(const std::vector<SectionType::Enum>& sections)
{
    std::string list;
    for (const SectionType::Enum section : sections)
        Append(list, SectionType::ToString(section));
    return list;
}

std::string ListSimulators(const Entry& entry, SectionType::Enum section)
{
    std::string list;
    for (const auto& row : SimulatorType::EnumInfos()) {
        if (IsValidIn(entry, section, row.value, SimulatorModeType::Any))
            Append(list, row.text);
    }
    return list;
}

std::string ListModes(const Entry& entry, SectionType::Enum section, Simulator simulator)
{
    std::string list;
    for (const auto& row : SimulatorModeType::EnumInfos()) {
        if (IsValidIn(entry, section, simulator, row.value))
            Append(list, row.text);
    }
    return list;
}

Objection WrongSection(const Entry& entry, SectionType::Enum section, const std::string& where)
{
    return {Code::WrongSection,
        fmt::format("{} is not valid in {}; it is valid in {}", entry.spelling,
            SectionType::ToString(section), where),
        ""};
}

Objection WrongSimulator(const Entry& entry, SectionType::Enum section, Simulator simulator)
{
    return {Code::WrongSimulator,
        fmt::format("{} is not valid for {}", entry.spelling, SimulatorType::ToString(simulator)),
        fmt::format("it is valid for {}", ListSimulators(entry, section))};
}

Objection WrongMode(const Entry& entry, SectionType::Enum section, const Target& target)
{
    return {Code::WrongMode, fmt::format("{} is not valid in {}", entry.spelling, NameOf(target)),
        fmt::format("it is valid in {}", ListModes(entry, section, target.simulator))};
}

} // namespace

std::optional<Objection> FindObjection(const Entry& entry, SectionType::Enum section, const Target& target)
{
    constexpr Mode anyMode = SimulatorModeType::Any;
    if (IsValidIn(entry, section, target.simulator, target.mode))
        return std::nullopt;
    if (IsValidIn(entry, section, target.simulator, anyMode))
        return WrongMode(entry, section, target);

    const auto everywhere = ValidSections(entry, SimulatorType::Any, anyMode);
    if (everywhere.empty())
        return Objection{Code::WrongSection, fmt::format("{} is valid in no section", entry.spelling), ""};
    if (section != SectionType::None) {
        const auto ofSimulator = ValidSections(entry, target.simulator, anyMode);
        if (!ofSimulator.empty())
            return WrongSection(entry, section, ListSections(ofSimulator));
        if (!IsValid(entry, section, SimulatorType::Any, anyMode))
            return WrongSection(entry, section, ListSections(everywhere));
    }
    return WrongSimulator(entry, section, target.simulator);
}

bool IsValidInAllSections(const Entry& entry)
{
    return ValidSections(entry, SimulatorType::Any, SimulatorModeType::Any).size() == SectionType::Count;
}

SectionType::Enum FindOnlySection(const Entry& entry, const Target& target)
{
    const auto sections = ValidSections(entry, target.simulator, SimulatorModeType::Any);
    return sections.size() == 1 ? sections.front() : SectionType::None;
}

} // namespace Veld::Quor::Core::Decks
