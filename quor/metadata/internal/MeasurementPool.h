#pragma once

#include <string>

namespace Veld::Quor::Core::Keywords {

/// The process-wide pool of measurement names, never freed: equal names are one object. Filled while the
/// table loads.
class MeasurementPool {
public:
    /// Null for an empty name, which is not pooled.
    static const std::string* Intern(const std::string& name);
    /// Null for a name that is not in the pool, which stays as it is.
    static const std::string* Find(const std::string& name);
};

} // namespace Veld::Quor::Core::Keywords
