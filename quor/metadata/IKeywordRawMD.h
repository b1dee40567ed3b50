#pragma once

#include "quor/foundation/Export.h"
#include "quor/metadata/IKeywordDataMD.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// Text that nobody parses.
class VELD_QUOR_EXPORT IKeywordRawMD : public IKeywordDataMD {
public:
    ~IKeywordRawMD() override;

    /// The text that ends it in a deck; what an empty one means is up to the reader.
    virtual std::string GetTerminationString() const = 0;
};

} // namespace Veld::Quor::Core::Keywords
