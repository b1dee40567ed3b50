#include "tools/quor/report/ComparisonJson.h"

#include "quor/deck/DeckDifference.h"
#include "tools/quor/commands/DifferenceJson.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Core::Keywords::SectionType;
using nlohmann::ordered_json;

namespace {

/// At most so many changes as a page can list; `left`: how many more there are.
ordered_json GroupsJson(
    const Decks::Difference& difference, const std::string& deck, const std::string& other, std::size_t& left)
{
    constexpr std::size_t most = 2000;
    std::size_t count = 0;
    auto groups = ordered_json::array();
    for (const Decks::ChangeGroup& group : difference.groups) {
        auto changes = ordered_json::array();
        for (const Decks::Change& change : group.changes) {
            if (++count > most)
                continue;
            changes.push_back(ChangeJson(change));
            ordered_json& json = changes.back();
            if (change.item.array)
                json["text"] = ItemText(change.item);
            NameFilesFromFolder(json["a"], deck);
            NameFilesFromFolder(json["b"], other);
        }
        if (!changes.empty())
            groups.push_back({{"section", SectionType::ToString(group.section)}, {"step", group.step},
                {"changes", changes}});
    }
    left = count > most ? count - most : 0;
    return groups;
}

ordered_json* FindArray(ordered_json& report, const ordered_json& name)
{
    ordered_json& arrays = report["arrays"];
    const auto array = std::find_if(
        arrays.begin(), arrays.end(), [&](const ordered_json& one) { return one["name"] == name; });
    return array == arrays.end() ? nullptr : &*array;
}

/// How many cells differ, and by how much at most. A cell whose value is known in one deck alone differs.
ordered_json CellsThatDiffer(const ReportValues& a, const ReportValues& b)
{
    std::size_t differing = 0;
    double greatest = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] == b[i] || (std::isnan(a[i]) && std::isnan(b[i])))
            continue;
        ++differing;
        const double by = std::abs(static_cast<double>(a[i]) - static_cast<double>(b[i]));
        greatest = std::isnan(by) ? greatest : std::max(greatest, by);
    }
    return {{"differing", differing}, {"cells", a.size()}, {"greatest", greatest}};
}

/// The arrays of both decks that differ, where the grids have the same size.
ordered_json CompareArrays(ordered_json& report, ordered_json& other, std::vector<ReportValues>& values)
{
    auto differing = ordered_json::array();
    if (report["grid"] != other["grid"])
        return differing;
    for (ordered_json& array : other["arrays"]) {
        const ordered_json* const own = FindArray(report, array["name"]);
        if (!own)
            continue;
        ReportValues& others = values[array["values"].get<std::size_t>()];
        ordered_json cells = CellsThatDiffer(values[(*own)["values"].get<std::size_t>()], others);
        if (cells["differing"] == 0) {
            array["values"] = (*own)["values"];
            others = ReportValues();
            continue;
        }
        cells.update({{"name", array["name"]}, {"unit", array["unit"]}});
        differing.push_back(std::move(cells));
    }
    return differing;
}

} // namespace

void AddComparison(ordered_json& report, const Decks::Deck& deck, ordered_json other,
    const Decks::Deck& otherDeck, std::vector<ReportValues>& values)
{
    const Decks::Difference difference = Decks::Compare(deck, otherDeck);
    std::size_t left = 0;
    ordered_json groups =
        GroupsJson(difference, deck.GetFiles().Get(0).name, otherDeck.GetFiles().Get(0).name, left);
    report["changes"] = {{"counts", CountsJson(difference)}, {"groups", std::move(groups)}, {"left", left},
        {"arrays", CompareArrays(report, other, values)}};
    report["other"] = std::move(other);
}

} // namespace Veld::Quor::Tools
