#pragma once

#include "quor/data/KeywordListData.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace Veld::Quor::Core::Keywords {

/// In the place of an element without a value: of a number what stands for "not given" in a record, of a
/// truth value, which is a `char` in a list, neither 0 nor 1.
template <class T>
constexpr T unknownElement = std::numeric_limits<T>::min();
template <>
inline constexpr char unknownElement<char> =
    0x7F; // `char` may have no sign, and its least value is false then

/// The first unknown element from `index` on; null if there is none. A host's own class of list has none.
template <class T>
const T* FindUnknown(const IKeywordListData& list, std::size_t index = 0)
{
    const auto* const storage = dynamic_cast<const KeywordListDataStorageImpl_<T>*>(&list);
    if (!storage || !storage->MayHaveUnknown())
        return nullptr;
    const T* const end = storage->Elements() + storage->GetSize();
    const T* const found = std::find(storage->Elements() + index, end, unknownElement<T>);
    return found == end ? nullptr : found;
}

/// Whether the element at an index of the list is unknown.
template <class T>
bool IsUnknownAt(const IKeywordListData& list, std::size_t i)
{
    const T* const element = static_cast<const T*>(list.GetData(i));
    return *element == unknownElement<T> && FindUnknown<T>(list, i) == element;
}

/// Appends unknown elements: all, or none if memory runs out.
template <class T>
void AppendUnknown(IKeywordListData& list, std::size_t count)
{
    constexpr std::size_t room = 1024;
    T block[room];
    std::fill_n(block, std::min(room, count), unknownElement<T>);
    if (count > room)
        list.Reserve(static_cast<std::size_t>(list.GetSize()) + count);
    for (std::size_t left = count; left > 0; left -= std::min(room, left))
        list.AddData(block, block + std::min(room, left));
    if (auto* const storage = dynamic_cast<KeywordListDataStorageImpl_<T>*>(&list))
        storage->SetMayHaveUnknown();
}

} // namespace Veld::Quor::Core::Keywords
