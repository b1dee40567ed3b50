#pragma once

#include "quor/deck/CodeInfo.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <string_view>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// What an enumeration of codes means: a row for each code.
template <class Code>
struct CodeRow {
    /// `values`: of the members of `CodeInfo`.
    template <class... Values>
    constexpr CodeRow(Code ofRow, Values... values)
        : code(ofRow)
        , info{values...}
    {
    }

    Code code;
    CodeInfo info;
};

/// Whether the rows are in the order of the codes, up to `last`, so that a code is the position of its row
/// after the `before` rows of another table.
template <class Code, std::size_t count>
constexpr bool HasRowForEach(const CodeRow<Code> (&rows)[count], Code last, std::size_t before = 0)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (rows[i].code != static_cast<Code>(before + i))
            return false;
    }
    return rows[count - 1].code == last;
}

/// By code.
template <class Code, std::size_t count>
std::vector<CodeInfo> InfosOf(const CodeRow<Code> (&rows)[count])
{
    std::vector<CodeInfo> infos;
    for (const CodeRow<Code>& row : rows)
        infos.push_back(row.info);
    return infos;
}

template <class Code>
const CodeInfo& GetInfo(const std::vector<CodeInfo>& infos, Code code)
{
    const auto index = static_cast<std::size_t>(code);
    assert(index < infos.size() && "InfoOf: a code without a row");
    return infos[index];
}

/// Null if no code has the name.
inline const CodeInfo* FindInfo(const std::vector<CodeInfo>& infos, std::string_view name)
{
    const auto info =
        std::find_if(infos.begin(), infos.end(), [name](const CodeInfo& each) { return each.name == name; });
    return info == infos.end() ? nullptr : &*info;
}

} // namespace Veld::Quor::Core::Decks
