#pragma once

#include "quor/deck/internal/read/values/DataPlan.h"

namespace Veld::Quor::Core::Keywords {
class IKeywordData;
class IKeywordRecordData;
} // namespace Veld::Quor::Core::Keywords

namespace Veld::Quor::Core::Decks {

// What a writer asks about the form of data.

bool IsNumber(const DataPlan& item);
/// Whether it ends with its line, and isn't a line itself.
bool IsOneLine(const DataPlan& plan);
/// Whether a slash in place of the item would end what is in it, and not the record.
bool TakesSlash(const DataPlan& item);
/// Whether a slash alone, or an empty line, would not be an element of the list.
bool NeedsWords(const DataPlan& list);
/// Whether it is a record of nothing but scalars that may share a line.
bool IsFlat(const DataPlan& record);
/// Whether it holds such scalars, and after them a list of rows that may be beside them.
bool IsTabular(const DataPlan& record);
/// The data of an item that is no scalar.
const Core::Keywords::IKeywordData& NestedIn(
    const Core::Keywords::IKeywordRecordData& record, std::size_t index);

} // namespace Veld::Quor::Core::Decks
