#pragma once

#include "quor/data/DefaultedFlags.h"
#include "quor/data/ElementBuffer.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/KeywordDataEqual.h"
#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// The failures of all lists; they throw `Service::Exception`.
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
    [[noreturn]] static void InconsistentType(const char* operation);

private:
    [[noreturn]] static void InvalidIndex();
    [[noreturn]] static void NullValue(const char* operation);
};

/// The elements of a value list, contiguous, and their flags.
template <class T>
class KeywordListDataStorageImpl_ : public IKeywordListData {
public:
    using Element = T;

    std::int64_t GetSize() const override { return static_cast<std::int64_t>(elements_.Size()); }
    void Reserve(std::size_t n) override { elements_.Reserve(n); }
    const void* GetData(std::size_t i) const override { return elements_.Data() + i; }
    void* GetData(std::size_t i) override { return elements_.Data() + i; }

    void AddData(const void* first, const void* last) override
    {
        const T* const values = static_cast<const T*>(first);
        elements_.Append(values, static_cast<std::size_t>(static_cast<const T*>(last) - values));
    }
    void* AddData(const void* value) override
    {
        return value ? elements_.Append(*static_cast<const T*>(value)) : elements_.Append(T());
    }
    void SetData(std::size_t i, const void* value) override
    {
        KeywordListFailure::CheckIndex(i, GetSize());
        KeywordListFailure::CheckValue(value, "KeywordListDataStorageImpl_::SetData");
        elements_.Data()[i] = *static_cast<const T*>(value);
    }
    void RemoveData(std::size_t i) override
    {
        KeywordListFailure::CheckIndex(i, GetSize());
        elements_.Remove(i);
        flags_.Remove(i);
    }
    void Clear() override
    {
        elements_.Clear();
        flags_.Clear();
    }
    bool IsDefaulted(std::size_t i) const override
    {
        KeywordListFailure::CheckIndex(i, GetSize());
        return flags_.Get(i);
    }
    void SetDefaulted(std::size_t i, bool flag) override
    {
        KeywordListFailure::CheckIndex(i, GetSize());
        if (defaultable_)
            flags_.Set(i, flag);
    }

    bool operator==(const IKeywordData& other) const override { return KeywordDataEqual(*this, other); }

    const T* Elements() const { return elements_.Data(); }
    bool AnyDefaulted() const { return flags_.Any(); }

protected:
    KeywordListDataStorageImpl_() = default;

    void SetDefaultable(bool defaultable) { defaultable_ = defaultable; }

private:
    ElementBuffer<T> elements_;
    DefaultedFlags flags_; // none set unless defaultable
    bool defaultable_ = false;
};

template <class T>
class KeywordListData;

/// Chooses the storage of an element type: its own, but for a boolean, whose elements are bytes.
template <class T>
class KeywordListDataBaseClassSelector2_ : public KeywordListDataStorageImpl_<T> {
};
template <>
class KeywordListDataBaseClassSelector2_<bool>;

template <class T>
class KeywordListDataBaseClassSelector_ : public KeywordListDataBaseClassSelector2_<T> {
};

/// Base for a host's own class of a value list. `T` is `int`, `double`, `std::string`, `char` or `bool`.
template <class T>
class KeywordListData : public KeywordListDataBaseClassSelector_<T> {
public:
    bool ReservedQuery() const override { return false; }
};

template <>
class KeywordListDataBaseClassSelector2_<bool> : public KeywordListData<char> {
};

} // namespace Veld::Quor::Core::Keywords
