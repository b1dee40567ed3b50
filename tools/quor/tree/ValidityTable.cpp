#include "tools/quor/tree/ValidityTable.h"

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/syntax/KeywordSyntaxUtils.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

char LetterOf(SimulatorModeType::Enum mode)
{
    return SimulatorModeType::ToString(mode).front();
}

/// The modes that the simulator has at all, by letter.
std::string ModeCell(SimulatorType::Enum simulator)
{
    std::string letters;
    for (const auto& mode : SimulatorModeType::EnumInfos()) {
        if (SimulatorType::HasMode(simulator, mode.value))
            letters += LetterOf(mode.value);
    }
    return letters;
}

bool IsColumnEmpty(const std::vector<ValidityRow>& rows, std::size_t section)
{
    return std::all_of(rows.begin(), rows.end(),
        [section](const ValidityRow& row) { return row.cells.at(section).empty(); });
}

constexpr int simulatorWidth = 14;

/// A column of the table, as wide as its head.
std::string Cell(std::size_t section, const std::string& text)
{
    const std::string& head = SectionType::ToString(static_cast<SectionType::Enum>(section));
    return fmt::format("{:{}}", text, head.size() + 2);
}

std::string HeadLine(const std::vector<ValidityRow>& rows)
{
    std::string line = fmt::format("    {:{}}", "", simulatorWidth);
    for (std::size_t i = 0; i < SectionType::Count; ++i) {
        if (!IsColumnEmpty(rows, i))
            line += Cell(i, SectionType::ToString(static_cast<SectionType::Enum>(i)));
    }
    return TrimEnd(line);
}

std::string RowLine(const std::vector<ValidityRow>& rows, const ValidityRow& row)
{
    std::string line = fmt::format("    {:{}}", SimulatorType::ToString(row.simulator), simulatorWidth);
    for (std::size_t i = 0; i < SectionType::Count; ++i) {
        if (!IsColumnEmpty(rows, i))
            line += Cell(i, row.cells.at(i).empty() ? "-" : row.cells.at(i));
    }
    return TrimEnd(line);
}

} // namespace

bool ValidityRow::IsEmpty() const
{
    return std::all_of(cells.begin(), cells.end(), [](const std::string& cell) { return cell.empty(); });
}

bool ValidityRow::IsFull() const
{
    return std::all_of(
        cells.begin(), cells.end(), [this](const std::string& cell) { return cell == ModeCell(simulator); });
}

std::vector<ValidityRow> ValidityRows(const IKeywordSyntax& syntax, const std::string& spelling)
{
    std::vector<ValidityRow> rows;
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        ValidityRow& row = rows.emplace_back();
        row.simulator = simulator.value;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            for (const auto& mode : SimulatorModeType::EnumInfos()) {
                const auto section = static_cast<SectionType::Enum>(i);
                if (KeywordSyntaxUtils::IsValid(syntax, spelling, section, simulator.value, mode.value))
                    row.cells.at(i) += LetterOf(mode.value);
            }
        }
    }
    return rows;
}

std::string ModeLegend()
{
    std::string legend;
    for (const auto& mode : SimulatorModeType::EnumInfos())
        legend += fmt::format("{}{} {}", legend.empty() ? "" : ", ", LetterOf(mode.value), mode.text);
    return legend;
}

std::string ValidityText(const IKeywordSyntax& syntax, const std::string& spelling)
{
    const std::vector<ValidityRow> rows = ValidityRows(syntax, spelling);
    if (std::all_of(rows.begin(), rows.end(), [](const ValidityRow& row) { return row.IsFull(); }))
        return "  valid: everywhere\n";
    if (std::all_of(rows.begin(), rows.end(), [](const ValidityRow& row) { return row.IsEmpty(); }))
        return "  valid: nowhere\n";
    std::string text = fmt::format("  valid ({}):\n{}\n", ModeLegend(), HeadLine(rows));
    for (const ValidityRow& row : rows)
        text += RowLine(rows, row) + '\n';
    return text;
}

nlohmann::ordered_json ValidityJson(const IKeywordSyntax& syntax, const std::string& spelling)
{
    auto validity = nlohmann::ordered_json::object();
    for (int i = 0; i < SectionType::Count; ++i) {
        const auto section = static_cast<SectionType::Enum>(i);
        for (const auto& simulator : SimulatorType::EnumInfos()) {
            for (const auto& mode : SimulatorModeType::EnumInfos()) {
                if (KeywordSyntaxUtils::IsValid(syntax, spelling, section, simulator.value, mode.value))
                    validity[SectionType::ToString(section)][simulator.text].push_back(mode.text);
            }
        }
    }
    return validity;
}

} // namespace Veld::Quor::Tools
