#pragma once

#include "quor/foundation/service/Exception.h"

#include <string>

namespace Veld::Quor::Core::Keywords {

/// The library's own exception. Not exported: a host catches `Service::Exception` or `std::exception`.
class KeywordException : public Service::Exception {
public:
    explicit KeywordException(const std::string& message)
        : Exception(message)
    {
    }
};

} // namespace Veld::Quor::Core::Keywords
