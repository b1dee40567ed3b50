// Part of the implementation of the metadata: hosts that do not build metadata by code use IKeywordDataMD
// instead.

#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

class IKeywordDataMD;

/// Second base of all metadata classes: what a tree is built and owned through, so that the public interfaces
/// carry neither lifetime nor construction.
class VELD_QUOR_EXPORT IKeywordDataMDInternal {
public:
    virtual ~IKeywordDataMDInternal();

    /// The same object by its first base.
    /// @{
    virtual IKeywordDataMD& MD() = 0;
    virtual const IKeywordDataMD& MD() const = 0;
    /// @}
};

} // namespace Veld::Quor::Core::Keywords
