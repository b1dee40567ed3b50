#pragma once

#include <cassert>

namespace Veld::Quor::Core::Keywords {

/// A downcast that `GetType` has already decided.
template <class To, class From>
To& CastMD(From& from)
{
    assert(dynamic_cast<To*>(&from) && "the object is not what its metadata say");
    return static_cast<To&>(from);
}

} // namespace Veld::Quor::Core::Keywords
