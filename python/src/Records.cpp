#include "python/src/Binding.h"

#include "quor/metadata/VisitMD.h"

#include <algorithm>
#include <cctype>

namespace Veld::Quor::Python {

using Keywords::IKeywordDataMD;
using MDType = IKeywordDataMD::MDType;

namespace {

bool IsSameName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
        return std::toupper(static_cast<unsigned char>(x)) == std::toupper(static_cast<unsigned char>(y));
    });
}

Keywords::SimulatorType::Enum SimulatorOfDeck(const Record& record)
{
    return record.keyword.deck->GetTarget().simulator;
}

template <class T>
py::object Number(const Service::Optional<T>& value)
{
    return value ? py::cast(*value) : py::none();
}

py::object TextOrNone(const Service::Optional<std::string>& value)
{
    return value ? py::object(Text(*value)) : py::none();
}

Decks::Location LocationOf(const Record& record)
{
    return record.keyword.Get().GetLocation(record.element);
}

/// Throws `QuorKeyError` with the names that are near.
int ItemOf(const Record& record, const std::string& name)
{
    if (const std::optional<int> item = FindItem(record.GetMD(), name))
        return *item;
    try {
        Keywords::Has(*record.data, name);
    } catch (const Keywords::DataAccessError& error) {
        RaiseMissing(error.what(), LocationOf(record));
    }
    RaiseMissing("no item '" + name + "'", LocationOf(record));
}

bool IsScalar(const IKeywordDataMD& md)
{
    const MDType::Enum type = md.GetType();
    return type != MDType::List && type != MDType::Record && type != MDType::Map && type != MDType::Raw;
}

bool IsDefault(const Record& record, const std::string& name)
{
    const int item = ItemOf(record, name);
    return IsScalar(*record.GetMD().GetItemMD(item)) && !Keywords::Has(*record.data, item);
}

py::object Get(const Record& record, const std::string& name, const py::object& otherwise)
{
    py::object value = ItemValue(record, ItemOf(record, name));
    return value.is_none() ? otherwise : value;
}

/// The value with its unit in the system of the deck; the unit is None for a plain number.
py::object Quantity(const Record& record, const std::string& name)
{
    const int item = ItemOf(record, name);
    const IKeywordDataMD& md = *record.GetMD().GetItemMD(item);
    if (md.GetType() != MDType::Real)
        Raise(record.keyword.Get().GetName() + ": item '" + name + "' is " + MDType::ToString(md.GetType())
                + ", not Real",
            LocationOf(record));
    const std::string* const measurement = static_cast<const Keywords::IKeywordRealMD&>(md).GetMeasurement();
    const py::object unit = measurement ? UnitIn(*record.keyword.deck, *measurement) : py::none();
    return py::module_::import("quor._values").attr("Quantity")(ItemValue(record, item), unit);
}

/// WCONPROD at field.data:12: WELL='P1', ORAT=900.0
py::str ShowRecord(const Record& record)
{
    const Decks::Location location = LocationOf(record);
    std::string text =
        "<" + record.keyword.Get().GetName() + " at " + location.file + ':' + std::to_string(location.line);
    const char* separator = ": ";
    for (int i = 0; i < record.data->GetSize(); ++i) {
        if (!IsScalar(*record.GetMD().GetItemMD(i)) || !Keywords::Has(*record.data, i))
            continue;
        text += separator + ItemName(record.GetMD(), i) + '='
            + std::string(py::str(py::repr(ItemValue(record, i))));
        separator = ", ";
    }
    return Message(text + '>');
}

std::vector<std::string> Names(const Record& record)
{
    std::vector<std::string> names;
    for (int i = 0; i < record.data->GetSize(); ++i)
        names.push_back(ItemName(record.GetMD(), i));
    return names;
}

py::list Values(const Record& record)
{
    py::list values;
    for (int i = 0; i < record.data->GetSize(); ++i)
        values.append(ItemValue(record, i));
    return values;
}

py::list Items(const Record& record)
{
    py::list items;
    for (int i = 0; i < record.data->GetSize(); ++i)
        items.append(py::make_tuple(ItemName(record.GetMD(), i), ItemValue(record, i)));
    return items;
}

py::dict DictOf(const Keywords::IKeywordMapData& map)
{
    py::dict values;
    for (int i = 0; i < map.GetSize(); ++i) {
        if (const auto value = map.GetValue(i))
            values[py::str(map.GetItemMD(i)->GetKeys().front())] = *value;
    }
    return values;
}

py::object ListOf(const Keyword& keyword, std::size_t element, std::size_t table,
    const Keywords::IKeywordListData& list, bool isOutermost)
{
    py::list values;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i) {
        const auto& data = *static_cast<const Keywords::IKeywordData*>(list.GetData(i));
        values.append(ValueOf(keyword, isOutermost ? i : element, table, data));
    }
    return values;
}

} // namespace

std::string ItemName(const Keywords::IKeywordRecordMD& md, int item)
{
    const std::string& name = md.GetItemMD(item)->GetName();
    return name.empty() ? std::to_string(item + 1) : name;
}

std::optional<int> FindItem(const Keywords::IKeywordRecordMD& md, std::string_view name)
{
    for (int i = 0; i < md.GetSize(); ++i) {
        if (IsSameName(ItemName(md, i), name))
            return i;
    }
    return std::nullopt;
}

py::object ItemValue(const Record& record, int item)
{
    const auto simulator = SimulatorOfDeck(record);
    const Keywords::IKeywordRecordData& data = *record.data;
    switch (record.GetMD().GetItemMD(item)->GetType()) {
    case MDType::Boolean:
        return Number(Keywords::GetOrDefault<bool>(data, item, simulator));
    case MDType::Integer:
        return Number(Keywords::GetOrDefault<int>(data, item, simulator));
    case MDType::Real:
        return Number(Keywords::GetOrDefault<double>(data, item, simulator));
    case MDType::Choice:
        return TextOrNone(Keywords::GetChoiceOrDefault(data, item, simulator));
    case MDType::String:
    case MDType::Line:
        return TextOrNone(Keywords::GetOrDefault<std::string>(data, item, simulator));
    default:
        return ValueOf(record.keyword, record.element, record.table,
            *static_cast<const Keywords::IKeywordData*>(data.GetData(item)));
    }
}

py::object ValueOf(
    const Keyword& keyword, std::size_t element, std::size_t table, const Keywords::IKeywordData& data)
{
    switch (data.GetMD()->GetType()) {
    case MDType::Record:
        return py::cast(Record{keyword, element, table, &Keywords::AsRecord(data)});
    case MDType::Map:
        return DictOf(Keywords::AsMap(data));
    case MDType::Raw:
        return Text(Keywords::AsRaw(data).GetData());
    default:
        break;
    }
    const Keywords::IKeywordListData& list = Keywords::AsList(data);
    if (IsArray(data))
        return ArrayOf(keyword.deck, list);
    return ListOf(keyword, element, table, list, keyword.Get().FindData() == &data);
}

void BindRecords(py::module_& module)
{
    py::class_<Record>(module, "Record",
        "One record: `record[\"ORAT\"]` is the value of an item in the unit of the deck, or else the default "
        "of the simulator that the deck was read for, or None if there is neither.")
        .def("__getitem__",
            [](const Record& record, const std::string& name) {
                return ItemValue(record, ItemOf(record, name));
            })
        .def("get", Get, py::arg("item"), py::arg("otherwise") = py::none(),
            "The value of an item or its default; `otherwise` if there is neither.")
        .def("is_default", IsDefault, py::arg("item"), "Whether the item has no value in the deck.")
        .def("quantity", Quantity, py::arg("item"),
            "The value of a real item, and its unit in the system of the deck, such as (900.0, \"sm3/day\").")
        .def("__repr__", ShowRecord)
        .def("keys", Names, "The names of the items; an item without a name has its number, from \"1\".")
        .def("values", Values, "The value of each item, as `record[name]` is.")
        .def("items", Items, "Pairs of a name and a value.")
        .def("__iter__", [](const Record& record) { return py::iter(py::cast(Names(record))); })
        .def("__contains__",
            [](const Record& record, const std::string& name) {
                return FindItem(record.GetMD(), name).has_value();
            })
        .def("__len__", [](const Record& record) { return record.data->GetSize(); })
        .def_property_readonly(
            "keyword", [](const Record& record) { return record.keyword; }, "The keyword that it is of.")
        .def_property_readonly(
            "table",
            [](const Record& record) {
                return record.table ? py::object(py::int_(record.table)) : py::none();
            },
            "The number of its table, from 1; None if the records aren't in tables.")
        .def_property_readonly(
            "file", [](const Record& record) { return Text(LocationOf(record).file); },
            "The path of its file.")
        .def_property_readonly(
            "line", [](const Record& record) { return LocationOf(record).line; }, "From 1.")
        .def_property_readonly(
            "date", [](const Record& record) { return DateTime(record.keyword.Get().GetTime()); },
            "That of its keyword.");
}

} // namespace Veld::Quor::Python
