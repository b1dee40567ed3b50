#include "tools/quor/tree/ModeTable.h"

#include "quor/syntax/KeywordSyntaxUtils.h"

#include <algorithm>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

/// `holds` says it of one simulator and mode.
template <class Holds>
ModeTable MakeModeTable(Holds holds)
{
    ModeTable table{};
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        for (const auto& mode : SimulatorModeType::EnumInfos()) {
            if (holds(simulator.value, mode.value))
                table[simulator.value] |= static_cast<std::uint8_t>(1U << mode.value);
        }
    }
    return table;
}

} // namespace

ModeTable AllModes()
{
    ModeTable table;
    table.fill((1U << SimulatorModeType::Count) - 1);
    return table;
}

bool IsNone(const ModeTable& table)
{
    return std::all_of(table.begin(), table.end(), [](std::uint8_t modes) { return modes == 0; });
}

ModeTable ModesOf(const IKeywordSyntax& syntax)
{
    const auto sections = syntax.GetValidSections();
    return MakeModeTable([&](SimulatorType::Enum simulator, SimulatorModeType::Enum mode) {
        return std::any_of(sections.begin(), sections.end(), [&](SectionType::Enum section) {
            return KeywordSyntaxUtils::IsValid(syntax, syntax.GetName(), section, simulator, mode);
        });
    });
}

ModeTable ModesOf(const IValidityMD& validity)
{
    return MakeModeTable([&validity](SimulatorType::Enum simulator, SimulatorModeType::Enum mode) {
        return validity.IsValid(simulator, mode);
    });
}

ModeTable ModesOf(const IUnsupportedByMD& unsupportedBy)
{
    return MakeModeTable([&unsupportedBy](SimulatorType::Enum simulator, SimulatorModeType::Enum mode) {
        return unsupportedBy.IsUnsupportedBy(simulator, mode);
    });
}

ModeTable ModesOf(const IKeywordAssignmentMD& assignment)
{
    return MakeModeTable([&assignment](SimulatorType::Enum simulator, SimulatorModeType::Enum) {
        return assignment.IsValid(simulator);
    });
}

} // namespace Veld::Quor::Tools
