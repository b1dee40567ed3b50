#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/xml/DomForward.h"

#include <string>

/// @file
/// Texts of a DOM document. Narrow strings are UTF-8, whatever the locale. No element may be null.

namespace Veld::Quor::Core::Service::XML {

/// Transcodes to UTF-8. The result is the calling thread's own and valid until its next call; null gives an
/// empty text.
VELD_QUOR_EXPORT const char* XToC(const XMLCh* text);

/// The attribute's value; empty if it is absent.
VELD_QUOR_EXPORT std::string GetAttributeValue(const xercesc::DOMElement* element, const XMLCh* attribute);
/// Whether the attribute is there and equals `value`.
VELD_QUOR_EXPORT bool GetAttributeValueEqual(
    const xercesc::DOMElement* element, const XMLCh* attribute, const XMLCh* value);
/// Whether the attribute is there, be it empty.
VELD_QUOR_EXPORT bool AttributeExists(const xercesc::DOMElement* element, const XMLCh* attribute);
/// Whether a direct child element has that tag.
VELD_QUOR_EXPORT bool HasChildTagName(const xercesc::DOMElement* element, const XMLCh* tag);
/// The text content, that of elements below included, comments not.
VELD_QUOR_EXPORT std::string GetElementText(const xercesc::DOMElement* element);

} // namespace Veld::Quor::Core::Service::XML
