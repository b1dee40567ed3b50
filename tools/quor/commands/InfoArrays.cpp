#include "tools/quor/commands/InfoArrays.h"

#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/terminal/Json.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using nlohmann::ordered_json;

std::vector<Columns::Row> ArrayRows(const Decks::DeckSummary& summary)
{
    std::vector<Columns::Row> rows;
    for (const Decks::ArraySummary& array : summary.arrays) {
        const auto number = [&array](double Decks::PropertySummary::Range::*member) {
            return array.range ? fmt::format("{:.6g}", *array.range.*member) : "-";
        };
        std::vector<std::string> makers = array.keywords;
        std::replace(makers.begin(), makers.end(), array.array, std::string("given"));
        rows.push_back(
            {array.array, Join(makers), fmt::format("{}", array.cells), fmt::format("{}", array.unknown),
                number(&Decks::PropertySummary::Range::least), number(&Decks::PropertySummary::Range::mean),
                number(&Decks::PropertySummary::Range::greatest), array.reason});
    }
    return rows;
}

Columns::Row ArrayHead()
{
    return {"array", "made by", "cells", "unknown", "min", "mean", "max", "why unknown"};
}

ordered_json ArraysJson(const Decks::DeckSummary& summary)
{
    auto json = ordered_json::array();
    for (const Decks::ArraySummary& array : summary.arrays) {
        ordered_json row = {{"array", array.array}, {"keywords", array.keywords},
            {"place", array.keywords.empty() ? ordered_json() : LocationJson(array.location)},
            {"cells", array.cells}, {"unknown", array.unknown}, {"reason", TextOrNull(array.reason)},
            {"least", nullptr}, {"mean", nullptr}, {"greatest", nullptr}};
        if (array.range)
            row.update({{"least", array.range->least}, {"mean", array.range->mean},
                {"greatest", array.range->greatest}});
        json.push_back(std::move(row));
    }
    return json;
}

} // namespace Veld::Quor::Tools
