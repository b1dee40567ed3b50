#pragma once

#include "quor/foundation/Export.h"

namespace Veld::Quor::Core::Service::XML {

/// The XML platform of the process, which the libraries share with the host.
class VELD_QUOR_EXPORT Initialise {
public:
    /// Initialises the XML platform for the rest of the process; calls after the first do nothing. To be
    /// called before any document is touched. Safe from any thread. Throws a `std::exception` if the platform
    /// can't be initialised: `std::bad_alloc` if less than 4 MiB of memory are left, after which it can be
    /// tried again; it can't after any other failure.
    static void Init();
};

} // namespace Veld::Quor::Core::Service::XML
