#include "quor/data/internal/ScalarOps.h"

#include "quor/data/internal/GenericKeywordListDataImpl.h"
#include "quor/foundation/service/Optional.h"

#include <boost/lexical_cast.hpp>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <typeinfo>

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace Veld::Quor::Core::Keywords {

using Service::Optional;

namespace {

template <class T>
const Optional<T>& ItemOf(const void* item)
{
    return *static_cast<const Optional<T>*>(item);
}

template <class T>
bool EqualItems(const void* a, const void* b)
{
    return ItemOf<T>(a) == ItemOf<T>(b);
}

/// Wanted: in a record a boolean is compared by truth; any negative byte is no value. In a list it is a byte.
template <>
bool EqualItems<bool>(const void* a, const void* b)
{
    const signed char byteA = *static_cast<const signed char*>(a);
    const signed char byteB = *static_cast<const signed char*>(b);
    if (byteA < 0 || byteB < 0)
        return byteA < 0 && byteB < 0;
    return (byteA > 0) == (byteB > 0);
}

/// A number that stands for no value equals itself and nothing else, so that all are compared as numbers.
template <class T>
bool EqualItemRuns(const void* a, const void* b, std::size_t count)
{
    const auto* const itemsA = static_cast<const Optional<T>*>(a);
    const auto* const itemsB = static_cast<const Optional<T>*>(b);
    unsigned differing = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if constexpr (std::is_same_v<T, int> || std::is_same_v<T, double>)
            differing |= static_cast<unsigned>(!(*itemsA[i] == *itemsB[i]));
        else
            differing |= static_cast<unsigned>(!EqualItems<T>(itemsA + i, itemsB + i));
    }
    return differing == 0;
}

constexpr std::size_t realsInABlock = 16;

/// The number of values up to the first block that differs, or to the last whole one. Two values at once,
/// without a branch for each: compilers of today don't make that of a loop by themselves.
std::size_t CountEqualReals(const double* a, const double* b, std::size_t count)
{
    using Pair = double __attribute__((vector_size(16)));
    using Mask = std::int64_t __attribute__((vector_size(16)));
    std::size_t done = 0;
    for (; done + realsInABlock <= count; done += realsInABlock) {
        Mask differing = {0, 0};
        for (std::size_t i = done; i < done + realsInABlock; i += 2) {
            Pair pairOfA;
            Pair pairOfB;
            std::memcpy(&pairOfA, a + i, sizeof pairOfA);
            std::memcpy(&pairOfB, b + i, sizeof pairOfB);
            differing |= pairOfA != pairOfB;
        }
        if ((differing[0] | differing[1]) != 0)
            return done;
    }
    return done;
}

#ifdef __x86_64__
/// The same, four values at once.
__attribute__((target("avx2"))) std::size_t CountEqualRealsWide(
    const double* a, const double* b, std::size_t count)
{
    std::size_t done = 0;
    for (; done + realsInABlock <= count; done += realsInABlock) {
        __m256d differing = _mm256_setzero_pd();
        for (std::size_t i = done; i < done + realsInABlock; i += 4)
            differing = _mm256_or_pd(
                differing, _mm256_cmp_pd(_mm256_loadu_pd(a + i), _mm256_loadu_pd(b + i), _CMP_NEQ_UQ));
        if (_mm256_movemask_pd(differing) != 0)
            return done;
    }
    return done;
}
#endif

bool EqualReals(const double* a, const double* b, std::size_t count)
{
#ifdef __x86_64__
    const std::size_t done =
        __builtin_cpu_supports("avx2") ? CountEqualRealsWide(a, b, count) : CountEqualReals(a, b, count);
#else
    const std::size_t done = CountEqualReals(a, b, count);
#endif
    return std::equal(a + done, a + std::min(count, done + realsInABlock), b + done);
}

/// Runs at the speed of memory.
template <class Element>
bool EqualValues(const Element* a, const Element* b, std::size_t count)
{
    if constexpr (std::is_integral_v<Element>) {
        return count == 0 || std::memcmp(a, b, count * sizeof(Element)) == 0;
    } else if constexpr (std::is_same_v<Element, double>) {
        return EqualReals(a, b, count);
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            if (a[i] != b[i])
                return false;
        }
        return true;
    }
}

/// For any class of list, a host's own too.
template <class Element>
bool EqualElementByElement(const IKeywordListData& a, const IKeywordListData& b, bool defaultable)
{
    const auto size = static_cast<std::size_t>(a.GetSize());
    for (std::size_t i = 0; i < size; ++i) {
        if (defaultable) {
            const bool flag = a.IsDefaulted(i);
            if (flag != b.IsDefaulted(i))
                return false;
            if (flag)
                continue;
        }
        if (!(*static_cast<const Element*>(a.GetData(i)) == *static_cast<const Element*>(b.GetData(i))))
            return false;
    }
    return true;
}

template <class T>
bool EqualLists(const IKeywordListData& a, const IKeywordListData& b, bool defaultable)
{
    using List = GenericKeywordListDataImpl<T>;
    if (typeid(a) == typeid(List) && typeid(b) == typeid(List)) {
        const auto& listA = static_cast<const List&>(a);
        const auto& listB = static_cast<const List&>(b);
        if (!listA.AnyDefaulted() && !listB.AnyDefaulted())
            return EqualValues(listA.Elements(), listB.Elements(), static_cast<std::size_t>(a.GetSize()));
    }
    return EqualElementByElement<typename List::Element>(a, b, defaultable);
}

std::string Text(int value)
{
    return std::to_string(value);
}

std::string Text(double value)
{
    return boost::lexical_cast<std::string>(value); // 17 significant digits
}

const std::string& Text(const std::string& value)
{
    return value;
}

template <class T>
bool Print(const void* item, const char* separator, std::string& text)
{
    const Optional<T>& value = ItemOf<T>(item);
    if (!value)
        return false;
    text += separator;
    text += Text(*value);
    return true;
}

/// Callers may have written any byte.
template <>
bool Print<bool>(const void* item, const char* separator, std::string& text)
{
    const signed char byte = *static_cast<const signed char*>(item);
    if (byte < 0)
        return false;
    text += separator;
    text += byte > 0 ? '1' : '0';
    return true;
}

template <class T>
constexpr ScalarOps opsOf = {
    sizeof(Optional<T>),
    alignof(Optional<T>),
    std::is_trivially_copyable_v<Optional<T>>,
    [](void* place) { ::new (place) Optional<T>(); },
    [](void* place, const void* item) { ::new (place) Optional<T>(ItemOf<T>(item)); },
    [](void* item) { static_cast<Optional<T>*>(item)->~Optional<T>(); },
    [](const void* item) { return ItemOf<T>(item).HasValue(); },
    EqualItems<T>,
    EqualItemRuns<T>,
    Print<T>,
    [](const IKeywordListMD* md, const IKeywordSyntax* syntax) -> std::unique_ptr<IKeywordData> {
        return std::make_unique<GenericKeywordListDataImpl<T>>(md, syntax);
    },
    EqualLists<T>,
};

} // namespace

const ScalarOps* FindScalarOps(IKeywordDataMD::MDType::Enum type)
{
    using MDType = IKeywordDataMD::MDType;
    switch (type) {
    case MDType::Boolean:
        return &opsOf<bool>;
    case MDType::Choice:
    case MDType::Integer:
        return &opsOf<int>;
    case MDType::Real:
        return &opsOf<double>;
    case MDType::Line:
    case MDType::String:
        return &opsOf<std::string>;
    case MDType::None:
    case MDType::Assignment:
    case MDType::List:
    case MDType::Map:
    case MDType::Raw:
    case MDType::Record:
        break;
    }
    return nullptr;
}

} // namespace Veld::Quor::Core::Keywords
