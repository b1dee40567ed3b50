#include "quor/foundation/service/xml/Initialise.h"

#include "quor/foundation/service/xml/internal/XMLParser.h"

namespace Veld::Quor::Core::Service::XML {

void Initialise::Init()
{
    Internal::XMLParser::Instance();
}

} // namespace Veld::Quor::Core::Service::XML
