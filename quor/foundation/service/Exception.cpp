#include "quor/foundation/service/Exception.h"

namespace Veld::Quor::Core::Service {

Exception::Exception(const std::string& message)
    : std::runtime_error(message)
{
}

Exception::~Exception() = default;

} // namespace Veld::Quor::Core::Service
