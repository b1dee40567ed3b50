#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

class IKeywordIntegerMD;
class IKeywordNumericMD;
class IKeywordRealMD;

/// Changes the format of a numeric item for a while. The change is made in the item itself, so everyone who
/// reads the item sees it. Not safe while another thread reads formats or sets them.
class VELD_QUOR_EXPORT NumericFormatting {
public:
    /// Null if the item has no format. Lasts until the format is set again.
    static const std::string* GetFormatting(const IKeywordNumericMD& item);

    /// Sets the format, or, if `format` is empty, restores what was there before the first change. Throws
    /// `Service::Exception` for an item that is not this library's own.
    /// @{
    static void SetCustomFormatting(const IKeywordIntegerMD& item, const std::string& format);
    static void SetCustomFormatting(const IKeywordRealMD& item, const std::string& format);
    /// @}
};

} // namespace Veld::Quor::Core::Keywords
