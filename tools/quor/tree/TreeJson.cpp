#include "tools/quor/tree/TreeJson.h"

#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/ISkippableInfo.h"
#include "quor/metadata/VisitMD.h"
#include "tools/quor/tree/Defaults.h"
#include "tools/quor/tree/MetadataFacts.h"
#include "tools/quor/tree/UnitTexts.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cmath>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;
using Json = nlohmann::ordered_json;

namespace {

/// Null for what names no choice, and a text for what is no number of JSON.
Json ToJson(const Value& value)
{
    return std::visit(
        Overloaded{[](std::monostate) { return Json(); },
            [](double real) { return std::isfinite(real) ? Json(real) : Json(fmt::format("{}", real)); },
            [](const auto& held) { return Json(held); }},
        value);
}

/// Null for what the document doesn't give.
template <class T>
Json OrNull(const Core::Service::Optional<T>& value)
{
    return value ? ToJson(Value(*value)) : Json();
}

Json OrNull(const std::string* text)
{
    return text ? Json(*text) : Json();
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

/// `override` is at the simulators to which the document gives their own default.
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

Json ModesJson(const IValidityMD& validity)
{
    const ModeTable table = ModesOf(validity);
    return table == AllModes() ? Json() : ToJson(table);
}

/// Adds to an object what the metadata of a node say; one overload for each type.
class NodeJson {
public:
    NodeJson(const IKeywordSyntax& syntax, const ModeTable& keyword)
        : syntax_(syntax)
        , keyword_(keyword)
    {
    }

    Json operator()(const IKeywordDataMD& md) const
    {
        Json json = {{"type", TypeWord(md.GetType())}, {"description", md.GetDescription()}};
        AddTo(json, md);
        return json;
    }

private:
    void AddTo(Json& json, const IKeywordDataMD& md) const
    {
        VisitMD(md, [&](const auto& own) { Add(json, own); });
    }
    void Add(Json& json, const IKeywordAssignmentMD& md) const;
    void Add(Json& json, const IKeywordBooleanMD& md) const { AddDefaults(json, md); }
    void Add(Json& json, const IKeywordChoiceMD& md) const;
    void Add(Json& json, const IKeywordIntegerMD& md) const;
    void Add(Json& json, const IKeywordLineMD& md) const { AddDefaults(json, md); }
    void Add(Json& json, const IKeywordListMD& md) const;
    void Add(Json& json, const IKeywordMapMD& md) const;
    void Add(Json& json, const IKeywordRawMD& md) const
    {
        json["stringTermination"] = md.GetTerminationString();
    }
    void Add(Json& json, const IKeywordRealMD& md) const;
    void Add(Json& json, const IKeywordRecordMD& md) const;
    void Add(Json& json, const IKeywordStringMD& md) const;

    template <class MD>
    void AddDefaults(Json& json, const MD& md) const
    {
        json["default"] = ToJson(DefaultsOf(md, keyword_));
    }
    Json ItemJson(const IKeywordRecordMD& record, int index) const;

    const IKeywordSyntax& syntax_;
    const ModeTable& keyword_; // where the keyword is valid
};

template <class MD>
void AddLimits(Json& json, const MD& md)
{
    json["min"] = OrNull(md.GetMin());
    json["max"] = OrNull(md.GetMax());
}

void AddFormat(Json& json, const IKeywordNumericMD& md)
{
    if (const std::string* format = md.GetFormatting())
        json["format"] = *format;
}

template <class MD>
void AddTermination(Json& json, const MD& md)
{
    json["termination"] = IKeywordDataMD::TerminationType::ToString(md.GetTermination());
}

void NodeJson::Add(Json& json, const IKeywordAssignmentMD& md) const
{
    json["keys"] = md.GetKeys();
    json["wildcard"] = md.IsWildcard();
    json["validSimulators"] = Json::array();
    for (const auto& simulator : SimulatorType::EnumInfos()) {
        if (md.IsValid(simulator.value))
            json["validSimulators"].push_back(simulator.text);
    }
    AddDefaults(json, md);
    AddLimits(json, md);
}

void NodeJson::Add(Json& json, const IKeywordChoiceMD& md) const
{
    AddDefaults(json, md);
    json["choices"] = Json::array();
    for (int i = 0; i < md.NumChoices(); ++i) {
        auto aliases = Json::array();
        for (const auto& [name, isHidden] : AliasesOf(md, i))
            aliases.push_back({{"name", name}, {"hidden", isHidden}});
        json["choices"].push_back(
            {{"text", md.GetChoice(i)}, {"aliases", aliases}, {"validity", ModesJson(md.GetValidity(i))},
                {"unsupportedBy", ToJson(ModesOf(md.GetUnsupportedBy(i)))}});
    }
}

void NodeJson::Add(Json& json, const IKeywordIntegerMD& md) const
{
    AddDefaults(json, md);
    AddLimits(json, md);
    AddFormat(json, md);
}

void NodeJson::Add(Json& json, const IKeywordRealMD& md) const
{
    AddDefaults(json, md);
    const std::string* const measurement = md.GetMeasurement();
    json["measurement"] = OrNull(measurement);
    json["units"] = measurement ? UnitsJson(*measurement) : Json();
    AddLimits(json, md);
    AddFormat(json, md);
}

void NodeJson::Add(Json& json, const IKeywordStringMD& md) const
{
    AddDefaults(json, md);
    json["caseSensitive"] = md.IsCaseSensitive();
    json["lengthLimit"] = md.LimitLengthTo();
    json["canContainComma"] = md.CanContainComma();
}

void NodeJson::Add(Json& json, const IKeywordListMD& md) const
{
    json["size"] = OrNull(md.GetSize());
    json["minSize"] = OrNull(md.GetMinSize());
    json["maxSize"] = OrNull(md.GetMaxSize());
    json["itemsDefaultable"] = md.IsItemDefaultable();
    json["fillEmptyElementsWithPreviousValue"] = md.FillEmptyElementsWithPreviousValue();
    json["writeStartingOnNewLine"] = OrNull(md.WriteStartingOnNewLine());
    json["writeTerminationOnNewLine"] = OrNull(md.WriteTerminationOnNewLine());
    AddTermination(json, md);
    if (const ICustomReadTermination* own = md.GetCustomReadTermination())
        json["endWords"] = FindEndWords(*own, syntax_);
    const IKeywordDataMD* const item = md.GetItemMD();
    json["item"] = item ? (*this)(*item) : Json();
}

void NodeJson::Add(Json& json, const IKeywordMapMD& md) const
{
    AddTermination(json, md);
    json["assignments"] = Json::array();
    for (int i = 0; i < md.GetSize(); ++i)
        json["assignments"].push_back((*this)(*md.GetItemMD(i)));
    for (int i = 0; i < md.GetWildcardSize(); ++i)
        json["assignments"].push_back((*this)(*md.GetWildcardItemMD(i)));
}

void NodeJson::Add(Json& json, const IKeywordRecordMD& md) const
{
    AddTermination(json, md);
    json["items"] = Json::array();
    for (int i = 0; i < md.GetSize(); ++i)
        json["items"].push_back(ItemJson(md, i));
}

/// Beside what its metadata say, what the record says of it.
Json NodeJson::ItemJson(const IKeywordRecordMD& record, int index) const
{
    const IKeywordDataMD& md = *record.GetItemMD(index);
    const ISkippableInfo* const skippable = record.GetSkippableInfo();
    const auto place = static_cast<unsigned>(index);
    const std::string& column =
        IKeywordDataMD::ColumnConstraintType::ToString(record.GetColumnConstraint(index));
    Json json = {{"type", TypeWord(md.GetType())}, {"number", md.GetItemNumber()}, {"name", md.GetName()},
        {"description", md.GetDescription()}, {"optional", record.IsOptional(index)},
        {"identifier", record.IsIdentifier(index)},
        {"skippableOnRead", skippable && skippable->IsSkippableOnRead(place)},
        {"skippableOnWrite", skippable && skippable->IsSkippableOnWrite(place)},
        {"columnConstraint", column.empty() ? Json() : Json(column)},
        {"validity", ModesJson(record.GetValidity(index))},
        {"unsupportedBy", ToJson(ModesOf(record.GetUnsupportedBy(index)))}};
    AddTo(json, md);
    return json;
}

} // namespace

Json TreeJson(const IKeywordSyntax& syntax)
{
    const IKeywordDataMD* const md = syntax.GetDataMD();
    if (!md)
        return {};
    const ModeTable keyword = ModesOf(syntax);
    return NodeJson(syntax, keyword)(*md);
}

} // namespace Veld::Quor::Tools
