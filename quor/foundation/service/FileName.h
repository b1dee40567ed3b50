#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Directory.h"

#include <string>

namespace Veld::Quor::Core::Service {

/// A file's name in a directory. The base is the directory part, so `name.Directory::operator=(directory)`
/// moves the name there.
class VELD_QUOR_EXPORT FileName : public Directory {
public:
    /// `name` may have a directory part, which then becomes the base.
    explicit FileName(const std::string& name);
    FileName(const FileName&);
    FileName& operator=(const FileName&);
    ~FileName();

    /// Moves the name to another directory. The name itself stays.
    using Directory::operator=;

    /// Directory part and name joined; the name alone if there is no directory part.
    std::string GetFullName() const;

private:
    std::string name_;
};

} // namespace Veld::Quor::Core::Service
