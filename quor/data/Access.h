#pragma once

#include "quor/data/DataIterator.h"
#include "quor/data/DataViews.h"
#include "quor/data/IKeywordListData.h"
#include "quor/data/IKeywordMapData.h"
#include "quor/data/IKeywordRawData.h"
#include "quor/data/IKeywordRecordData.h"
#include "quor/foundation/Export.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/service/Exception.h"
#include "quor/foundation/service/Optional.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace Veld::Quor::Core::Keywords {

class IKeywordListMD;
class IKeywordMapMD;
class IKeywordRecordMD;

/// @file
/// Typed access to data. Every function checks what it is asked against the metadata and throws
/// `DataAccessError` if they disagree; the data are then as they were.
///
///     IKeywordRecordData& well = AddRecord(AsList(*data));
///     Set(well, "WELL", "P1");
///     SetChoice(well, "CONTROL", "ORAT");
///     Set(well, "ORAT", 900.0);
///     Service::Optional<double> rate = Get<double>(well, "ORAT"); // no value: not given
///
/// `T` is the type of the metadata and nothing is converted: `bool` for Boolean, `int` for Integer, `double`
/// for Real, `std::string` for String and Line. A Choice is read and written by its word. Numbers are in the
/// unit of the deck. References and views last as long as the data they come from, views of a list until the
/// list changes. One thread at a time, or several that only read.

/// The program asks for something that the keyword does not have: an unknown item, another type, an index out
/// of range. Derives from `Service::Exception`, as what is thrown for documents and decks does; it is
/// a separate class because the mistake is in the program, not in a deck or a document. The text has the
/// keyword, the item, and the actual and the expected type: "WCONPROD: item 'ORAT' is Real, not String".
class VELD_QUOR_EXPORT DataAccessError : public Service::Exception {
public:
    /// Copies the text.
    explicit DataAccessError(const std::string& message);
    DataAccessError(const DataAccessError&) = default;
    DataAccessError& operator=(const DataAccessError&) = default;
    ~DataAccessError() override;
};

/// An item of a record, by name (exact, case included) or by index from 0. Keeps no copy of the name.
class ItemKey {
public:
    /// Implicit: a call shows what the argument is. A name must outlive the key; one that is null is
    /// as index -1.
    /// @{
    ItemKey(int index)
        : index_(index)
    {
    }
    ItemKey(const char* name)
        : name_(name ? std::string_view(name) : std::string_view())
    {
    }
    ItemKey(std::string_view name)
        : name_(name)
    {
    }
    ItemKey(const std::string& name)
        : name_(name)
    {
    }
    /// @}
    /// A character is no index.
    template <class T, class = std::enable_if_t<std::is_same_v<T, char>>>
    ItemKey(T character) = delete;

    /// Whether the key is a name; else it is an index.
    bool IsName() const { return index_ < 0 && name_.data(); }
    /// -1 for a name.
    int Index() const { return index_; }
    /// Empty for an index.
    std::string_view Name() const { return name_; }

private:
    int index_ = -1;
    std::string_view name_;
};

// What data are.

/// The same node by the interface of its type.
/// @{
VELD_QUOR_EXPORT IKeywordRecordData& AsRecord(IKeywordData& data);
VELD_QUOR_EXPORT const IKeywordRecordData& AsRecord(const IKeywordData& data);
VELD_QUOR_EXPORT IKeywordListData& AsList(IKeywordData& data);
VELD_QUOR_EXPORT const IKeywordListData& AsList(const IKeywordData& data);
VELD_QUOR_EXPORT IKeywordMapData& AsMap(IKeywordData& data);
VELD_QUOR_EXPORT const IKeywordMapData& AsMap(const IKeywordData& data);
VELD_QUOR_EXPORT IKeywordRawData& AsRaw(IKeywordData& data);
VELD_QUOR_EXPORT const IKeywordRawData& AsRaw(const IKeywordData& data);
/// @}

/// The same for a node of metadata.
/// @{
VELD_QUOR_EXPORT const IKeywordRecordMD& AsRecord(const IKeywordDataMD& md);
VELD_QUOR_EXPORT const IKeywordListMD& AsList(const IKeywordDataMD& md);
VELD_QUOR_EXPORT const IKeywordMapMD& AsMap(const IKeywordDataMD& md);
/// @}

// Records. The scalar functions throw for an item that is a container.

/// The value, or none if it is not given. `T` is `bool`, `int`, `double` or `std::string`.
template <class T>
VELD_QUOR_EXPORT Service::Optional<T> Get(const IKeywordRecordData& record, ItemKey item);
/// The value, or else the default of exactly that simulator: none if the default is calculated or absent.
template <class T>
VELD_QUOR_EXPORT Service::Optional<T> GetOrDefault(
    const IKeywordRecordData& record, ItemKey item, SimulatorType::Enum simulator);
/// The word of a Choice, or none if it is not given.
VELD_QUOR_EXPORT Service::Optional<std::string> GetChoice(const IKeywordRecordData& record, ItemKey item);
/// The word of a Choice, or else that of the default of exactly that simulator: none if the default is
/// calculated, absent or no word of the Choice.
VELD_QUOR_EXPORT Service::Optional<std::string> GetChoiceOrDefault(
    const IKeywordRecordData& record, ItemKey item, SimulatorType::Enum simulator);
/// Whether a value is given.
VELD_QUOR_EXPORT bool Has(const IKeywordRecordData& record, ItemKey item);

/// Throws also for the two numbers that stand for "not given": -2147483648 and the smallest normal `double`.
/// An `int` does not become a Real: write 900.0. A `float` is taken as the number of fewest digits that it
/// is: 0.1F as 0.1.
/// @{
VELD_QUOR_EXPORT void Set(IKeywordRecordData& record, ItemKey item, bool value);
VELD_QUOR_EXPORT void Set(IKeywordRecordData& record, ItemKey item, int value);
VELD_QUOR_EXPORT void Set(IKeywordRecordData& record, ItemKey item, double value);
VELD_QUOR_EXPORT void Set(IKeywordRecordData& record, ItemKey item, float value);
VELD_QUOR_EXPORT void Set(IKeywordRecordData& record, ItemKey item, std::string_view value);
VELD_QUOR_EXPORT void Set(IKeywordRecordData& record, ItemKey item, const char* value);
/// @}
/// A pointer is no bool.
template <class T, class = std::enable_if_t<!std::is_same_v<std::remove_const_t<T>, char>>>
void Set(IKeywordRecordData& record, ItemKey item, T* value) = delete;
/// `word` is a word of the Choice, whole and without regard to case.
VELD_QUOR_EXPORT void SetChoice(IKeywordRecordData& record, ItemKey item, std::string_view word);
/// The item is then not given.
VELD_QUOR_EXPORT void Clear(IKeywordRecordData& record, ItemKey item);

/// An item that is a container; it always exists.
/// @{
VELD_QUOR_EXPORT IKeywordRecordData& RecordIn(IKeywordRecordData& record, ItemKey item);
VELD_QUOR_EXPORT const IKeywordRecordData& RecordIn(const IKeywordRecordData& record, ItemKey item);
VELD_QUOR_EXPORT IKeywordListData& ListIn(IKeywordRecordData& record, ItemKey item);
VELD_QUOR_EXPORT const IKeywordListData& ListIn(const IKeywordRecordData& record, ItemKey item);
VELD_QUOR_EXPORT IKeywordMapData& MapIn(IKeywordRecordData& record, ItemKey item);
VELD_QUOR_EXPORT const IKeywordMapData& MapIn(const IKeywordRecordData& record, ItemKey item);
VELD_QUOR_EXPORT IKeywordRawData& RawIn(IKeywordRecordData& record, ItemKey item);
VELD_QUOR_EXPORT const IKeywordRawData& RawIn(const IKeywordRecordData& record, ItemKey item);
/// @}

// Lists of values. Element `i` counts from 0. An element left to its default has a value and a flag. An
// unknown element of a list of numbers or booleans has no value: a deck has a variable that isn't set in its
// place.

/// All elements without a copy; one left to its default, `IsDefaulted(i)`, holds a value that nobody gave.
/// `T` is `int`, `double` or `std::string`; booleans are read one by one. Throws also if an element is
/// unknown: read such a list with `IsUnknown` and `ValueAt`. Takes the same time for a list of any size,
/// unless one of its elements was unknown.
template <class T>
VELD_QUOR_EXPORT ArrayView<T> As(const IKeywordListData& list);
/// A copy of the element. `T` may also be `bool`. Throws also if the element is unknown.
template <class T>
VELD_QUOR_EXPORT T ValueAt(const IKeywordListData& list, std::size_t i);
template <>
float ValueAt<float>(const IKeywordListData& list, std::size_t i) = delete; // a Real is a double
/// The word of a Choice; it is the table's. Throws also if the list holds an index that no word has.
VELD_QUOR_EXPORT const std::string& ChoiceAt(const IKeywordListData& list, std::size_t i);

/// Whether some element of a list of numbers or booleans is unknown; false for any other list.
VELD_QUOR_EXPORT bool HasUnknown(const IKeywordListData& list);
/// Whether the element of a list of numbers or booleans is unknown; false for any other list. Throws for a
/// bad index.
VELD_QUOR_EXPORT bool IsUnknown(const IKeywordListData& list, std::size_t i);
/// Appends elements that are unknown until their value is set. The list must be one of numbers or booleans.
VELD_QUOR_EXPORT void AddUnknown(IKeywordListData& list, std::size_t count = 1);

/// Also clears the element's defaulted flag. A `float` is taken as `Set` takes it.
/// @{
VELD_QUOR_EXPORT void SetValueAt(IKeywordListData& list, std::size_t i, bool value);
VELD_QUOR_EXPORT void SetValueAt(IKeywordListData& list, std::size_t i, int value);
VELD_QUOR_EXPORT void SetValueAt(IKeywordListData& list, std::size_t i, double value);
VELD_QUOR_EXPORT void SetValueAt(IKeywordListData& list, std::size_t i, float value);
VELD_QUOR_EXPORT void SetValueAt(IKeywordListData& list, std::size_t i, std::string_view value);
VELD_QUOR_EXPORT void SetValueAt(IKeywordListData& list, std::size_t i, const char* value);
/// @}
/// A pointer is no bool.
template <class T, class = std::enable_if_t<!std::is_same_v<std::remove_const_t<T>, char>>>
void SetValueAt(IKeywordListData& list, std::size_t i, T* value) = delete;
/// `word` is a word of the Choice, whole and without regard to case. Removes the flag.
VELD_QUOR_EXPORT void SetChoiceAt(IKeywordListData& list, std::size_t i, std::string_view word);

/// Appends a copy, without a defaulted flag. A `float` is taken as `Set` takes it.
/// @{
VELD_QUOR_EXPORT void AddValue(IKeywordListData& list, bool value);
VELD_QUOR_EXPORT void AddValue(IKeywordListData& list, int value);
VELD_QUOR_EXPORT void AddValue(IKeywordListData& list, double value);
VELD_QUOR_EXPORT void AddValue(IKeywordListData& list, float value);
VELD_QUOR_EXPORT void AddValue(IKeywordListData& list, std::string_view value);
VELD_QUOR_EXPORT void AddValue(IKeywordListData& list, const char* value);
/// @}
/// A pointer is no bool.
template <class T, class = std::enable_if_t<!std::is_same_v<std::remove_const_t<T>, char>>>
void AddValue(IKeywordListData& list, T* value) = delete;
/// Appends copies of `count` values at once, which may be part of the list itself. `T` is `int`, `double` or
/// `std::string`.
template <class T>
VELD_QUOR_EXPORT void AddValues(IKeywordListData& list, const T* first, std::size_t count);
template <>
void AddValues<float>(IKeywordListData& list, const float* first, std::size_t count) = delete; // as above
/// `word` is a word of the Choice, whole and without regard to case.
VELD_QUOR_EXPORT void AddChoice(IKeywordListData& list, std::string_view word);

// Lists of records and lists of lists.

/// The element itself, which the list owns.
/// @{
VELD_QUOR_EXPORT IKeywordRecordData& RecordAt(IKeywordListData& list, std::size_t i);
VELD_QUOR_EXPORT const IKeywordRecordData& RecordAt(const IKeywordListData& list, std::size_t i);
VELD_QUOR_EXPORT IKeywordListData& ListAt(IKeywordListData& list, std::size_t i);
VELD_QUOR_EXPORT const IKeywordListData& ListAt(const IKeywordListData& list, std::size_t i);
/// @}
/// Appends a record whose items are not given; the list owns it.
VELD_QUOR_EXPORT IKeywordRecordData& AddRecord(IKeywordListData& list);
/// Appends an empty list; the outer list owns it.
VELD_QUOR_EXPORT IKeywordListData& AddList(IKeywordListData& list);

/// The records of a list, for a range-based `for`. Records may be changed on the way, but not added or
/// removed.
/// @{
VELD_QUOR_EXPORT RecordRange<IKeywordListData> Records(IKeywordListData& list);
VELD_QUOR_EXPORT RecordRange<const IKeywordListData> Records(const IKeywordListData& list);
/// @}

// Maps, by key: without regard to case and to blanks around the key. All throw for a key that the map does
// not know; a key that only a wildcard accepts is known.

/// The value, or none if it is not given; defaults are in the metadata alone. Throws for an unknown key; one
/// that only a wildcard accepts is known, and not given until it is set.
VELD_QUOR_EXPORT Service::Optional<int> Get(const IKeywordMapData& map, std::string_view key);
/// Whether a value is given. Throws for an unknown key.
VELD_QUOR_EXPORT bool Has(const IKeywordMapData& map, std::string_view key);
/// Throws for an unknown key, and for -2147483648, which stands for "not given".
VELD_QUOR_EXPORT void Set(IKeywordMapData& map, std::string_view key, int value);
/// The key is then not given. Throws for an unknown key.
VELD_QUOR_EXPORT void Clear(IKeywordMapData& map, std::string_view key);

// Stops of a walk.

/// The scalar at a stop, or none if it is not given. A value of a map is an `int`.
template <class T>
VELD_QUOR_EXPORT Service::Optional<T> Get(const ConstDataIterator::ValueType& stop);
/// The word of a Choice at a stop.
VELD_QUOR_EXPORT Service::Optional<std::string> GetChoice(const ConstDataIterator::ValueType& stop);

} // namespace Veld::Quor::Core::Keywords
