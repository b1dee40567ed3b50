#pragma once

#include "quor/data/IKeywordRecordData.h"
#include "quor/deck/internal/read/data/DataValue.h"

#include <string>
#include <vector>

namespace Veld::Quor::Core::Decks {

/// A scalar of a record, with its metadata.
struct RecordItem {
    const Core::Keywords::IKeywordDataMD* md = nullptr;
    ScalarValue value;
};

/// The items of records by their names, which for records of one kind are looked for once.
class RecordItems {
public:
    using Record = Core::Keywords::IKeywordRecordData;
    using MDType = Core::Keywords::IKeywordDataMD::MDType;

    /// The scalar under that name, or its default; not given if the record has no such item, or one of
    /// another type. `name` must outlive this object.
    RecordItem Find(const Record& record, const char* name, MDType::Enum type);
    /// Of a text, in upper case: names are the same in any case. Empty if it isn't given.
    std::string FindName(const Record& record, const char* name);
    /// Of a choice; empty if it isn't given.
    std::string FindWord(const Record& record, const char* name);
    /// Of a whole number; 0 if it isn't given.
    int FindIndex(const Record& record, const char* name);

private:
    struct Place {
        const char* name;
        MDType::Enum type;
        int item; // -1: there is none
    };
    int FindPlace(const Record& record, const char* name, MDType::Enum type);

    const Core::Keywords::IKeywordDataMD* md_ = nullptr; // of the last record
    std::vector<Place> places_; // in it
};

/// The same for one record.
/// @{
inline RecordItem FindItem(
    const RecordItems::Record& record, const char* name, RecordItems::MDType::Enum type)
{
    return RecordItems().Find(record, name, type);
}
inline std::string FindName(const RecordItems::Record& record, const char* name)
{
    return RecordItems().FindName(record, name);
}
inline std::string FindWord(const RecordItems::Record& record, const char* name)
{
    return RecordItems().FindWord(record, name);
}
inline int FindIndex(const RecordItems::Record& record, const char* name)
{
    return RecordItems().FindIndex(record, name);
}
/// @}

} // namespace Veld::Quor::Core::Decks
