#include "quor/foundation/service/Serialization.h"

namespace Veld::Quor::Core::Service {

Serializer::~Serializer() = default;
ISerializable::~ISerializable() = default;

} // namespace Veld::Quor::Core::Service
