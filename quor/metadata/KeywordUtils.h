#pragma once

#include "quor/foundation/Export.h"
#include "quor/metadata/IKeywordDataMD.h"

namespace Veld::Quor::Core::Keywords {

namespace KeywordUtils {

/// `MDType::None` for null.
VELD_QUOR_EXPORT IKeywordDataMD::MDType::Enum GetMDType(const IKeywordDataMD* md);
/// Whether it is a scalar; assignments are, null is not.
/// @{
VELD_QUOR_EXPORT bool IsItemMDType(IKeywordDataMD::MDType::Enum type);
VELD_QUOR_EXPORT bool IsItemMDType(const IKeywordDataMD* md);
/// @}

} // namespace KeywordUtils

} // namespace Veld::Quor::Core::Keywords
