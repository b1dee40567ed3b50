#include "tools/quor/tree/ValidityTable.h"

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/syntax/KeywordSyntaxUtils.h"
#include "tools/quor/terminal/TextLayout.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
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

struct Row {
    SimulatorType::Enum simulator;
    std::string cells[SectionType::Count]; // letters of modes; empty: not valid

    bool IsEmpty() const
    {
        return std::all_of(
            std::begin(cells), std::end(cells), [](const std::string& cell) { return cell.empty(); });
    }
    bool IsFull() const
    {
        return std::all_of(std::begin(cells), std::end(cells),
            [this](const std::string& cell) { return cell == ModeCell(simulator); });
    }
};

std::vector<Row> MakeRows(const IKeywordSyntax& syntax, const std::string& spelling)
{
    std::vector<Row> rows;
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        Row& row = rows.emplace_back();
        row.simulator = simulator.value;
        for (int i = 0; i < SectionType::Count; ++i) {
            for (const auto& mode : SimulatorModeType::EnumInfos()) {
                const auto section = static_cast<SectionType::Enum>(i);
                if (KeywordSyntaxUtils::IsValid(syntax, spelling, section, simulator.value, mode.value))
                    row.cells[i] += LetterOf(mode.value);
            }
        }
    }
    return rows;
}

bool IsColumnEmpty(const std::vector<Row>& rows, int section)
{
    return std::all_of(
        rows.begin(), rows.end(), [section](const Row& row) { return row.cells[section].empty(); });
}

constexpr int simulatorWidth = 14;

/// A column of the table, as wide as its head.
std::string Cell(int section, const std::string& text)
{
    const std::string& head = SectionType::ToString(static_cast<SectionType::Enum>(section));
    return fmt::format("{:{}}", text, head.size() + 2);
}

std::string HeadLine(const std::vector<Row>& rows)
{
    std::string line = fmt::format("    {:{}}", "", simulatorWidth);
    for (int i = 0; i < SectionType::Count; ++i) {
        if (!IsColumnEmpty(rows, i))
            line += Cell(i, SectionType::ToString(static_cast<SectionType::Enum>(i)));
    }
    return TrimEnd(line);
}

std::string RowLine(const std::vector<Row>& rows, const Row& row)
{
    std::string line = fmt::format("    {:{}}", SimulatorType::ToString(row.simulator), simulatorWidth);
    for (int i = 0; i < SectionType::Count; ++i) {
        if (!IsColumnEmpty(rows, i))
            line += Cell(i, row.cells[i].empty() ? "-" : row.cells[i]);
    }
    return TrimEnd(line);
}

std::string Legend()
{
    std::string legend;
    for (const auto& mode : SimulatorModeType::EnumInfos())
        legend += fmt::format("{}{} {}", legend.empty() ? "" : ", ", LetterOf(mode.value), mode.text);
    return legend;
}

} // namespace

std::string ValidityText(const IKeywordSyntax& syntax, const std::string& spelling)
{
    const std::vector<Row> rows = MakeRows(syntax, spelling);
    if (std::all_of(rows.begin(), rows.end(), [](const Row& row) { return row.IsFull(); }))
        return "  valid: everywhere\n";
    if (std::all_of(rows.begin(), rows.end(), [](const Row& row) { return row.IsEmpty(); }))
        return "  valid: nowhere\n";
    std::string text = fmt::format("  valid ({}):\n{}\n", Legend(), HeadLine(rows));
    for (const Row& row : rows)
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
