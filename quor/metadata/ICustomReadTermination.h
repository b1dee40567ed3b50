#pragma once

#include "quor/foundation/Export.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// The words that end a list.
class VELD_QUOR_EXPORT ICustomReadTermination {
public:
    virtual ~ICustomReadTermination();
    /// Whether `token` ends the list. `matchFlag` is written on a match only.
    virtual bool Matches(const std::string& token, bool& matchFlag) const = 0;
};

} // namespace Veld::Quor::Core::Keywords
