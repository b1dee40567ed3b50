#pragma once

#include "quor/foundation/SectionType.h"
#include "quor/foundation/SimulatorModeType.h"
#include "quor/foundation/SimulatorType.h"
#include "quor/foundation/internal/SimulatorEntry.h"
#include "quor/foundation/service/xml/DomText.h"
#include "quor/foundation/service/xml/Tags.h"

#include <xercesc/dom/DOMElement.hpp>

/// The words of a syntax document that several readers accept.
namespace Veld::Quor::Core::Keywords {

inline std::string NameOf(const xercesc::DOMElement& element)
{
    return Service::XML::GetAttributeValue(&element, Service::XML::Tags::Name());
}

/// A flag attribute is true only if it is there and says so.
inline bool IsFlagged(const xercesc::DOMElement& element, const XMLCh* attribute)
{
    return Service::XML::GetAttributeValueEqual(&element, attribute, Service::XML::Tags::True());
}

// Wanted, in the three below: a word that is not known counts as row 0, and nothing is reported.

inline SimulatorType::Enum ReadSimulator(const xercesc::DOMElement& element)
{
    return SimulatorType::FromString(NameOf(element));
}

inline SectionType::Enum ReadSection(const xercesc::DOMElement& element)
{
    return SectionType::FromString(NameOf(element));
}

inline SimulatorModeType::Enum ReadMode(const xercesc::DOMElement& option)
{
    return SimulatorModeType::FromString(
        Service::XML::GetAttributeValue(&option, Service::XML::Tags::Value()));
}

inline SimulatorEntry ReadSimulatorEntry(const xercesc::DOMElement& entry)
{
    return {ReadSimulator(entry), IsFlagged(entry, Service::XML::Tags::GridEditsOnly()),
        IsFlagged(entry, Service::XML::Tags::ClassicOnly())};
}

} // namespace Veld::Quor::Core::Keywords
