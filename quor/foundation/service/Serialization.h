#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Service {

/// A stream that writes values or reads them back, whichever its implementer does: the object calls the same
/// operations in the same order both ways.
class VELD_QUOR_EXPORT Serializer {
public:
    virtual ~Serializer();
    /// Writes `value`, or replaces it by what was read.
    virtual void Transfer(long long& value) = 0;
};

/// What can be put through a `Serializer`.
class VELD_QUOR_EXPORT ISerializable {
public:
    virtual ~ISerializable();
    /// Transfers what the object consists of. What the serializer throws passes through.
    virtual void Serialize(Serializer& serializer) = 0;
};

} // namespace Veld::Quor::Core::Service
