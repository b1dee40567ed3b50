#include "python/src/Binding.h"

#include "quor/metadata/Units.h"
#include "quor/metadata/VisitMD.h"
#include "quor/syntax/KeywordSyntaxEnumerator.h"

#include <functional>
#include <map>
#include <set>
#include <utility>

namespace Veld::Quor::Python {

using Keywords::IKeywordDataMD;
using MDType = IKeywordDataMD::MDType;

namespace {

/// A keyword of the language, under one of its names.
struct KeywordInfo {
    std::string name;
    const Keywords::IKeywordSyntax* syntax;
};

/// An item of a record, or the one of a list.
struct Item {
    const IKeywordDataMD* md;
    const Keywords::IKeywordRecordMD* record; ///< null: it is in none
    int index;
};

std::vector<Item> ItemsOf(const IKeywordDataMD* md)
{
    std::vector<Item> items;
    if (const auto* const record = FindRecordMD(md)) {
        for (int i = 0; i < record->GetSize(); ++i)
            items.push_back({record->GetItemMD(i), record, i});
    } else if (md && md->GetType() == MDType::List) {
        items.push_back({Keywords::AsList(*md).GetItemMD(), nullptr, 0});
    }
    return items;
}

template <class T>
py::object OrNone(const Service::Optional<T>& value)
{
    return value ? py::cast(*value) : py::none();
}

py::object DefaultOf(const Item& item, const std::string& simulator)
{
    using Keywords::SimulatorType;
    const auto target = simulator.empty() ? SimulatorType::Any : SimulatorOf(simulator);
    return Keywords::VisitMD(*item.md,
        Keywords::Overloaded{[&](const Keywords::IKeywordChoiceMD& md) -> py::object {
                                 const auto index = md.GetDefault(target);
                                 return index && *index >= 0 ? py::object(Text(md.GetChoice(*index)))
                                                             : py::none();
                             },
            [&](const Keywords::IKeywordBooleanMD& md) { return OrNone(md.GetDefault(target)); },
            [&](const Keywords::IKeywordIntegerMD& md) { return OrNone(md.GetDefault(target)); },
            [&](const Keywords::IKeywordRealMD& md) { return OrNone(md.GetDefault(target)); },
            [&](const Keywords::IKeywordStringMD& md) { return OrNone(md.GetDefault(target)); },
            [&](const Keywords::IKeywordLineMD& md) { return OrNone(md.GetDefault(target)); },
            [](const auto&) -> py::object { return py::none(); }});
}

/// Least and greatest, each None if there is none.
py::tuple LimitsOf(const Item& item)
{
    return Keywords::VisitMD(*item.md,
        Keywords::Overloaded{[](const Keywords::IKeywordIntegerMD& md) {
                                 return py::make_tuple(OrNone(md.GetMin()), OrNone(md.GetMax()));
                             },
            [](const Keywords::IKeywordRealMD& md) {
                return py::make_tuple(OrNone(md.GetMin()), OrNone(md.GetMax()));
            },
            [](const auto&) { return py::make_tuple(py::none(), py::none()); }});
}

const std::string* FindMeasurement(const IKeywordDataMD& md)
{
    return md.GetType() == MDType::Real ? static_cast<const Keywords::IKeywordRealMD&>(md).GetMeasurement()
                                        : nullptr;
}

std::vector<std::string> ChoicesOf(const Item& item)
{
    std::vector<std::string> words;
    if (item.md->GetType() == MDType::Choice) {
        const auto& md = static_cast<const Keywords::IKeywordChoiceMD&>(*item.md);
        for (int i = 0; i < md.NumChoices(); ++i)
            words.push_back(md.GetChoice(i));
    }
    return words;
}

std::vector<KeywordInfo> AllKeywords()
{
    std::vector<KeywordInfo> all;
    auto enumerator = Table().KeywordsEnumerator();
    while (enumerator.Next())
        all.push_back({*enumerator.Current()->first, enumerator.Current()->second});
    return all;
}

void AddMeasurements(const IKeywordDataMD* md, std::set<std::string>& names)
{
    for (const Item& item : ItemsOf(md)) {
        if (const std::string* const measurement = FindMeasurement(*item.md))
            names.insert(*measurement);
        AddMeasurements(item.md, names);
    }
}

/// Each measurement of the language that has units: its name, and the unit in METRIC, FIELD and LAB.
py::dict Measurements()
{
    std::set<std::string> names;
    for (const KeywordInfo& keyword : AllKeywords())
        AddMeasurements(keyword.syntax->GetDataMD(), names);
    py::dict table;
    for (const std::string& name : names) {
        py::dict units;
        for (const auto& system : Keywords::UnitSystem::EnumInfos()) {
            if (const Keywords::Unit* const unit = Keywords::Units::Find(name, system.value))
                units[py::str(system.text)] = Text(unit->name);
        }
        if (!units.empty())
            table[py::str(name)] = units;
    }
    return table;
}

Keywords::UnitSystem::Enum SystemOf(const std::string& name)
{
    bool isKnown = false;
    const auto system = Keywords::UnitSystem::FromString(name, &isKnown);
    if (!isKnown)
        throw py::value_error(
            "unknown system of units '" + name + "' (expected METRIC, FIELD, LAB or PVT-M)");
    return system;
}

py::object UnitName(const std::string& measurement, const std::string& system)
{
    const Keywords::Unit* const unit = Keywords::Units::Find(measurement, SystemOf(system));
    return unit ? py::object(Text(unit->name)) : py::none();
}

double Convert(const std::string& measurement, double value, const std::string& from, const std::string& to)
{
    const auto converted = Keywords::Units::Convert(measurement, value, SystemOf(from), SystemOf(to));
    if (!converted)
        throw py::value_error("'" + measurement + "' has no known unit in " + from + " and " + to);
    return *converted;
}

void BindItem(py::module_& module)
{
    py::class_<Item>(module, "Item")
        .def_property_readonly("name",
            [](const Item& item) {
                return item.record ? ItemName(*item.record, item.index) : item.md->GetName();
            })
        .def_property_readonly("type", [](const Item& item) { return MDType::ToString(item.md->GetType()); })
        .def_property_readonly(
            "description", [](const Item& item) { return Text(item.md->GetDescription()); })
        .def_property_readonly("measurement",
            [](const Item& item) {
                const std::string* const name = FindMeasurement(*item.md);
                return name ? py::object(py::str(*name)) : py::none();
            })
        .def_property_readonly("choices", ChoicesOf)
        .def_property_readonly("minimum", [](const Item& item) { return py::object(LimitsOf(item)[0]); })
        .def_property_readonly("maximum", [](const Item& item) { return py::object(LimitsOf(item)[1]); })
        .def_property_readonly("is_identifier",
            [](const Item& item) { return item.record && item.record->IsIdentifier(item.index); })
        .def_property_readonly("items", [](const Item& item) { return ItemsOf(item.md); })
        .def("default", DefaultOf, py::arg("simulator") = "")
        .def("__repr__", [](const Item& item) {
            return "<Item " + (item.record ? ItemName(*item.record, item.index) : item.md->GetName()) + ": "
                + MDType::ToString(item.md->GetType()) + ">";
        });
}

std::vector<std::string> SectionNames(const KeywordInfo& keyword)
{
    std::vector<std::string> names;
    for (const auto section : keyword.syntax->GetValidSections())
        names.push_back(Keywords::SectionType::ToString(section));
    return names;
}

std::vector<std::string> SimulatorNames(const KeywordInfo& keyword)
{
    std::vector<std::string> names;
    for (const auto simulator : keyword.syntax->GetValidSimulators())
        names.push_back(Keywords::SimulatorType::ToString(simulator));
    return names;
}

} // namespace

const Keywords::IKeywordSyntax& LookUp(const std::string& name)
{
    if (const auto* const syntax = Table().Lookup(name, true))
        return *syntax;
    std::string message = "unknown keyword '" + name + "'";
    const auto nearest = Language().FindNearest(name);
    if (!nearest.empty())
        message += "; did you mean '" + nearest.front() + "'?";
    RaiseMissing(message, {});
}

py::object UnitIn(const Decks::Deck& deck, const std::string& measurement)
{
    const Keywords::Unit* const unit = Keywords::Units::Find(measurement, Decks::UnitSystemOf(deck));
    return unit ? py::object(Text(unit->name)) : py::none();
}

void BindLanguage(py::module_& module)
{
    BindItem(module);
    py::class_<KeywordInfo>(module, "KeywordInfo")
        .def_property_readonly("name", [](const KeywordInfo& keyword) { return keyword.name; })
        .def_property_readonly(
            "description", [](const KeywordInfo& keyword) { return Text(keyword.syntax->GetDescription()); })
        .def_property_readonly("sections", SectionNames)
        .def_property_readonly("simulators", SimulatorNames)
        .def_property_readonly(
            "aliases", [](const KeywordInfo& keyword) { return keyword.syntax->GetAliases(); })
        .def_property_readonly(
            "items", [](const KeywordInfo& keyword) { return ItemsOf(keyword.syntax->GetDataMD()); })
        .def("__repr__", [](const KeywordInfo& keyword) { return "<KeywordInfo " + keyword.name + ">"; });
    module.def("load_language", [] {
        const py::gil_scoped_release unlocked;
        Language();
    });
    module.def("all_keywords", AllKeywords);
    module.def(
        "look_up",
        [](const std::string& name) {
            return KeywordInfo{name, &LookUp(name)};
        },
        py::arg("name"));
    module.def("measurements", Measurements);
    module.def("unit", UnitName, py::arg("measurement"), py::arg("system"));
    module.def(
        "convert", Convert, py::arg("measurement"), py::arg("value"), py::arg("source"), py::arg("target"));
}

} // namespace Veld::Quor::Python
