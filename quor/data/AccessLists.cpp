#include "quor/data/Access.h"

#include "quor/data/internal/AccessCheck.h"
#include "quor/data/internal/UnknownElements.h"
#include "quor/foundation/internal/FloatValue.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/internal/MDCast.h"

#include <type_traits>

namespace Veld::Quor::Core::Keywords {

using MDType = IKeywordDataMD::MDType;
using Service::Optional;

namespace {

AccessSubject ElementOf(const IKeywordListData& list)
{
    return {list.GetSyntax(), CastMD<const IKeywordListMD>(*list.GetMD()).GetItemMD(), "list element"};
}

void CheckIndex(const IKeywordListData& list, std::size_t i)
{
    if (i >= static_cast<std::size_t>(list.GetSize()))
        FailAccess(list.GetSyntax(),
            "element index " + std::to_string(i) + " is out of range; the list has "
                + Counted(list.GetSize(), "element"));
}

template <class T>
void SetElement(IKeywordListData& list, std::size_t i, const T& value)
{
    CheckHolds<T>(ElementOf(list));
    CheckIndex(list, i);
    const ListElement<T> element(value);
    list.SetData(i, &element);
    list.SetDefaulted(i, false);
}

template <class T>
void AddElement(IKeywordListData& list, const T& value)
{
    CheckHolds<T>(ElementOf(list));
    const ListElement<T> element(value);
    list.AddData(&element);
}

template <class T>
void CheckKnown(const IKeywordListData& list, const T* unknown)
{
    if (unknown)
        FailAccess(list.GetSyntax(),
            "element index " + std::to_string(unknown - static_cast<const T*>(list.GetData(0)))
                + " has no value: a variable that isn't set is in its place");
}

/// What `visit` says, called with an element of the type that the list stores; false for a list whose
/// elements can't be unknown.
template <class Visit>
bool VisitElements(const IKeywordListData& list, Visit visit)
{
    const MDType::Enum type = ElementOf(list).Type();
    if (type == MDType::Integer)
        return visit(int());
    if (type == MDType::Real)
        return visit(double());
    return type == MDType::Boolean && visit(char());
}

template <class List>
auto& NestedAt(List& list, std::size_t i, MDType::Enum type)
{
    ElementOf(list).CheckType(type);
    CheckIndex(list, i);
    using Node = std::conditional_t<std::is_const_v<List>, const IKeywordData, IKeywordData>;
    return *static_cast<Node*>(list.GetData(i));
}

IKeywordData& AddNested(IKeywordListData& list, MDType::Enum type)
{
    ElementOf(list).CheckType(type);
    void* const element = list.AddData(nullptr);
    if (!element)
        FailAccess(list.GetSyntax(), "list element has metadata that no data can be made of");
    return *static_cast<IKeywordData*>(element);
}

} // namespace

template <class T>
ArrayView<T> As(const IKeywordListData& list)
{
    CheckHolds<T>(ElementOf(list));
    if constexpr (std::is_arithmetic_v<T>)
        CheckKnown(list, FindUnknown<T>(list));
    return ArrayView<T>(static_cast<const T*>(list.GetSize() == 0 ? nullptr : list.GetData(0)), list);
}

template VELD_QUOR_EXPORT ArrayView<int> As<int>(const IKeywordListData&);
template VELD_QUOR_EXPORT ArrayView<double> As<double>(const IKeywordListData&);
template VELD_QUOR_EXPORT ArrayView<std::string> As<std::string>(const IKeywordListData&);

template <class T>
T ValueAt(const IKeywordListData& list, std::size_t i)
{
    CheckHolds<T>(ElementOf(list));
    CheckIndex(list, i);
    if constexpr (std::is_arithmetic_v<T>) {
        if (IsUnknownAt<ListElement<T>>(list, i))
            CheckKnown(list, static_cast<const ListElement<T>*>(list.GetData(i)));
    }
    return static_cast<T>(*static_cast<const ListElement<T>*>(list.GetData(i)));
}

template VELD_QUOR_EXPORT bool ValueAt<bool>(const IKeywordListData&, std::size_t);
template VELD_QUOR_EXPORT int ValueAt<int>(const IKeywordListData&, std::size_t);
template VELD_QUOR_EXPORT double ValueAt<double>(const IKeywordListData&, std::size_t);
template VELD_QUOR_EXPORT std::string ValueAt<std::string>(const IKeywordListData&, std::size_t);

const std::string& ChoiceAt(const IKeywordListData& list, std::size_t i)
{
    const AccessSubject element = ElementOf(list);
    element.CheckType(MDType::Choice);
    CheckIndex(list, i);
    return WordOfIndex(element, *static_cast<const int*>(list.GetData(i)));
}

bool HasUnknown(const IKeywordListData& list)
{
    return VisitElements(list, [&](auto like) { return FindUnknown<decltype(like)>(list) != nullptr; });
}

bool IsUnknown(const IKeywordListData& list, std::size_t i)
{
    CheckIndex(list, i);
    return VisitElements(list, [&](auto like) { return IsUnknownAt<decltype(like)>(list, i); });
}

void AddUnknown(IKeywordListData& list, std::size_t count)
{
    const bool isDone = VisitElements(list, [&](auto like) {
        AppendUnknown<decltype(like)>(list, count);
        return true;
    });
    if (!isDone)
        ElementOf(list).FailType("Integer, Real or Boolean");
}

void SetValueAt(IKeywordListData& list, std::size_t i, bool value)
{
    SetElement(list, i, value);
}

void SetValueAt(IKeywordListData& list, std::size_t i, int value)
{
    SetElement(list, i, value);
}

void SetValueAt(IKeywordListData& list, std::size_t i, double value)
{
    SetElement(list, i, value);
}

void SetValueAt(IKeywordListData& list, std::size_t i, float value)
{
    SetElement(list, i, ToDouble(value));
}

void SetValueAt(IKeywordListData& list, std::size_t i, std::string_view value)
{
    SetElement(list, i, std::string(value));
}

void SetValueAt(IKeywordListData& list, std::size_t i, const char* value)
{
    SetElement(list, i, std::string(GivenText(value)));
}

void SetChoiceAt(IKeywordListData& list, std::size_t i, std::string_view word)
{
    const int index = IndexOfWord(ElementOf(list), word);
    CheckIndex(list, i);
    list.SetData(i, &index);
    list.SetDefaulted(i, false);
}

void AddValue(IKeywordListData& list, bool value)
{
    AddElement(list, value);
}

void AddValue(IKeywordListData& list, int value)
{
    AddElement(list, value);
}

void AddValue(IKeywordListData& list, double value)
{
    AddElement(list, value);
}

void AddValue(IKeywordListData& list, float value)
{
    AddElement(list, ToDouble(value));
}

void AddValue(IKeywordListData& list, std::string_view value)
{
    AddElement(list, std::string(value));
}

void AddValue(IKeywordListData& list, const char* value)
{
    AddElement(list, std::string(GivenText(value)));
}

template <class T>
void AddValues(IKeywordListData& list, const T* first, std::size_t count)
{
    CheckHolds<T>(ElementOf(list));
    list.AddData(first, first + count);
}

template VELD_QUOR_EXPORT void AddValues<int>(IKeywordListData&, const int*, std::size_t);
template VELD_QUOR_EXPORT void AddValues<double>(IKeywordListData&, const double*, std::size_t);
template VELD_QUOR_EXPORT void AddValues<std::string>(IKeywordListData&, const std::string*, std::size_t);

void AddChoice(IKeywordListData& list, std::string_view word)
{
    const int index = IndexOfWord(ElementOf(list), word);
    list.AddData(&index);
}

IKeywordRecordData& RecordAt(IKeywordListData& list, std::size_t i)
{
    return AsRecord(NestedAt(list, i, MDType::Record));
}

const IKeywordRecordData& RecordAt(const IKeywordListData& list, std::size_t i)
{
    return AsRecord(NestedAt(list, i, MDType::Record));
}

IKeywordListData& ListAt(IKeywordListData& list, std::size_t i)
{
    return AsList(NestedAt(list, i, MDType::List));
}

const IKeywordListData& ListAt(const IKeywordListData& list, std::size_t i)
{
    return AsList(NestedAt(list, i, MDType::List));
}

IKeywordRecordData& AddRecord(IKeywordListData& list)
{
    return AsRecord(AddNested(list, MDType::Record));
}

IKeywordListData& AddList(IKeywordListData& list)
{
    return AsList(AddNested(list, MDType::List));
}

RecordRange<IKeywordListData> Records(IKeywordListData& list)
{
    ElementOf(list).CheckType(MDType::Record);
    return RecordRange<IKeywordListData>(list);
}

RecordRange<const IKeywordListData> Records(const IKeywordListData& list)
{
    ElementOf(list).CheckType(MDType::Record);
    return RecordRange<const IKeywordListData>(list);
}

} // namespace Veld::Quor::Core::Keywords
