#include "quor/foundation/service/xml/Initialise.h"

#include "quor/foundation/internal/XercesErrors.h"

#include <xercesc/util/PanicHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <cstddef>
#include <new>
#include <stdexcept>
#include <string>

namespace Veld::Quor::Core::Service::XML {

namespace {

/// In place of the one of the platform, which ends the process.
class Panic : public xercesc::PanicHandler {
public:
    void panic(const PanicReasons reason) override
    {
        throw std::runtime_error(
            std::string("the XML parser can't be started: ") + getPanicReasonString(reason));
    }
};

/// The platform and what it loads go wrong in many ways without memory: it isn't started then.
void CheckMemory()
{
    constexpr std::size_t enough = std::size_t(4) << 20;
    ::operator delete(::operator new(enough));
}

void Start()
{
    static bool isBroken = false; // half of it is there, and can't be taken back
    static Panic panic;
    if (isBroken)
        throw std::runtime_error("the XML parser can't be started: an earlier start failed");
    CheckMemory();
    isBroken = true;
    Internal::WithStandardErrors([] {
        xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, &panic);
    });
    isBroken = false;
}

} // namespace

void Initialise::Init()
{
    // Never terminated: documents and the host's own use of the platform may live until the very exit.
    static const bool done = (Start(), true);
    static_cast<void>(done);
}

} // namespace Veld::Quor::Core::Service::XML
