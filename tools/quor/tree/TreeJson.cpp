#include "tools/quor/tree/TreeJson.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <type_traits>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;
using Json = nlohmann::ordered_json;

namespace {

Json ToJson(const Value& value)
{
    return std::visit(
        [](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>)
                return Json();
            else if constexpr (std::is_same_v<Held, double>)
                return std::isfinite(held) ? Json(held) : Json(fmt::format("{}", held)); // no number of JSON
            else
                return Json(held);
        },
        value);
}

/// Null for what the document doesn't give.
template <class T>
Json OrNull(const std::optional<T>& value)
{
    return value ? Json(*value) : Json();
}

Json LimitJson(const std::optional<Value>& limit)
{
    return limit ? ToJson(*limit) : Json();
}

Json ToJson(const Default& value)
{
    switch (value.type) {
    case Default::Type::None:
        return {{"type", "no default"}};
    case Default::Type::Calculated:
        return {{"type", "calculated"}};
    case Default::Type::Specified:
        break;
    }
    return {{"type", "specified"}, {"value", ToJson(value.value)}};
}

/// `override` stands at the simulators to which the document gives a default of their own.
Json ToJson(const Defaults& defaults)
{
    Json json = {{"Any", ToJson(defaults.keyword)}};
    for (const SimulatorDefault& row : defaults.simulators) {
        Json& entry = json[SimulatorType::ToString(row.simulator)] = ToJson(row.value);
        if (!row.overrideType.empty())
            entry["override"] = row.overrideType;
    }
    return json;
}

Json ToJson(const ModeTable& table)
{
    auto json = Json::object();
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        for (const auto& mode : SimulatorModeType::EnumInfos()) {
            if ((table[simulator.value] & 1U << mode.value) != 0)
                json[simulator.text].push_back(mode.text);
        }
    }
    return json;
}

Json ValidityJson(const ModeTable& table)
{
    return table == AllModes() ? Json() : ToJson(table);
}

Json ToJson(const Choice& choice)
{
    auto aliases = Json::array();
    for (const auto& [name, isHidden] : choice.aliases)
        aliases.push_back({{"name", name}, {"hidden", isHidden}});
    return {{"text", choice.text}, {"aliases", aliases}, {"validity", ValidityJson(choice.valid)},
        {"unsupportedBy", ToJson(choice.unsupported)}};
}

void Add(Json& json, const Location& location)
{
    const std::string& column = IKeywordDataMD::ColumnConstraintType::ToString(location.column);
    json["optional"] = location.isOptional;
    json["identifier"] = location.isIdentifier;
    json["skippableOnRead"] = location.isSkippableOnRead;
    json["skippableOnWrite"] = location.isSkippableOnWrite;
    json["columnConstraint"] = column.empty() ? Json() : Json(column);
    json["validity"] = ValidityJson(location.valid);
    json["unsupportedBy"] = ToJson(location.unsupported);
}

void Add(Json& json, const ScalarValue& scalar, MDType::Enum type)
{
    json["default"] = ToJson(scalar.defaults);
    if (type == MDType::Real)
        json["measurement"] = OrNull(scalar.measurement);
    if (type == MDType::Real || type == MDType::Integer || type == MDType::Assignment) {
        json["min"] = LimitJson(scalar.min);
        json["max"] = LimitJson(scalar.max);
    }
    if (scalar.format)
        json["format"] = *scalar.format;
    if (type == MDType::Choice) {
        json["choices"] = Json::array();
        for (const Choice& choice : scalar.choices)
            json["choices"].push_back(ToJson(choice));
    }
    if (const auto& rules = scalar.string) {
        json["caseSensitive"] = rules->isCaseSensitive;
        json["lengthLimit"] = rules->greatestLength;
        json["canContainComma"] = rules->mayHoldComma;
    }
}

void Add(Json& json, const KeyRules& key)
{
    json["keys"] = key.keys;
    json["wildcard"] = key.isWildcard;
    json["validSimulators"] = Json::array();
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        if (key.valid[simulator.value] != 0)
            json["validSimulators"].push_back(simulator.text);
    }
}

/// The end words are those that are known of a list that has some.
void Add(Json& json, const Ending& ending)
{
    json["termination"] = IKeywordDataMD::TerminationType::ToString(ending.type);
    if (ending.hasOwnWords)
        json["endWords"] = ending.words;
}

void Add(Json& json, const ListRules& list)
{
    json["size"] = OrNull(list.size);
    json["minSize"] = OrNull(list.minSize);
    json["maxSize"] = OrNull(list.maxSize);
    json["itemsDefaultable"] = list.mayBeDefaulted;
    json["fillEmptyElementsWithPreviousValue"] = list.repeatsPrevious;
    json["writeStartingOnNewLine"] = OrNull(list.startsOnNewLine);
    json["writeTerminationOnNewLine"] = OrNull(list.endsOnNewLine);
}

Json ToJson(const Node& node);

void AddChildren(Json& json, const Node& node)
{
    if (node.list) {
        json["item"] = node.children.empty() ? Json() : ToJson(node.children.front());
        return;
    }
    Json& children = json[node.type == MDType::Map ? "assignments" : "items"] = Json::array();
    for (const Node& child : node.children)
        children.push_back(ToJson(child));
}

Json ToJson(const Node& node)
{
    Json json = {{"type", TypeWord(node.type)}};
    if (node.location) {
        json["number"] = node.number;
        json["name"] = node.name;
    }
    json["description"] = node.description;
    if (node.location)
        Add(json, *node.location);
    if (node.key)
        Add(json, *node.key);
    if (node.scalar)
        Add(json, *node.scalar, node.type);
    if (node.rawEnd)
        json["stringTermination"] = *node.rawEnd;
    if (node.list)
        Add(json, *node.list);
    if (node.ending) {
        Add(json, *node.ending);
        AddChildren(json, node);
    }
    return json;
}

} // namespace

Json TreeJson(const KeywordTree& tree)
{
    return tree.data ? ToJson(*tree.data) : Json();
}

} // namespace Veld::Quor::Tools
