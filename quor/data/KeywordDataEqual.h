#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

class IKeywordData;
class IKeywordDataMD;

/// Deep equality: the same metadata node, the same structure, the same values. Numbers and texts compare
/// exactly, and a NaN differs from everything, so data that hold one differ from their own clone. In a
/// defaultable list the flags count, and values under a flag on both sides don't. A map compares by position.
/// The syntax plays no part. Throws `Service::Exception` for metadata that can't have data.
VELD_QUOR_EXPORT bool KeywordDataEqual(const IKeywordData& a, const IKeywordData& b);

/// The same for two items of records, as `IKeywordRecordData::GetData` returns them; `md` are the item's
/// metadata.
VELD_QUOR_EXPORT bool KeywordRecordItemEqual(const IKeywordDataMD& md, const void* a, const void* b);

} // namespace Veld::Quor::Core::Keywords
