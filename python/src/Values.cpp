#include "python/src/Binding.h"

#include <datetime.h>

#include <cstdio>
#include <stdexcept>

namespace Veld::Quor::Python {

namespace {

py::str Decode(std::string_view text, const char* errors)
{
    PyObject* const decoded = PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), errors);
    if (!decoded)
        throw py::error_already_set();
    return py::reinterpret_steal<py::str>(decoded);
}

py::value_error UnknownName(const char* what, const std::string& name, const std::string& expected)
{
    return py::value_error("unknown " + std::string(what) + " '" + name + "' (expected " + expected + ")");
}

template <class Type>
typename Type::Enum NamedValue(const std::string& name, const char* what)
{
    std::string names;
    for (const auto& row : Type::EnumInfos()) {
        if (row.text == name)
            return row.value;
        names += (names.empty() ? "" : ", ") + std::string(row.text);
    }
    throw UnknownName(what, name, names);
}

} // namespace

py::str Text(std::string_view text)
{
    return Decode(text, "surrogateescape");
}

py::str Message(std::string_view text)
{
    return Decode(text, "backslashreplace");
}

py::object DateTime(const Service::Time& time)
{
    const std::string text = time.GetAsString();
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, millisecond = 0;
    const bool isRead = std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d.%d", &year, &month, &day, &hour, &minute,
                            &second, &millisecond)
        == 7;
    if (!isRead || year < 1 || year > 9999)
        return py::none();
    if (!PyDateTimeAPI)
        PyDateTime_IMPORT;
    PyObject* const date =
        PyDateTime_FromDateAndTime(year, month, day, hour, minute, second, millisecond * 1000);
    if (!date)
        throw py::error_already_set();
    return py::reinterpret_steal<py::object>(date);
}

Keywords::SimulatorType::Enum SimulatorOf(const std::string& name)
{
    return NamedValue<Keywords::SimulatorType>(name, "simulator");
}

Keywords::SimulatorModeType::Enum ModeOf(const std::string& name)
{
    return NamedValue<Keywords::SimulatorModeType>(name, "mode");
}

Keywords::SectionType::Enum SectionOf(const std::string& name)
{
    std::string names;
    for (int i = 0; i < Keywords::SectionType::Count; ++i) {
        const auto section = static_cast<Keywords::SectionType::Enum>(i);
        const std::string text = Keywords::SectionType::ToString(section);
        if (text == name)
            return section;
        names += (names.empty() ? "" : ", ") + text;
    }
    throw UnknownName("section", name, names);
}

} // namespace Veld::Quor::Python
