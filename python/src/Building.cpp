#include "python/src/Binding.h"

#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/WriteKeyword.h"
#include "quor/metadata/VisitMD.h"

#include <limits>
#include <memory>
#include <string_view>
#include <variant>

namespace Veld::Quor::Python {

using MDType = Keywords::IKeywordDataMD::MDType;

namespace {

void Fill(Keywords::IKeywordData& data, const py::handle& values);

/// Throws `TypeError` with the name of the type that was found instead.
[[noreturn]] void FailType(const std::string& expected, const py::handle& found)
{
    throw py::type_error(
        "expected " + expected + ", not " + std::string(py::str(found.get_type().attr("__name__"))));
}

/// Of Python or of numpy, whose versions have two names for it.
bool IsBool(const py::handle& value)
{
    const std::string_view type = Py_TYPE(value.ptr())->tp_name;
    return PyBool_Check(value.ptr()) || type == "numpy.bool_" || type == "numpy.bool";
}

std::string TextOf(const py::handle& value, const std::string& expected)
{
    if (!PyUnicode_Check(value.ptr()))
        FailType(expected, value);
    return py::cast<std::string>(value.attr("encode")("utf-8", "surrogateescape"));
}

/// Throws `TypeError` for a text, whose characters nobody means, and what has no elements.
py::iterable ElementsOf(const py::handle& values, const std::string& expected)
{
    if (PyUnicode_Check(values.ptr()) || PyBytes_Check(values.ptr()) || !py::isinstance<py::iterable>(values))
        FailType(expected, values);
    return py::reinterpret_borrow<py::iterable>(values);
}

void FillItem(Keywords::IKeywordRecordData& record, int item, const py::handle& value)
{
    if (value.is_none())
        return;
    const Keywords::IKeywordDataMD& md = *Keywords::AsRecord(*record.GetMD()).GetItemMD(item);
    switch (md.GetType()) {
    case MDType::List:
    case MDType::Record:
    case MDType::Map:
    case MDType::Raw:
        Fill(*static_cast<Keywords::IKeywordData*>(record.GetData(item)), value);
        return;
    case MDType::Choice:
        Keywords::SetChoice(record, item,
            TextOf(value, "a word for item '" + ItemName(Keywords::AsRecord(*record.GetMD()), item) + "'"));
        return;
    default:
        break;
    }
    const Decks::NewValue scalar = NewValueOf(value, md);
    std::visit([&](const auto& typed) { Keywords::Set(record, item, typed); }, scalar.Get());
}

void FillRecord(Keywords::IKeywordRecordData& record, const py::handle& values)
{
    if (!py::isinstance<py::dict>(values))
        FailType("a dict of items and values for a record of " + record.GetSyntax()->GetName(), values);
    for (const auto& [name, value] : py::cast<py::dict>(values)) {
        const std::string text = TextOf(name, "the name of an item of " + record.GetSyntax()->GetName());
        const std::optional<int> item = FindItem(Keywords::AsRecord(*record.GetMD()), text);
        if (!item)
            Keywords::Has(record, text); // throws with the names that are near
        else
            FillItem(record, *item, value);
    }
}

void FillScalars(
    Keywords::IKeywordListData& list, const Keywords::IKeywordDataMD& md, const py::handle& values)
{
    if (md.GetType() == MDType::Real) {
        const auto array = py::array_t<double, py::array::c_style | py::array::forcecast>::ensure(values);
        if (!array)
            throw py::type_error("expected numbers, not " + std::string(py::repr(values)));
        Keywords::AddValues(list, array.data(), static_cast<std::size_t>(array.size()));
        return;
    }
    for (const py::handle value : ElementsOf(values, "the values of " + list.GetSyntax()->GetName())) {
        if (md.GetType() == MDType::Choice) {
            Keywords::AddChoice(list, TextOf(value, "a word for " + list.GetSyntax()->GetName()));
            continue;
        }
        const Decks::NewValue scalar = NewValueOf(value, md);
        std::visit([&](const auto& typed) { Keywords::AddValue(list, typed); }, scalar.Get());
    }
}

/// A dict serves as a list of one record.
void FillList(Keywords::IKeywordListData& list, const py::handle& values)
{
    const Keywords::IKeywordDataMD& md = *Keywords::AsList(*list.GetMD()).GetItemMD();
    if (IsArray(list))
        FillScalars(list, md, values);
    else if (md.GetType() == MDType::Record && py::isinstance<py::dict>(values))
        FillRecord(Keywords::AddRecord(list), values);
    else {
        for (const py::handle value : ElementsOf(
                 values, "a dict of items and values, or a list of them, for " + list.GetSyntax()->GetName()))
            Fill(*static_cast<Keywords::IKeywordData*>(list.AddData(nullptr)), value);
    }
}

/// Of Python or numpy.
int WholeNumberOf(const py::handle& value, const std::string& expected)
{
    const auto number = py::reinterpret_steal<py::object>(PyNumber_Index(value.ptr()));
    if (!number) {
        PyErr_Clear();
        FailType(expected, value);
    }
    int overflow = 0;
    const long long whole = PyLong_AsLongLongAndOverflow(number.ptr(), &overflow);
    if (overflow != 0 || whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max())
        throw py::value_error(
            "the number " + py::cast<std::string>(py::str(number)) + " is too large for an integer");
    return static_cast<int>(whole);
}

void FillMap(Keywords::IKeywordMapData& map, const py::handle& values)
{
    const std::string& keyword = map.GetSyntax()->GetName();
    if (!py::isinstance<py::dict>(values))
        FailType("a dict of words and numbers for " + keyword, values);
    for (const auto& [name, value] : py::cast<py::dict>(values)) {
        Keywords::Set(map, TextOf(name, "a word of " + keyword),
            WholeNumberOf(value, "a whole number for each word of " + keyword));
    }
}

void Fill(Keywords::IKeywordData& data, const py::handle& values)
{
    switch (data.GetMD()->GetType()) {
    case MDType::List:
        FillList(Keywords::AsList(data), values);
        return;
    case MDType::Map:
        FillMap(Keywords::AsMap(data), values);
        return;
    case MDType::Raw:
        Keywords::AsRaw(data).SetData(TextOf(values, "the text of " + data.GetSyntax()->GetName()));
        return;
    default:
        FillRecord(Keywords::AsRecord(data), values);
    }
}

/// The entry for a name in a section, or in the first one in which it is valid.
const Keywords::IKeywordSyntax& SyntaxOf(const std::string& name, const std::string& section)
{
    const auto* const syntax = section.empty() ? nullptr : Table().Lookup(name, SectionOf(section), true);
    return syntax ? *syntax : LookUp(name);
}

/// The text of a keyword with the values: a dict, a list of dicts, or a list of numbers.
std::string KeywordText(
    const DeckPointer& deck, const std::string& name, const std::string& section, const py::object& values)
{
    const Keywords::IKeywordSyntax& syntax = SyntaxOf(name, section);
    const auto data = Keywords::KeywordDataFactory::Instance().Construct(syntax);
    if (data)
        Fill(*data, values);
    else if (!values.is_none())
        throw py::value_error(name + " has no data");
    return data ? Decks::WriteKeyword(*data, deck->GetTarget()) : syntax.GetName() + '\n';
}

/// The section in which a keyword is valid first, of those that the deck has.
std::string SectionFor(const DeckPointer& deck, const std::string& name)
{
    const Keywords::IKeywordSyntax& syntax = SyntaxOf(name, {});
    for (const auto section : syntax.GetValidSections()) {
        if (!deck->GetSection(section).empty())
            return Keywords::SectionType::ToString(section);
    }
    RaiseMissing("the deck has no section in which " + name + " is valid", {});
}

} // namespace

Decks::NewValue NewValueOf(const py::handle& value, const Keywords::IKeywordDataMD& md)
{
    if (IsBool(value))
        return py::cast<bool>(value);
    const bool isReal = md.GetType() == MDType::Real;
    if (PyIndex_Check(value.ptr()) && !isReal)
        return WholeNumberOf(value, "a number, a text or a bool");
    if (PyUnicode_Check(value.ptr()))
        return py::cast<std::string>(value.attr("encode")("utf-8", "surrogateescape"));
    if (PyFloat_Check(value.ptr()) || PyNumber_Check(value.ptr()))
        return py::cast<double>(py::float_(py::reinterpret_borrow<py::object>(value)));
    FailType("a number, a text or a bool", value);
}

void BindBuilding(py::module_& module)
{
    module.def(
        "keyword_text", KeywordText, py::arg("deck"), py::arg("name"), py::arg("section"), py::arg("values"));
    module.def("section_for", SectionFor, py::arg("deck"), py::arg("name"));
}

} // namespace Veld::Quor::Python
