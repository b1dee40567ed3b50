#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Keywords {

/// Other names of a choice. Has no operations: only `AliasesMDImpl` lists them.
class VELD_QUOR_EXPORT IAliasesMD {
public:
    virtual ~IAliasesMD();
};

} // namespace Veld::Quor::Core::Keywords
