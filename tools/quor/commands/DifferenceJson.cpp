#include "tools/quor/commands/DifferenceJson.h"

#include "tools/quor/commands/DeckReading.h"
#include "tools/quor/findings/FindingText.h"
#include "tools/quor/terminal/Json.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace Veld::Quor::Tools {

namespace Decks = Core::Decks;
using Decks::Change;
using nlohmann::ordered_json;

namespace {

constexpr const char* words[] = {"changed", "added", "removed"};

const char* KindWord(Change::Kind kind)
{
    return words[static_cast<std::size_t>(kind)];
}

std::string ValueText(const std::string& text)
{
    constexpr std::size_t widest = 60;
    return text.empty() ? "''" : Cut(MakePrintable(text), widest);
}

std::string ArrayText(const Decks::ItemChange& item)
{
    const Decks::ArrayChange& array = *item.array;
    const char* const noun = array.isOfRows ? "rows" : "values";
    std::string text;
    if (array.sizeBefore != array.sizeAfter)
        text = fmt::format("{} {} -> {}", array.sizeBefore, noun, array.sizeAfter);
    const std::string first =
        fmt::format("first [{}]: {} -> {}", array.first, ValueText(item.before), ValueText(item.after));
    if (array.differing == 0)
        return array.isOfRows ? fmt::format("{}, {}", text, first) : text;
    text += fmt::format("{}{} of {}{} differ, {}", text.empty() ? "" : "; ", array.differing,
        std::min(array.sizeBefore, array.sizeAfter), array.isOfRows ? " rows" : "", first);
    return array.differing == 1 || array.isOfRows
        ? text
        : fmt::format("{}, by {:.6g} at most", text, array.greatest);
}

} // namespace

std::string ItemText(const Decks::ItemChange& item)
{
    const std::string values =
        item.array ? ArrayText(item) : fmt::format("{} -> {}", ValueText(item.before), ValueText(item.after));
    return item.item.empty() ? values : fmt::format("{} {}", item.item, values);
}

ordered_json ChangeJson(const Change& change)
{
    ordered_json json = {{"change", KindWord(change.kind)}, {"keyword", TextOrNull(change.keyword)},
        {"identity", TextOrNull(change.identity)}};
    if (change.kind == Change::Kind::Changed)
        json.update({{"item", TextOrNull(change.item.item)}, {"before", change.item.before},
            {"after", change.item.after}});
    if (const auto& array = change.item.array)
        json["array"] = {{"differing", array->differing}, {"sizeBefore", array->sizeBefore},
            {"sizeAfter", array->sizeAfter}, {"first", array->first}, {"greatest", array->greatest},
            {"rows", array->isOfRows}};
    json["a"] = change.before ? LocationJson(*change.before) : ordered_json();
    json["b"] = change.after ? LocationJson(*change.after) : ordered_json();
    return json;
}

ordered_json CountsJson(const Decks::Difference& difference)
{
    auto counts = ordered_json::object();
    for (std::size_t i = 0; i < std::size(words); ++i)
        counts[words[i]] = difference.counts[i];
    return counts;
}

} // namespace Veld::Quor::Tools
