#include "quor/foundation/service/xml/Initialise.h"

#include "quor/foundation/internal/XercesErrors.h"

#include <xercesc/util/PlatformUtils.hpp>

namespace Veld::Quor::Core::Service::XML {

void Initialise::Init()
{
    // Never terminated: documents and the host's own use of the platform may live until the very exit.
    static const bool done =
        (Internal::WithStandardErrors([] { xercesc::XMLPlatformUtils::Initialize(); }), true);
    static_cast<void>(done);
}

} // namespace Veld::Quor::Core::Service::XML
