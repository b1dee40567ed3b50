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

py::object ArrayOfKeyword(const Keyword& keyword)
{
    const Keywords::IKeywordListData& list = ListOfScalars(keyword);
    try {
        return ArrayOf(keyword.deck, list);
    } catch (const Keywords::DataAccessError& error) { // such as a value that isn't known
        Raise(error.what(), keyword.Get().GetLocation());
    }
}

/// What the numbers of the array measure; null for plain numbers and all else.
const std::string* FindArrayMeasurement(const Keyword& keyword)
{
    const Keywords::IKeywordData* const data = keyword.Get().FindData();
    if (!data || !IsArray(*data))
        return nullptr;
    const Keywords::IKeywordDataMD& md = *Keywords::AsList(*data->GetMD()).GetItemMD();
    return md.GetType() == MDType::Real ? static_cast<const Keywords::IKeywordRealMD&>(md).GetMeasurement()
                                        : nullptr;
}

py::object MeasurementOfArray(const Keyword& keyword)
{
    const std::string* const name = FindArrayMeasurement(keyword);
    return name ? py::object(py::str(*name)) : py::none();
}

py::object UnitOfArray(const Keyword& keyword)
{
    const std::string* const name = FindArrayMeasurement(keyword);
    return name ? UnitIn(*keyword.deck, *name) : py::none();
}

py::object ValueOfKeyword(const Keyword& keyword)
{
    const Keywords::IKeywordData* const data = keyword.Get().FindData();
    return data ? ValueOf(keyword, 0, 0, *data) : py::none();
}

std::vector<Record> RecordsOrError(const Keyword& keyword)
{
    const Keywords::IKeywordData* const data = keyword.Get().FindData();
    if (!data)
        return {};
    if (!FindRecordMD(data->GetMD()))
        Raise(keyword.Get().GetName() + " has no records", keyword.Get().GetLocation());
    return RecordsOf(keyword);
}

/// Of a keyword with a single record, as the item of that.
py::object SingleItem(const Keyword& keyword, const std::string& name)
{
    const std::vector<Record> records = RecordsOrError(keyword);
    if (records.size() != 1)
        Raise(keyword.Get().GetName() + " has " + std::to_string(records.size())
                + " records: ask one of its records for '" + name + "'",
            keyword.Get().GetLocation());
    return py::cast(records.front()).attr("__getitem__")(name);
}

/// PORO at field.data:12, 300 values
py::str ShowKeyword(const Keyword& keyword)
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

void BindPlace(py::class_<Keyword>& bound)
{
    bound
        .def_property_readonly(
            "name", [](const Keyword& keyword) { return Text(keyword.Get().GetName()); }, "In upper case.")
        .def_property_readonly(
            "section",
            [](const Keyword& keyword) {
                return Keywords::SectionType::ToString(keyword.Get().GetSection());
            },
            "The section that it is in, such as \"GRID\".")
        .def_property_readonly(
            "date", [](const Keyword& keyword) { return DateTime(keyword.Get().GetTime()); },
            "The date of the report step before it, or the start; None outside SCHEDULE.")
        .def_property_readonly(
            "index", [](const Keyword& keyword) { return keyword.index; },
            "Its position in the deck, from 0.")
        .def_property_readonly(
            "file", [](const Keyword& keyword) { return Text(keyword.Get().GetLocation().file); },
            "The path of its file.")
        .def_property_readonly(
            "line", [](const Keyword& keyword) { return keyword.Get().GetLocation().line; }, "From 1.")
        .def_property_readonly(
            "text", [](const Keyword& keyword) { return Text(keyword.Get().GetText()); },
            "It and its data as they are in the file.")
        .def_property_readonly("_deck", [](const Keyword& keyword) { return keyword.deck; });
}

void BindData(py::class_<Keyword>& bound)
{
    bound
        .def_property_readonly("records", RecordsOrError,
            "Its records, those of tables one after the other; empty without data. A keyword with an array "
            "raises QuorError.")
        .def_property_readonly("array", ArrayOfKeyword,
            "Its values, of shape (n,) and in `unit`: a read-only view of float64, int32 or bool that holds "
            "the data, or a new array of texts. A keyword with records raises QuorError.")
        .def_property_readonly(
            "defaulted", [](const Keyword& keyword) { return DefaultedOf(ListOfScalars(keyword)); },
            "For each value of the array, of shape (n,), whether the deck left it to its default: then "
            "nobody gave the value.")
        .def_property_readonly("measurement", MeasurementOfArray,
            "What the array measures, such as \"pressure\"; None for plain numbers.")
        .def_property_readonly(
            "unit", UnitOfArray, "The unit of the array in the system of the deck; None for plain numbers.")
        .def("__getitem__", SingleItem, "The item of a keyword with a single record.")
        .def("__repr__", ShowKeyword)
        .def("_repr_html_",
            [](const py::object& self) { return py::module_::import("quor._html").attr("keyword")(self); })
        .def_property_readonly(
            "is_sound", [](const Keyword& keyword) { return keyword.Get().IsSound(); },
            "Whether no errors were found in it.")
        .def_property_readonly("value", ValueOfKeyword,
            "Its data of any kind: a record, a list, an array, a dict, a text, or None.");
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
    py::class_<Keyword> bound(module, "Keyword",
        "One keyword of a deck, with its data. It stays as it was when the deck is changed.");
    BindPlace(bound);
    BindData(bound);
}

} // namespace Veld::Quor::Python
