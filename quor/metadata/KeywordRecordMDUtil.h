#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

class IKeywordRecordMD;

/// Questions about the items of a record.
class VELD_QUOR_EXPORT KeywordRecordMDUtil {
public:
    /// Whether every item is an integer or a real; true for a record without items.
    static bool AllNumeric(const IKeywordRecordMD& record);
    /// Whether some item is no scalar: a list, a record, a map or raw text.
    static bool HasNestedContainer(const IKeywordRecordMD& record);
    /// Whether some item is a string or a line.
    static bool HasStringType(const IKeywordRecordMD& record);
};

} // namespace Veld::Quor::Core::Keywords
