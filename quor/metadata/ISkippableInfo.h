#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

/// Which items of a record a reader or a writer may skip. Not owned through this pointer.
class VELD_QUOR_EXPORT ISkippableInfo {
public:
    /// By zero-based item index; false for any item that is not marked.
    /// @{
    virtual bool IsSkippableOnRead(unsigned int index) const = 0;
    virtual bool IsSkippableOnWrite(unsigned int index) const = 0;
    /// @}

protected:
    virtual ~ISkippableInfo();
};

} // namespace Veld::Quor::Core::Keywords
