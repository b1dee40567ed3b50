#pragma once

#include "quor/data/IKeywordData.h"
#include "quor/foundation/Export.h"

#include <cstddef>
#include <cstdint>

namespace Veld::Quor::Core::Keywords {

/// The elements of a list. What an element pointer points at depends on the list's item metadata:
///
/// | item          | element                                   |
/// |---------------|-------------------------------------------|
/// | integer, choice | `int`                                   |
/// | real          | `double`                                  |
/// | string, line  | `std::string`                             |
/// | boolean       | `char`: 0 is false                        |
/// | record, list  | the element's `IKeywordData` itself       |
///
/// An element always has a value. In a list whose metadata say `IsItemDefaultable`, an element that the deck
/// left to its default also has the defaulted flag; other lists have no flags, and setting them does nothing.
///
/// Indices of `GetData` are not checked. A call that throws leaves the list as it was. Element pointers last
/// until the list changes.
class VELD_QUOR_EXPORT IKeywordListData : public IKeywordData {
public:
    ~IKeywordListData() override;

    /// Number of elements.
    virtual std::int64_t GetSize() const = 0;
    /// Makes room for at least `n` elements; never less than before. Throws if there is no memory.
    virtual void Reserve(std::size_t n) = 0;
    /// The element; see the table above for what it is.
    /// @{
    virtual const void* GetData(std::size_t i) const = 0;
    virtual void* GetData(std::size_t i) = 0;
    /// @}
    /// Appends an array of values, which may be a part of the list itself. Does nothing in a list of records
    /// or lists.
    virtual void AddData(const void* first, const void* last) = 0;
    /// Appends a copy of the value and returns the new element; null appends 0, an empty text or an empty
    /// record or list. Throws `Service::Exception` for a record or list of other metadata.
    virtual void* AddData(const void* value) = 0;
    /// Replaces a value by a copy. The flag stays. Throws `Service::Exception` for a bad index, for null, and
    /// for a record or list of other metadata.
    virtual void SetData(std::size_t i, const void* value) = 0;
    /// Throws `Service::Exception` for a bad index.
    virtual void RemoveData(std::size_t i) = 0;
    /// Removes all elements and their flags.
    virtual void Clear() = 0;
    /// Both throw `Service::Exception` for a bad index, but not in a list of records or lists, where all are
    /// false.
    /// @{
    virtual bool IsDefaulted(std::size_t i) const = 0;
    virtual void SetDefaulted(std::size_t i, bool flag) = 0;
    /// @}

protected:
    /// For derived classes alone.
    IKeywordListData();
    IKeywordListData(const IKeywordListData&);
    IKeywordListData& operator=(const IKeywordListData&);
};

} // namespace Veld::Quor::Core::Keywords
