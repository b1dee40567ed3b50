#pragma once

#include "quor/data/DefaultedFlags.h"
#include "quor/data/ElementBuffer.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/KeywordDataEqual.h"
#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// The failures of all lists; they throw `Service::Exception`. Part of the implementation.
class VELD_QUOR_EXPORT KeywordListFailure {
public:
    /// For an index that is not below `size`.
    static void CheckIndex(std::size_t index, std::int64_t size)
    {
        if (static_cast<std::int64_t>(index) < 0 || static_cast<std::int64_t>(index) >= size)
            InvalidIndex();
    }
    /// `operation` is class and function, as "KeywordListDataStorageImpl_::SetData".
    static void CheckValue(const void* value, const char* operation)
    {
        if (!value)
            NullValue(operation);
    }
    /// For a record or list of other metadata.
    [[noreturn]] static void InconsistentType(const char* operation);

private:
    [[noreturn]] static void InvalidIndex();
    [[noreturn]] static void NullValue(const char* operation);
};

/// The elements of a value list, contiguous, and their flags. Part of the implementation of
/// `KeywordListData`.
template <class T>
class KeywordListDataStorageImpl_ : public IKeywordListData {
public:
    /// What an element pointer points to.
    using Element = T;

    /// See `IKeywordListData`.
    std::int64_t GetSize() const override { return static_cast<std::int64_t>(elements_.Size()); }
    /// See `IKeywordListData`.
    void Reserve(std::size_t n) override { elements_.Reserve(n); }
    /// See `IKeywordListData`.
    const void* GetData(std::size_t i) const override { return elements_.Data() + i; }
    /// See `IKeywordListData`.
    void* GetData(std::size_t i) override { return elements_.Data() + i; }

    /// See `IKeywordListData`.
    void AddData(const void* first, const void* last) override
    {
        const T* const values = static_cast<const T*>(first);
        elements_.Append(values, static_cast<std::size_t>(static_cast<const T*>(last) - values));
    }
    /// See `IKeywordListData`.
    void* AddData(const void* value) override
    {
        return value ? elements_.Append(*static_cast<const T*>(value)) : elements_.Append(T());
    }
    /// See `IKeywordListData`.
    void SetData(std::size_t i, const void* value) override
    {
        KeywordListFailure::CheckIndex(i, GetSize());
        KeywordListFailure::CheckValue(value, "KeywordListDataStorageImpl_::SetData");
        elements_.Data()[i] = *static_cast<const T*>(value);
    }
    /// See `IKeywordListData`.
    void RemoveData(std::size_t i) override
    {
        KeywordListFailure::CheckIndex(i, GetSize());
        elements_.Remove(i);
        flags_.Remove(i);
    }
    /// See `IKeywordListData`.
    void Clear() override
    {
        elements_.Clear();
        flags_.Clear();
        mayHaveUnknown_ = false;
    }
    /// See `IKeywordListData`.
    bool IsDefaulted(std::size_t i) const override
    {
        KeywordListFailure::CheckIndex(i, GetSize());
        return flags_.Get(i);
    }
    /// See `IKeywordListData`.
    void SetDefaulted(std::size_t i, bool flag) override
    {
        KeywordListFailure::CheckIndex(i, GetSize());
        if (defaultable_)
            flags_.Set(i, flag);
    }

    /// See `IKeywordListData`.
    bool operator==(const IKeywordData& other) const override { return KeywordDataEqual(*this, other); }

    /// All elements; may be null if there are none. Lasts until the list changes.
    const T* Elements() const { return elements_.Data(); }
    /// Whether some element has the defaulted flag.
    bool AnyDefaulted() const { return flags_.Any(); }
    /// Whether elements may be there that `AddUnknown` appended.
    bool MayHaveUnknown() const { return mayHaveUnknown_; }
    /// Sets that, up to the next `Clear`.
    void SetMayHaveUnknown() { mayHaveUnknown_ = true; }

protected:
    KeywordListDataStorageImpl_() = default;

    /// Whether the elements have flags, as the metadata say; false at first.
    void SetDefaultable(bool defaultable) { defaultable_ = defaultable; }

private:
    ElementBuffer<T> elements_;
    DefaultedFlags flags_; // none set unless defaultable
    bool defaultable_ = false;
    bool mayHaveUnknown_ = false;
};

template <class T>
class KeywordListData;

/// Chooses the storage of an element type: its own, but for a boolean, whose elements are bytes. Part of the
/// implementation of `KeywordListData`.
template <class T>
class KeywordListDataBaseClassSelector2_ : public KeywordListDataStorageImpl_<T> {
};
template <>
class KeywordListDataBaseClassSelector2_<bool>;

/// Keeps the choice open until `KeywordListData<char>` is known. Part of the implementation.
template <class T>
class KeywordListDataBaseClassSelector_ : public KeywordListDataBaseClassSelector2_<T> {
};

/// Base for a host's own class of a value list. `T` is `int`, `double`, `std::string`, `char` or `bool`. A
/// derived class adds `Clone`, `GetMD` and `GetSyntax`.
template <class T>
class KeywordListData : public KeywordListDataBaseClassSelector_<T> {
public:
    /// See `IKeywordData`.
    bool ReservedQuery() const override { return false; }
};

/// Booleans are bytes.
template <>
class KeywordListDataBaseClassSelector2_<bool> : public KeywordListData<char> {
};

} // namespace Veld::Quor::Core::Keywords
