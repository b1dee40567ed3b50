#include "python/src/Binding.h"

#include "quor/metadata/IKeywordListMD.h"

#include <cstdint>

namespace Veld::Quor::Python {

namespace {

using MDType = Keywords::IKeywordDataMD::MDType;

/// A view of the elements as they are stored from `first` on; it holds the deck.
template <class Seen>
py::object View(const DeckPointer& deck, const Keywords::IKeywordListData& list, const void* first)
{
    const auto size = static_cast<py::ssize_t>(list.GetSize());
    if (size == 0)
        return py::array(py::dtype::of<Seen>(), std::vector<py::ssize_t>{0});
    const py::capsule owner(
        new DeckPointer(deck), [](void* held) { delete static_cast<DeckPointer*>(held); });
    py::array view(py::dtype::of<Seen>(), {size}, {static_cast<py::ssize_t>(sizeof(Seen))}, first, owner);
    view.attr("setflags")(py::arg("write") = false);
    return view;
}

/// A new array of objects, one for each element.
template <class Get>
py::object Objects(const Keywords::IKeywordListData& list, const Get& get)
{
    const auto size = static_cast<std::size_t>(list.GetSize());
    py::list items(size);
    for (std::size_t i = 0; i < size; ++i)
        items[i] = Text(get(i));
    py::array array = py::module_::import("numpy").attr("array")(items, py::arg("dtype") = "object");
    array.attr("setflags")(py::arg("write") = false);
    return array;
}

/// Throws, as `As` does for numbers, at a bool that is neither true nor false.
void CheckKnown(const Keywords::IKeywordListData& list)
{
    if (!Keywords::HasUnknown(list))
        return;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.GetSize()); ++i)
        Keywords::ValueAt<bool>(list, i);
}

const Keywords::IKeywordDataMD* FindElementMD(const Keywords::IKeywordData& data)
{
    const Keywords::IKeywordDataMD& md = *data.GetMD();
    return md.GetType() == MDType::List ? Keywords::AsList(md).GetItemMD() : nullptr;
}

} // namespace

bool IsArray(const Keywords::IKeywordData& data)
{
    const Keywords::IKeywordDataMD* const element = FindElementMD(data);
    if (!element)
        return false;
    const MDType::Enum type = element->GetType();
    return type != MDType::List && type != MDType::Record && type != MDType::Map && type != MDType::Raw;
}

py::object ArrayOf(const DeckPointer& deck, const Keywords::IKeywordListData& list)
{
    switch (FindElementMD(list)->GetType()) {
    case MDType::Real:
        return View<double>(deck, list, Keywords::As<double>(list).data());
    case MDType::Integer:
        return View<std::int32_t>(deck, list, Keywords::As<int>(list).data());
    case MDType::Boolean: // a char each
        CheckKnown(list);
        return View<bool>(deck, list, list.GetSize() > 0 ? list.GetData(std::size_t(0)) : nullptr);
    case MDType::Choice:
        return Objects(list, [&](std::size_t i) { return std::string_view(Keywords::ChoiceAt(list, i)); });
    default:
        return Objects(list,
            [texts = Keywords::As<std::string>(list)](std::size_t i) { return std::string_view(texts[i]); });
    }
}

py::object DefaultedOf(const Keywords::IKeywordListData& list)
{
    const auto size = static_cast<std::size_t>(list.GetSize());
    py::array_t<bool> defaulted(static_cast<py::ssize_t>(size));
    bool* const flags = defaulted.mutable_data();
    for (std::size_t i = 0; i < size; ++i)
        flags[i] = list.IsDefaulted(i);
    return defaulted;
}

} // namespace Veld::Quor::Python
