#pragma once

#include "quor/foundation/Export.h"
#include "quor/metadata/IKeywordItemMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// A number.
class VELD_QUOR_EXPORT IKeywordNumericMD : public IKeywordItemMD {
public:
    ~IKeywordNumericMD() override;

    /// The template that the item is to be printed by; null if it has none.
    virtual const std::string* GetFormatting() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
