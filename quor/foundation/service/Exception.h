#pragma once

#include "quor/foundation/Export.h"

#include <stdexcept>
#include <string>

namespace Veld::Quor::Core::Service {

/// Base of the exceptions of the whole family of libraries. `what()` is the message.
class VELD_QUOR_EXPORT Exception : public std::runtime_error {
public:
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
    ~Exception() override;

protected:
    /// Only derived classes are thrown. Copies `message`.
    explicit Exception(const std::string& message);
};

} // namespace Veld::Quor::Core::Service
