#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class IKeywordIntegerMD;
class IKeywordNumericMD;
class IKeywordRealMD;

/// Changes the format of a numeric item for a while. The change stands in the item itself, so everyone who
/// reads the item sees it. Not safe beside a reader in another thread.
class VELD_QUOR_EXPORT NumericFormatting {
public:
    /// Null if the item has no format.
    static const std::string* GetFormatting(const IKeywordNumericMD& item);

    /// Sets the format, or, if `format` is empty, brings back what was there before the first change. Throws
    /// `Service::Exception` for an item that is not this library's own.
    static void SetCustomFormatting(const IKeywordIntegerMD& item, const std::string& format);
    static void SetCustomFormatting(const IKeywordRealMD& item, const std::string& format);
};

} // namespace Veld::Quor::Core::Keywords
