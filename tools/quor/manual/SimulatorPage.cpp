#include "quor/metadata/VisitMD.h"
#include "quor/syntax/KeywordSyntaxUtils.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/manual/IndexPages.h"
#include "tools/quor/tree/ModeTable.h"
#include "tools/quor/tree/ModeWords.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <string>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

/// The family of a variant: "Wend" of "Wend_GE".
std::string FamilyOf(SimulatorType::Enum simulator)
{
    const std::string& name = SimulatorType::ToString(simulator);
    return name.substr(0, name.find('_'));
}

/// Whether the simulator has it, and no other of another family.
bool IsOnlyOf(const ModeTable& table, SimulatorType::Enum simulator)
{
    return table[simulator] != 0
        && std::all_of(
            SimulatorType::EnumInfos().begin(), SimulatorType::EnumInfos().end(), [&](const auto& row) {
                return table[row.value] == 0 || FamilyOf(row.value) == FamilyOf(simulator);
            });
}

ModeTable Both(const ModeTable& a, const ModeTable& b)
{
    ModeTable table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table.at(i) = static_cast<std::uint8_t>(a.at(i) & b.at(i));
    return table;
}

/// Collects what of a keyword's data only one simulator has.
struct OwnParts {
    SimulatorType::Enum simulator;
    ModeTable keyword; ///< where the keyword is valid
    std::vector<std::string> words = {};

    bool IsOwn(const IValidityMD& validity) const
    {
        return IsOnlyOf(Both(ModesOf(validity), keyword), simulator);
    }
    void Add(const IKeywordDataMD& md)
    {
        VisitMD(md,
            Overloaded{[&](const IKeywordRecordMD& record) {
                           for (int i = 0; i < record.GetSize(); ++i)
                               AddItem(record, i);
                       },
                [&](const IKeywordListMD& list) {
                    if (list.GetItemMD())
                        Add(*list.GetItemMD());
                },
                [&](const IKeywordChoiceMD& choice) {
                    for (int i = 0; i < choice.NumChoices(); ++i) {
                        if (IsOwn(choice.GetValidity(i)))
                            words.push_back(fmt::format("{} {}", choice.GetName(), choice.GetChoice(i)));
                    }
                },
                [](const IKeywordDataMD&) {}});
    }
    void AddItem(const IKeywordRecordMD& record, int index)
    {
        const IKeywordDataMD& item = *record.GetItemMD(index);
        if (IsOwn(record.GetValidity(index)))
            words.push_back(item.GetName());
        else
            Add(item);
    }
};

std::string PartRow(const Entry& entry, SimulatorType::Enum simulator)
{
    OwnParts parts{simulator, ModesOf(entry.GetFirst())};
    if (entry.IsVector() || IsOnlyOf(parts.keyword, simulator) || !entry.GetFirst().GetDataMD())
        return "";
    parts.Add(*entry.GetFirst().GetDataMD());
    return parts.words.empty()
        ? ""
        : fmt::format("<tr><th scope=\"row\">{}</th><td>{}</td></tr>\n", Link(entry.address, entry.name),
            EscapeHtml(fmt::format("{}", fmt::join(parts.words, ", "))));
}

} // namespace

ManualPage SimulatorPage(SimulatorType::Enum simulator, const Catalog& catalog)
{
    const std::string& name = SimulatorType::ToString(simulator);
    std::vector<const Entry*> only;
    std::vector<const Entry*> lacking;
    std::size_t valid = 0;
    std::string parts;
    for (const Entry& entry : catalog.GetEntries()) {
        const ModeTable table = ModesOf(entry.GetFirst());
        if (IsOnlyOf(table, simulator))
            only.push_back(&entry);
        if (table[simulator] != 0)
            ++valid;
        else if (!entry.IsVector())
            lacking.push_back(&entry);
        parts += PartRow(entry, simulator);
    }
    std::vector<std::string> modes;
    for (const auto& mode : SimulatorModeType::EnumInfos()) {
        if (SimulatorType::HasMode(simulator, mode.value))
            modes.push_back(mode.text);
    }
    return {fmt::format("simulator/{}.html", Slug(name)), "Simulator " + name,
        Crumbs({}, name) + Element("h1", "Simulator " + name)
            + fmt::format("<p class=\"lead\">{} of {} keywords are valid. Modes: {}.</p>\n", valid,
                catalog.GetEntries().size(), fmt::join(modes, ", "))
            + Heading("only", "Keywords that only it has") + EntryTable(only)
            + Heading("parts", "Items and choices that only it has")
            + (parts.empty() ? Element("p", "None.")
                             : "<table class=\"list\"><tbody>\n" + parts + "</tbody></table>\n")
            + Heading("lacking", "Keywords that it lacks, output vectors aside")
            + fmt::format("<details><summary>{}</summary>{}</details>\n", Plural(lacking.size(), "keyword"),
                EntryTable(lacking))};
}

} // namespace Veld::Quor::Tools
