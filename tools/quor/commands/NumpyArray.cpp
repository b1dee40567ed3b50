#include "tools/quor/commands/NumpyArray.h"

#include "quor/data/Access.h"
#include "quor/data/IKeywordListData.h"
#include "quor/metadata/IKeywordListMD.h"

#include <fmt/format.h>

#include <bit>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <vector>

namespace Veld::Quor::Tools {

using namespace Core::Keywords;

namespace {

using MDType = IKeywordDataMD::MDType;

/// Version 1.0: the magic bytes, the length of the description, and the description, which a blank fills up
/// so that the values begin at a multiple of 64 bytes.
std::string Header(const char* type, std::size_t count)
{
    constexpr std::size_t before = 10;
    std::string text = fmt::format("{{'descr': '{}{}', 'fortran_order': False, 'shape': ({},), }}",
        std::endian::native == std::endian::little ? '<' : '>', type, count);
    text.append(63 - (before + text.size()) % 64, ' ');
    text += '\n';
    std::string header = "\x93NUMPY\x01";
    header += '\0';
    header += static_cast<char>(text.size() & 0xffU);
    header += static_cast<char>(text.size() >> 8U);
    return header + text;
}

template <class T>
std::string BytesOf(const T* first, std::size_t count)
{
    return {reinterpret_cast<const char*>(first), count * sizeof(T)};
}

std::string Reals(const IKeywordListData& list)
{
    const auto given = As<double>(list);
    std::vector<double> values(given.begin(), given.end());
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (given.IsDefaulted(i))
            values[i] = std::numeric_limits<double>::quiet_NaN();
    }
    return Header("f8", values.size()) + BytesOf(values.data(), values.size());
}

std::string Integers(const std::string& keyword, const IKeywordListData& list)
{
    const auto given = As<int>(list);
    for (std::size_t i = 0; i < given.size(); ++i) {
        if (given.IsDefaulted(i))
            throw std::invalid_argument(
                fmt::format("{}: value {} is left to its default, which an array of integers can't hold",
                    keyword, i + 1));
    }
    return Header("i4", given.size()) + BytesOf(given.data(), given.size());
}

} // namespace

std::string NumpyArray(const std::string& keyword, const IKeywordData& data)
{
    const IKeywordDataMD& md = *data.GetMD();
    if (md.GetType() == MDType::List) {
        const auto element = static_cast<const IKeywordListMD&>(md).GetItemMD()->GetType();
        if (element == MDType::Real)
            return Reals(AsList(data));
        if (element == MDType::Integer)
            return Integers(keyword, AsList(data));
    }
    throw std::invalid_argument(
        fmt::format("{}: its data are no list of numbers, but {}", keyword, MDType::ToString(md.GetType())));
}

} // namespace Veld::Quor::Tools
