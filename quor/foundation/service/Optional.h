#pragma once

#include <cfloat>
#include <climits>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace Veld::Quor::Core::Service {

/// How "no value" is represented for `T`. A specialisation has `Storage`, what an `Optional` consists of;
/// `Make`, the storage of a value; `Empty`, that of no value; `IsEmpty`; and `Get`, the value in a storage
/// that is not empty.
template <class T, class Enable = void>
struct OptionalTraits {
    static_assert(!std::is_same_v<T, T>,
        "an Optional has a value of type int, double, bool or std::string, or an enumeration");
};

/// `int` and enumerations: the value -2147483648 is no value.
template <class T>
struct OptionalTraits<T, std::enable_if_t<std::is_same_v<T, int> || std::is_enum_v<T>>> {
    static_assert(sizeof(T) == sizeof(int), "an enumeration in an Optional is 32 bits wide");
    /// See `OptionalTraits`.
    /// @{
    using Storage = T;
    static Storage Make(T value) { return value; }
    static Storage Empty() { return static_cast<T>(INT_MIN); }
    static bool IsEmpty(const Storage& storage) { return static_cast<int>(storage) == INT_MIN; }
    static T& Get(Storage& storage) { return storage; }
    static const T& Get(const Storage& storage) { return storage; }
    /// @}
};

/// `double`: the smallest normal number is no value.
template <>
struct OptionalTraits<double> {
    /// See `OptionalTraits`.
    /// @{
    using Storage = double;
    static Storage Make(double value) { return value; }
    static Storage Empty() { return DBL_MIN; }
    static bool IsEmpty(const Storage& storage) { return storage == DBL_MIN; }
    static double& Get(Storage& storage) { return storage; }
    static const double& Get(const Storage& storage) { return storage; }
    /// @}
};

/// `bool`: the byte value 255 is no value. The byte is looked at as a `bool` only when it holds one.
template <>
struct OptionalTraits<bool> {
    /// One byte, that of a `bool` or 255. A union: a byte that is only cast to a `bool` holds none for an
    /// optimizer, which may then read it before it is written.
    union Storage {
        bool value; ///< what is given
        unsigned char byte; ///< 255: no value
    };
    static_assert(sizeof(Storage) == 1);
    /// See `OptionalTraits`.
    /// @{
    static Storage Make(bool value)
    {
        Storage storage;
        storage.value = value;
        return storage;
    }
    static Storage Empty()
    {
        Storage storage;
        storage.byte = 255;
        return storage;
    }
    static bool IsEmpty(const Storage& storage)
    {
        return *reinterpret_cast<const unsigned char*>(&storage) == 255;
    }
    static bool& Get(Storage& storage) { return storage.value; }
    static const bool& Get(const Storage& storage) { return storage.value; }
    /// @}
};

/// `std::string`: a flag is beside it, since every text is a value.
template <>
struct OptionalTraits<std::string> {
    /// The text and the flag.
    struct Storage {
        std::string text; ///< empty without a value
        bool set; ///< whether there is a value
    };
    /// See `OptionalTraits`.
    /// @{
    static Storage Make(std::string value) { return {std::move(value), true}; }
    static Storage Empty() { return {std::string(), false}; }
    static bool IsEmpty(const Storage& storage) { return !storage.set; }
    static std::string& Get(Storage& storage) { return storage.text; }
    static const std::string& Get(const Storage& storage) { return storage.text; }
    /// @}
};

/// A `T` or nothing. The object is exactly `Traits::Storage`: for `int`, `double`, `bool` and enumerations
/// one value of the type is given up to mean "nothing", so a million of them take no more room than the plain
/// values. Storing that value therefore empties the object.
template <class T, class Traits = OptionalTraits<T>>
class Optional {
public:
    /// For generic code, as in `std::optional`.
    using value_type = T;

    Optional()
        : storage_(Traits::Empty())
    {
    }
    /// Implicit: a value is an `Optional` that holds it, unless it is the one that stands for nothing.
    /// @{
    Optional(const T& value)
        : storage_(Traits::Make(value))
    {
    }
    Optional(T&& value)
        : storage_(Traits::Make(std::move(value)))
    {
    }
    /// @}

    /// Whether there is a value.
    /// @{
    explicit operator bool() const { return HasValue(); }
    bool HasValue() const { return !Traits::IsEmpty(storage_); }
    /// @}

    /// The value itself, for as long as the object lives and is not reset. Only with a value: not checked.
    /// @{
    T& operator*() { return Traits::Get(storage_); }
    const T& operator*() const { return Traits::Get(storage_); }
    T* operator->() { return &Traits::Get(storage_); }
    const T* operator->() const { return &Traits::Get(storage_); }
    /// @}

    /// The same, checked: throws `std::bad_optional_access` without a value.
    /// @{
    T& Value()
    {
        Require();
        return **this;
    }
    const T& Value() const
    {
        Require();
        return **this;
    }
    /// @}
    /// The value, or `other` if there is none.
    T ValueOr(T other) const { return HasValue() ? **this : std::move(other); }
    /// Takes the value away.
    void Reset() { storage_ = Traits::Empty(); }

    /// Equal if both have no value, or both have equal ones.
    /// @{
    friend bool operator==(const Optional& a, const Optional& b)
    {
        if (!a.HasValue() || !b.HasValue())
            return a.HasValue() == b.HasValue();
        return *a == *b;
    }
    friend bool operator!=(const Optional& a, const Optional& b) { return !(a == b); }
    /// @}

private:
    void Require() const
    {
        if (!HasValue())
            throw std::bad_optional_access();
    }

    typename Traits::Storage storage_;
};

} // namespace Veld::Quor::Core::Service
