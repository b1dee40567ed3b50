#pragma once

#include "quor/deck/internal/read/data/DataValue.h"

#include <string>

namespace Veld::Quor::Core::Decks {

/// A scalar of a record, with its metadata.
struct RecordItem {
    const Core::Keywords::IKeywordDataMD* md = nullptr;
    ScalarValue value;
};

/// The scalar under that name, or its default; not given if the record has no such item, or one of another
/// type.
RecordItem FindItem(const Core::Keywords::IKeywordRecordData& record, const char* name,
    Core::Keywords::IKeywordDataMD::MDType::Enum type);
/// Of a text, in upper case: names are the same in any case. Empty if it isn't given.
std::string FindName(const Core::Keywords::IKeywordRecordData& record, const char* name);
/// Of a choice; empty if it isn't given.
std::string FindWord(const Core::Keywords::IKeywordRecordData& record, const char* name);
/// Of a whole number; 0 if it isn't given.
int FindIndex(const Core::Keywords::IKeywordRecordData& record, const char* name);

} // namespace Veld::Quor::Core::Decks
