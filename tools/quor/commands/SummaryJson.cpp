#include "tools/quor/commands/SummaryJson.h"

#include "quor/deck/DeckKeyword.h"
#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/commands/InfoArrays.h"
#include "tools/quor/terminal/Json.h"

#include <nlohmann/json.hpp>

#include <vector>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using namespace Core::Keywords;
using nlohmann::ordered_json;

namespace {

ordered_json PropertyJson(const Decks::PropertySummary& row)
{
    ordered_json json = {{"keyword", row.keyword}, {"property", row.property},
        {"measurement", TextOrNull(row.measurement)}, {"place", LocationJson(row.location)},
        {"count", row.count}, {"defaulted", row.defaulted}, {"unknown", row.unknown}, {"least", nullptr},
        {"mean", nullptr}, {"greatest", nullptr}};
    if (row.range) {
        json["least"] = row.range->least;
        json["mean"] = row.range->mean;
        json["greatest"] = row.range->greatest;
    }
    return json;
}

ordered_json WellsJson(const std::vector<Decks::Well>& wells)
{
    auto json = ordered_json::array();
    for (const Decks::Well& well : wells)
        json.push_back(
            {{"name", well.name}, {"group", TextOrNull(well.group)}, {"control", TextOrNull(well.control)},
                {"completions", well.completions}, {"since", TextOrNull(Decks::DateText(well.since))}});
    return json;
}

ordered_json SizesJson(const Decks::DeckSummary& summary)
{
    auto json = ordered_json::array();
    for (const Decks::SizeSummary& row : summary.sizes) {
        auto sizes = ordered_json::object();
        for (const auto& [item, value] : row.sizes)
            sizes[item] = value;
        json.push_back({{"keyword", row.keyword}, {"sizes", sizes}});
    }
    return json;
}

} // namespace

ordered_json SummaryJson(const Decks::DeckSummary& summary, const std::string& deck)
{
    ordered_json json = {{"deck", deck}, {"title", TextOrNull(summary.title)}};
    auto files = ordered_json::array();
    for (const Decks::FileSummary& file : summary.files)
        files.push_back(
            {{"name", file.name}, {"depth", file.depth}, {"bytes", file.bytes}, {"keywords", file.keywords}});
    auto sections = ordered_json::array();
    for (const Decks::SectionSummary& row : summary.sections)
        sections.push_back({{"section", TextOrNull(SectionType::ToString(row.section))},
            {"keywords", row.keywords}, {"place", LocationJson(row.location)}});
    auto groups = ordered_json::array();
    for (const Decks::Group& group : summary.groups)
        groups.push_back(
            {{"name", group.name}, {"parent", TextOrNull(group.parent)}, {"wells", group.wells}});
    auto properties = ordered_json::array();
    for (const Decks::PropertySummary& row : summary.properties)
        properties.push_back(PropertyJson(row));
    auto variables = ordered_json::array();
    for (const Decks::VariableSummary& row : summary.variables)
        variables.push_back({{"name", row.name}, {"uses", row.uses}});
    json.update({{"files", files}, {"sections", sections}, {"sizes", SizesJson(summary)},
        {"options", summary.options}, {"units", TextOrNull(summary.units)},
        {"start", TextOrNull(Decks::DateText(summary.start))},
        {"end", TextOrNull(Decks::DateText(summary.end))}, {"reports", summary.reports},
        {"wells", WellsJson(summary.wells)}, {"groups", groups}, {"properties", properties},
        {"arrays", ArraysJson(summary)}, {"variables", variables}});
    return json;
}

} // namespace Veld::Quor::Tools
