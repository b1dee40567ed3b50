#include "python/src/Binding.h"

#include "quor/metadata/VisitMD.h"

namespace Veld::Quor::Python {

using MDType = Keywords::IKeywordDataMD::MDType;

namespace {

/// Adds the records in a node: itself, or those of a list. `tables`: how many were met, 0 without any.
void AddRecords(const Keyword& keyword, const Keywords::IKeywordData& data, std::size_t element,
    std::size_t table, std::vector<Record>& records)
{
    const MDType::Enum type = data.GetMD()->GetType();
    if (type == MDType::Record)
        records.push_back({keyword, element, table, &Keywords::AsRecord(data)});
    if (type != MDType::List || IsArray(data))
        return;
    const Keywords::IKeywordListData& list = Keywords::AsList(data);
    const auto* const elementMD = Keywords::AsList(*data.GetMD()).GetItemMD();
    const bool hasTables = elementMD && elementMD->GetType() == MDType::List && table == 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
        AddRecords(keyword, *static_cast<const Keywords::IKeywordData*>(list.GetData(i)),
            keyword.Get().FindData() == &data ? i : element, hasTables ? i + 1 : table, records);
}

const Keywords::IKeywordListData& ListOfScalars(const Keyword& keyword)
{
    const Decks::DeckKeyword handle = keyword.Get();
    const Keywords::IKeywordData* const data = handle.FindData();
    if (!data || !IsArray(*data))
        Raise(handle.GetName() + " has " + (data ? "records" : "no data") + ", and no array",
            handle.GetLocation());
    return Keywords::AsList(*data);
}

/// What the numbers of the array measure; null for plain numbers and all else.
const std::string* FindMeasurement(const Keyword& keyword)
{
    const Keywords::IKeywordData* const data = keyword.Get().FindData();
    if (!data || !IsArray(*data))
        return nullptr;
    const Keywords::IKeywordDataMD& md = *Keywords::AsList(*data->GetMD()).GetItemMD();
    return md.GetType() == MDType::Real ? static_cast<const Keywords::IKeywordRealMD&>(md).GetMeasurement()
                                        : nullptr;
}

py::object Measurement(const Keyword& keyword)
{
    const std::string* const name = FindMeasurement(keyword);
    return name ? py::object(py::str(*name)) : py::none();
}

py::object Unit(const Keyword& keyword)
{
    const std::string* const name = FindMeasurement(keyword);
    return name ? UnitIn(*keyword.deck, *name) : py::none();
}

py::object Value(const Keyword& keyword)
{
    const Keywords::IKeywordData* const data = keyword.Get().FindData();
    return data ? ValueOf(keyword, 0, 0, *data) : py::none();
}

std::vector<Record> Records(const Keyword& keyword)
{
    const Keywords::IKeywordData* const data = keyword.Get().FindData();
    if (!data || !FindRecordMD(data->GetMD()))
        Raise(keyword.Get().GetName() + " has no records", keyword.Get().GetLocation());
    return RecordsOf(keyword);
}

/// Of a keyword with a single record, as the item of that.
py::object Item(const Keyword& keyword, const std::string& name)
{
    const std::vector<Record> records = Records(keyword);
    if (records.size() != 1)
        Raise(keyword.Get().GetName() + " has " + std::to_string(records.size())
                + " records: ask one of its records for '" + name + "'",
            keyword.Get().GetLocation());
    return py::cast(records.front()).attr("__getitem__")(name);
}

/// PORO at field.data:12, 300 values
py::str Show(const Keyword& keyword)
{
    const Decks::DeckKeyword handle = keyword.Get();
    const Decks::Location location = handle.GetLocation();
    std::string text = "<" + handle.GetName() + " at " + location.file + ':' + std::to_string(location.line);
    if (const Keywords::IKeywordData* const data = handle.FindData()) {
        if (IsArray(*data))
            text += ", values: " + std::to_string(Keywords::AsList(*data).GetSize());
        else if (FindRecordMD(data->GetMD()))
            text += ", records: " + std::to_string(RecordsOf(keyword).size());
    }
    return Message(text + '>');
}

} // namespace

const Keywords::IKeywordRecordMD* FindRecordMD(const Keywords::IKeywordDataMD* md)
{
    while (md && md->GetType() == MDType::List)
        md = Keywords::AsList(*md).GetItemMD();
    return md && md->GetType() == MDType::Record ? &Keywords::AsRecord(*md) : nullptr;
}

std::vector<Record> RecordsOf(const Keyword& keyword)
{
    std::vector<Record> records;
    if (const Keywords::IKeywordData* const data = keyword.Get().FindData())
        AddRecords(keyword, *data, 0, 0, records);
    return records;
}

void BindKeywords(py::module_& module)
{
    py::class_<Keyword>(module, "Keyword")
        .def_property_readonly("name", [](const Keyword& keyword) { return Text(keyword.Get().GetName()); })
        .def_property_readonly("section",
            [](const Keyword& keyword) {
                return Keywords::SectionType::ToString(keyword.Get().GetSection());
            })
        .def_property_readonly(
            "date", [](const Keyword& keyword) { return DateTime(keyword.Get().GetTime()); })
        .def_property_readonly("index", [](const Keyword& keyword) { return keyword.index; })
        .def_property_readonly(
            "file", [](const Keyword& keyword) { return Text(keyword.Get().GetLocation().file); })
        .def_property_readonly(
            "line", [](const Keyword& keyword) { return keyword.Get().GetLocation().line; })
        .def_property_readonly("text", [](const Keyword& keyword) { return Text(keyword.Get().GetText()); })
        .def_property_readonly("records", Records)
        .def_property_readonly(
            "array", [](const Keyword& keyword) { return ArrayOf(keyword.deck, ListOfScalars(keyword)); })
        .def_property_readonly(
            "defaulted", [](const Keyword& keyword) { return DefaultedOf(ListOfScalars(keyword)); })
        .def_property_readonly("measurement", Measurement)
        .def_property_readonly("unit", Unit)
        .def("__getitem__", Item)
        .def("__repr__", Show)
        .def("_repr_html_",
            [](const py::object& self) { return py::module_::import("quor._html").attr("keyword")(self); })
        .def_property_readonly("is_sound", [](const Keyword& keyword) { return keyword.Get().IsSound(); })
        .def_property_readonly("value", Value)
        .def_property_readonly("_deck", [](const Keyword& keyword) { return keyword.deck; });
}

} // namespace Veld::Quor::Python
