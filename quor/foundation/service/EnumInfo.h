#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Service {

/// One row of an enumeration's table: `T` is the struct around the plain `Enum`.
template <class T>
struct EnumInfo {
    typename T::Enum value; ///< at most one row each
    std::string text; ///< the string form, in exact case
};

/// First row whose text equals `text`, byte for byte. Without one: `*found` is false and the answer is value
/// 0. `found` may be null.
template <class T>
typename T::Enum FindByText(const std::vector<EnumInfo<T>>& rows, std::string_view text, bool* found)
{
    for (const EnumInfo<T>& row : rows) {
        if (row.text == text) {
            if (found)
                *found = true;
            return row.value;
        }
    }
    if (found)
        *found = false;
    return static_cast<typename T::Enum>(0);
}

/// The text of `value`; empty for a value without a row.
template <class T>
const std::string& FindText(const std::vector<EnumInfo<T>>& rows, typename T::Enum value)
{
    static const std::string none;
    for (const EnumInfo<T>& row : rows) {
        if (row.value == value)
            return row.text;
    }
    return none;
}

} // namespace Veld::Quor::Core::Service
